#include "crosssection/cartomap_sections.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/text_case.h"
#include "common/tokenizer.h"
#include "crosssection/section_point_table.h"

namespace quelcnv {

namespace {

constexpr Separators separators = " ,\t";

bool isPkWord(std::optional<std::string_view> token) {
    return token && equalsIgnoringCase(*token, "\"PK\"");
}

// The point lines after a header, until the next header, which is read
// again as such. A read that meets the end of the file ends the whole
// listing, unused. False then.
template <typename Point>
bool readSection(LineReader& in, Point pointOf) {
    std::string_view line;
    while (true) {
        std::uint64_t start = in.position();
        if (!readLineBeforeEnd(in, line)) return false;
        if (!pointOf(line)) {
            in.seek(start);
            return true;
        }
    }
}

// "PK" sections: offset and elevation, no code.
void readStationLayout(LineReader& in, SectionPointTable& points) {
    std::string_view line;
    bool reading = true;
    while (reading && readLineBeforeEnd(in, line)) {
        Tokenizer tokens(line);
        auto first = tokens.next(separators);
        auto station = tokens.next(separators);
        if (line.empty() || line.front() == ' ' || !isPkWord(first) || !station) continue;
        points.startSection(parseNumber(*station));
        reading = readSection(in, [&](std::string_view text) {
            Tokenizer fields(text);
            auto offset = fields.next(separators);
            if (isPkWord(offset)) return false;
            auto elevation = fields.next(separators);
            if (offset && elevation) points.add(parseNumber(*offset), parseNumber(*elevation), {});
            return true;
        });
    }
}

// Station sections: offset, two fields not used, elevation, code.
void readDistanceLayout(LineReader& in, SectionPointTable& points) {
    std::string_view line;
    bool reading = true;
    while (reading && readLineBeforeEnd(in, line)) {
        if (line.empty() || line.front() == 'P' || line.front() == 'p') continue;
        auto header = Tokenizer(line).next(separators);
        if (!header) continue;
        points.startSection(cartomapStation(*header));
        reading = readSection(in, [&](std::string_view text) {
            Tokenizer fields(text);
            std::optional<std::string_view> f[5];
            for (auto& field : f) field = fields.next(separators);
            if (f[0] && f[0]->find('+') != std::string_view::npos) return false;
            if (f[4]) points.add(parseNumber(*f[0]), parseNumber(*f[3]), *f[4]);
            return true;
        });
    }
}

}  // namespace

double cartomapStation(std::string_view text) {
    std::size_t plus = text.find('+');
    if (plus == std::string_view::npos) return parseNumber(text) * 1000.0;
    return parseNumber(text.substr(0, plus)) * 1000.0 + parseNumber(text.substr(plus + 1));
}

Outcome importCartomapSections(const std::string& entrada, const std::string& salida) {
    LineReader in;
    if (!in.open(entrada)) return Outcome::failed(Failure::inputUnreadable);
    std::string first;
    readLineThroughEnd(in, first);
    bool distanceLayout = first.find("Distancia") != std::string::npos;
    in.seek(0);
    SectionPointTable points;
    if (distanceLayout)
        readDistanceLayout(in, points);
    else
        readStationLayout(in, points);
    if (in.readFailed()) return Outcome::failed(Failure::inputUnreadable);
    if (points.overflowed()) return Outcome::failed(Failure::rejected, in.lineNumber());
    in.close();
    return writeSortedPoints(points, salida);
}

}  // namespace quelcnv
