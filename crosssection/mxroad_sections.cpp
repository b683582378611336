#include "crosssection/mxroad_sections.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"
#include "crosssection/section_point_table.h"

namespace quelcnv {

namespace {

// Header lines are longer than this, line break included.
constexpr std::size_t shortestHeader = 17;
constexpr std::size_t pointsPerLine = 7;
constexpr Separators pointSeparators = " \n";

struct Header {
    double station;
    std::int32_t count;
};

std::optional<Header> sectionHeader(std::string_view line) {
    if (line.size() <= shortestHeader) return std::nullopt;
    Tokenizer tokens(line);
    auto station = tokens.next(blanksAndTabs);
    auto count = tokens.next(blanksAndTabs);
    if (!station || !count || parseWhole(*count) <= 0) return std::nullopt;
    return Header{parseNumber(*station), parseWhole(*count)};
}

struct Reading {
    SectionPointTable points;
    std::size_t capacity = 0;  // seven points per line of the file
};

// The pairs of one point line; false when an offset has no elevation or the
// table is full.
bool readPairs(std::string_view line, Reading& reading, std::int64_t& missing) {
    Tokenizer tokens(line);
    double offset, elevation;
    while (tokens.nextNumber(pointSeparators, offset)) {
        if (!tokens.nextNumber(pointSeparators, elevation)) return false;
        if (reading.points.size() >= reading.capacity) return false;
        if (!reading.points.add(offset, elevation, "MOS")) return false;
        --missing;
    }
    return true;
}

// The point lines of a section, until it has its points (pairs after that
// on the same line count too). The end of the file before that fails the
// import: the reader would find only the last line, already split, whose
// lone first number has no elevation.
bool readSection(LineReader& in, const Header& header, Reading& reading) {
    std::int64_t missing = header.count;
    std::string_view line;
    reading.points.startSection(header.station);
    while (missing > 0) {
        if (in.read(line) == ReadStatus::nothing) return false;
        if (!readPairs(line, reading, missing)) return false;
    }
    return true;
}

std::optional<SectionPointTable> readSections(const std::string& entrada, LineReader& in) {
    Reading reading;
    reading.capacity = pointsPerLine * static_cast<std::size_t>(countLines(entrada));
    std::string_view line;
    if (!readLineThroughEnd(in, line)) return std::nullopt;  // empty file
    while (readLineBeforeEnd(in, line)) {
        auto header = sectionHeader(line);
        if (header && !readSection(in, *header, reading)) return std::nullopt;
    }
    return std::move(reading.points);
}

}  // namespace

Outcome importMxroadSections(const std::string& entrada, const std::string& ruxoPath) {
    LineReader in;
    if (!in.open(entrada)) return Outcome::failed(Failure::inputUnreadable);
    auto points = readSections(entrada, in);
    if (in.readFailed()) return Outcome::failed(Failure::inputUnreadable);
    if (!points) return Outcome::failed(Failure::rejected, in.lineNumber());
    return writeSortedPoints(*points, ruxoPath);
}

}  // namespace quelcnv
