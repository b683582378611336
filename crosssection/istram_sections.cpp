#include "crosssection/istram_sections.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "common/conversion_files.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"
#include "crosssection/section_point.h"

namespace quelcnv {

namespace {

// Fields of these files are separated by blanks and line feeds only.
constexpr Separators separators = " \n";
constexpr std::int32_t sectionRecordType = 4;
constexpr std::size_t sectionRecordFields = 6;
// Offsets compare with this before the first point of a section is written.
constexpr double noOffset = -100000000.0;

// What the section records and count lines set; a value a line cannot give
// stays as the last one read.
struct SectionHeader {
    double station = 0.0;
    std::int32_t left = 0;
    std::int32_t right = 0;
};

bool isSectionRecord(std::string_view line) {
    Tokenizer tokens(line);
    std::size_t fields = 0;
    std::optional<std::string_view> first = tokens.next(separators);
    for (auto token = first; token; token = tokens.next(separators)) ++fields;
    return fields >= sectionRecordFields && parseWhole(*first) == sectionRecordType;
}

// "%d %d %lf %lf %lf %lf": the third real number is the station.
void readStation(std::string_view line, SectionHeader& header) {
    ValueScanner scan(line);
    std::int32_t whole;
    double number;
    if (scan.whole(whole) && scan.whole(whole) && scan.number(number) && scan.number(number))
        scan.number(header.station);
}

// "%d %d %d %d %d": the fourth is the count of points on the left, the fifth
// on the right.
void readCounts(std::string_view line, SectionHeader& header) {
    ValueScanner scan(line);
    std::int32_t whole;
    if (scan.whole(whole) && scan.whole(whole) && scan.whole(whole) && scan.whole(header.left))
        scan.whole(header.right);
}

// Pairs distance, elevation; a distance without its elevation ends the line.
void readPairs(std::string_view line, std::vector<SectionPoint>& points) {
    Tokenizer tokens(line);
    while (auto distance = tokens.next(separators)) {
        auto elevation = tokens.next(separators);
        if (!elevation) return;
        points.push_back({0.0, parseNumber(*distance), parseNumber(*elevation), {}});
    }
}

// The points of one section, read until there are left + right of them or
// the file ends; a section of no points reads no line. Nothing when the
// points do not fit the table of twice their sum (negative counts, or more
// pairs on the section's lines than that), or when there would be more of
// them than the file has bytes.
std::optional<std::vector<SectionPoint>> readPoints(LineReader& in, const SectionHeader& header,
                                                    std::uint64_t fileSize) {
    std::int64_t wanted = std::int64_t{header.left} + header.right;
    if (header.left < 0 || header.right < 0 || static_cast<std::uint64_t>(wanted) > fileSize)
        return std::nullopt;
    auto tableSize = static_cast<std::size_t>(2 * wanted);
    std::vector<SectionPoint> points;
    std::string line;
    while (static_cast<std::int64_t>(points.size()) < wanted && readLineBeforeEnd(in, line)) {
        readPairs(line, points);
        if (points.size() > tableSize) return std::nullopt;
    }
    return points;
}

// Left distances are given positive; sorted by offset, and of several points
// at one offset only the first is written.
void writeSection(OutputFile& out, std::vector<SectionPoint>& points, const SectionHeader& header) {
    std::size_t left = std::min<std::size_t>(points.size(), static_cast<std::size_t>(header.left));
    for (std::size_t i = 0; i < left; ++i) points[i].offset = -points[i].offset;
    std::stable_sort(points.begin(), points.end(),
                     [](const auto& a, const auto& b) { return compareByOffsetAndCode(a, b) < 0; });
    double written = noOffset;
    for (const SectionPoint& p : points) {
        if (p.offset == written) continue;
        out.print("%9.3lf %8.3lf %8.3lf\n"_fmt, header.station, p.offset, p.elevation);
        written = p.offset;
    }
}

std::uint64_t fileSizeOf(const std::string& path) {
    std::error_code error;
    std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : size;
}

}  // namespace

Outcome importIstramSections(const std::string& entrada, const std::string& ruxoPath) {
    ConversionFiles files;
    Outcome opened = files.open(entrada, ruxoPath);
    if (!opened.ok()) return opened;
    LineReader& in = files.in;
    std::uint64_t fileSize = fileSizeOf(entrada);
    SectionHeader header;
    std::string line;
    while (readLineBeforeEnd(in, line)) {
        if (!isSectionRecord(line)) continue;
        readStation(line, header);
        if (!readLineBeforeEnd(in, line)) break;
        readCounts(line, header);
        auto points = readPoints(in, header, fileSize);
        if (!points) return Outcome::failed(Failure::rejected, in.lineNumber());
        writeSection(files.out, *points, header);
    }
    return files.finish();
}

}  // namespace quelcnv
