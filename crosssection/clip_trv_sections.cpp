#include "crosssection/clip_trv_sections.h"

#include <cstdint>

#include "common/conversion_files.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

// Offsets compare with this before the first point of a section.
constexpr double noOffset = -100000000.0;

struct Section {
    double station = 0.0;  // a header that cannot give a value keeps the last one
    std::int32_t count = 0;
    double previousOffset = noOffset;
};

// "offset,elevation[,code...]": the code loses its last character, which is
// the line break when the code ends the line and the code's own last
// character when more follows. A point repeating the offset just before it
// is dropped.
void writePoint(OutputFile& out, std::string_view line, Section& section) {
    Tokenizer tokens(line);
    auto offsetText = tokens.next(",");
    auto elevationText = tokens.next(",");
    if (!offsetText || !elevationText) return;
    std::string code(tokens.next(",").value_or(""));
    if (!code.empty()) code.pop_back();
    double offset = parseNumber(*offsetText);
    if (offset != section.previousOffset) {
        out.print("%8.3lf %8.3lf %8.3lf %s\n"_fmt, section.station, offset,
                  parseNumber(*elevationText), code);
    }
    section.previousOffset = offset;
}

// The point lines of a section; false when the file ended among them (the
// line that met the end is not converted).
bool readPoints(LineReader& in, OutputFile& out, Section& section) {
    std::string line;
    for (std::int32_t i = 0; i < section.count; ++i) {
        if (!readLineBeforeEnd(in, line)) return false;
        writePoint(out, line, section);
    }
    return true;
}

// What the lines before the first section are: the "*TRV" header, which
// takes the next line with it, or a line starting with "*" that is none.
enum class HeaderLine { none, fileHeader, foreign };

HeaderLine headerLine(std::string_view line) {
    if (line.front() != '*') return HeaderLine::none;
    return line.starts_with("*TRV") ? HeaderLine::fileHeader : HeaderLine::foreign;
}

Outcome readSections(LineReader& in, OutputFile& out) {
    Section section;
    int sections = 0;
    std::string line;
    while (readLineThroughEnd(in, line)) {
        if (line.empty()) continue;
        HeaderLine kind = sections == 0 ? headerLine(line) : HeaderLine::none;
        if (kind == HeaderLine::foreign) return Outcome::failed(Failure::rejected, in.lineNumber());
        if (kind == HeaderLine::fileHeader) {
            readLineThroughEnd(in, line);
            continue;
        }
        ++sections;
        ValueScanner scan(line);  // "%lf , %d"
        if (scan.number(section.station) && scan.literal(',')) scan.whole(section.count);
        section.previousOffset = noOffset;
        if (!readPoints(in, out, section)) break;
    }
    return Outcome::done();
}

}  // namespace

Outcome importClipTrvSections(const std::string& entrada, const std::string& ruxoPath) {
    ConversionFiles files;
    Outcome opened = files.open(entrada, ruxoPath);
    if (!opened.ok()) return opened;
    Outcome read = readSections(files.in, files.out);
    return read.ok() ? files.finish() : read;
}

}  // namespace quelcnv
