#include "crosssection/ruxo_sections.h"

#include <array>
#include <optional>
#include <string_view>

#include "common/conversion_files.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

void writeNevoPoint(OutputFile& out, const SectionPointText& p) {
    if (!p.code.empty())
        out.print("%0.3lf,%0.3lf,%0.3lf,%s\n"_fmt, p.station, p.offset, p.elevation, p.code);
    else
        out.print("%0.3lf,%0.3lf,%0.3lf\n"_fmt, p.station, p.offset, p.elevation);
}

void writeFixedWidthPoint(OutputFile& out, const SectionPointText& p) {
    out.print("%8.3lf %8.3lf %8.3lf %s\n"_fmt, p.station, p.offset, p.elevation, p.code);
}

// Counts the points written, and the sections: runs of points at one station.
struct SectionCount {
    std::size_t points = 0;
    std::size_t sections = 0;
    double station = 0.0;

    void add(const SectionPointText& p) {
        if (points++ == 0 || p.station != station) ++sections;
        station = p.station;
    }
    Outcome counted(Outcome outcome) const {
        return withCount(withCount(outcome, &Written::points, points), &Written::sections,
                         sections);
    }
};

using PointOf = std::optional<SectionPointText> (*)(std::string_view);

// Point by point, line by line: memory does not grow with the input.
template <PointOf pointOf, void (*write)(OutputFile&, const SectionPointText&)>
Outcome convertPoints(const std::string& entrada, const std::string& salida, LineRule readLine) {
    SectionCount count;
    return count.counted(
        convertLineByLine(entrada, salida, readLine, [&](OutputFile& out, std::string_view line) {
            std::optional<SectionPointText> p = pointOf(line);
            if (!p) return;
            write(out, *p);
            count.add(*p);
        }));
}

// The points of every line a read rule lets through, one by one.
Outcome readPoints(const std::string& path, LineRule readLine, PointOf pointOf,
                   const EachPoint& each) {
    LineReader reader;
    if (!reader.open(path)) return Outcome::failed(Failure::inputUnreadable);
    std::string_view line;
    while (readLine(reader, line)) {
        if (std::optional<SectionPointText> p = pointOf(line)) each(*p);
    }
    if (reader.readFailed()) return Outcome::failed(Failure::inputUnreadable);
    return Outcome::done();
}

}  // namespace

std::optional<SectionPointText> ruxoSectionPoint(std::string_view line) {
    Tokenizer tokens(line);
    auto values = nextNumbers<3>(tokens, blanksTabsAndNewlines);
    if (!values) return std::nullopt;
    auto [station, offset, elevation] = *values;
    auto code = tokens.next(blanksTabsAndNewlines);
    return SectionPointText{station, offset, elevation, code.value_or("")};
}

std::optional<SectionPointText> commaSectionPoint(std::string_view line) {
    Tokenizer tokens(line);
    auto values = nextNumbers<3>(tokens, ",");
    if (!values) return std::nullopt;
    auto [station, offset, elevation] = *values;
    std::string_view code = tokens.rest();
    if (!code.empty()) code.remove_suffix(1);  // the line break, or the code's own last character
    return SectionPointText{station, offset, elevation, code};
}

Outcome readRuxoSections(const std::string& path, const EachPoint& each) {
    return readPoints(path, readLineBeforeEnd, ruxoSectionPoint, each);
}

Outcome readCommaSections(const std::string& path, const EachPoint& each) {
    return readPoints(path, readLineThroughEnd, commaSectionPoint, each);
}

Outcome convertRuxoSectionsToNevo(const std::string& entrada, const std::string& salida) {
    return convertPoints<ruxoSectionPoint, writeNevoPoint>(entrada, salida, readLineBeforeEnd);
}

Outcome convertCommaSectionsToFixedWidth(const std::string& entrada, const std::string& salida) {
    return convertPoints<commaSectionPoint, writeFixedWidthPoint>(entrada, salida,
                                                                  readLineThroughEnd);
}

}  // namespace quelcnv
