#include "crosssection/clip_ter_sections.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>
#include <vector>

#include "common/conversion_files.h"
#include "common/fixed_columns.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tolerance.h"
#include "crosssection/section_point.h"

namespace quelcnv {

namespace {

constexpr std::size_t shortestDistanceLine = 32;
constexpr std::size_t longestShortElevationLine = 99;  // line break included
constexpr int fieldWidth = 8;
// The columns of the ten points, in the order they are taken: 46 before 36
// on purpose, as it decides which of two points at one offset is moved.
constexpr int pointColumns[] = {26, 46, 36, 56, 66, 76, 86, 96, 106, 116};
constexpr std::size_t pointsPerLine = 20;
// A second point at an offset already taken, with another elevation, is
// moved this far.
constexpr double duplicateShift = 0.005;

double numberAt(std::string_view line, int column, int width) {
    return parseNumber(*midText(line, column, width));
}

// At least 32 characters and a digit in columns 10 to 18.
bool isDistanceLine(std::string_view line) {
    if (line.size() < shortestDistanceLine) return false;
    std::string_view columns = line.substr(9, 9);
    return std::any_of(columns.begin(), columns.end(),
                       [](char c) { return std::isdigit(static_cast<unsigned char>(c)); });
}

// Adds a point unless it is an empty field (both values 0) or repeats a
// point already there; a point at the offset of another with a different
// elevation is moved by a few millimetres. False when the list is full.
bool addPoint(std::vector<SectionPoint>& points, std::size_t capacity, SectionPoint point) {
    if (point.offset != 0.0 || point.elevation != 0.0) {
        auto same = std::find_if(points.begin(), points.end(), [&](const SectionPoint& p) {
            return std::fabs(p.offset - point.offset) < pointTolerance;
        });
        bool duplicate =
            same != points.end() && std::fabs(same->elevation - point.elevation) < pointTolerance;
        if (same != points.end() && !duplicate) point.offset += duplicateShift;
        if (!duplicate) points.push_back(point);
    }
    return points.size() < capacity;
}

// The points of one section, sorted by offset (and the higher code first);
// nothing when they outgrow the table.
std::optional<std::vector<SectionPoint>> sectionPoints(std::string_view distances,
                                                       std::string_view elevations,
                                                       std::size_t capacity) {
    double station = numberAt(distances, 12, 9);
    std::vector<SectionPoint> points;
    double axisElevation = numberAt(elevations, 13, fieldWidth);
    if (axisElevation != 0.0 && !addPoint(points, capacity, {station, 0.0, axisElevation, "0"}))
        return std::nullopt;
    for (int column : pointColumns) {
        SectionPoint point{station, numberAt(distances, column, fieldWidth),
                           numberAt(elevations, column, fieldWidth), "10"};
        if (!addPoint(points, capacity, point)) return std::nullopt;
    }
    std::stable_sort(points.begin(), points.end(),
                     [](const auto& a, const auto& b) { return compareByOffsetAndCode(a, b) < 0; });
    return points;
}

}  // namespace

Outcome importClipTerSections(const std::string& entrada, const std::string& ruxoPath) {
    std::size_t capacity = pointsPerLine * static_cast<std::size_t>(countLines(entrada));
    ConversionFiles files;
    Outcome opened = files.open(entrada, ruxoPath);
    if (!opened.ok()) return opened;
    LineReader& in = files.in;
    std::string distances, elevations;
    while (readLineBeforeEnd(in, distances)) {
        if (!isDistanceLine(distances)) continue;
        // Used even when it meets the end of the file; a read that finds
        // nothing leaves no elevation line, and the section is skipped.
        if (in.read(elevations) == ReadStatus::nothing) elevations.clear();
        if (elevations.size() <= longestShortElevationLine) continue;
        auto points = sectionPoints(distances, elevations, capacity);
        if (!points) return Outcome::failed(Failure::tooLarge, in.lineNumber());
        for (const SectionPoint& p : *points)
            files.out.print("%9.3lf %8.3lf %8.3lf %s\n"_fmt, p.station, p.offset, p.elevation,
                            p.code);
    }
    return files.finish();
}

}  // namespace quelcnv
