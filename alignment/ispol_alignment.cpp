#include "alignment/ispol_alignment.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "alignment/alignment_record.h"
#include "alignment/ruxo_alignment_file.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

// ISPOL element codes.
constexpr std::int32_t ispolStraight = 1;
constexpr std::int32_t ispolArcGrowing = 2;  // azimuth grows along the arc
constexpr std::int32_t ispolArcFalling = 3;  // azimuth falls along the arc
constexpr std::int32_t ispolClothoidIntoCurve = 4;
constexpr std::int32_t ispolClothoid = 5;
constexpr std::int32_t ispolOtherClothoid = 6;
constexpr std::int32_t ispolOtherClothoidIntoCurve = 7;

struct IspolElement {
    std::int32_t code = 0;
    double length = 0.0;
    double x = 0.0;
    double y = 0.0;
    double azimuth = 0.0;
    double curve = 0.0;  // radius for the arcs, parameter for the clothoids
};

// The next line that is not a comment; false at the end of the file.
bool readDataLine(LineReader& reader, std::string& line) {
    while (readLineThroughEnd(reader, line))
        if (!isCommentLine(line)) return true;
    return false;
}

// Eight tokens: code, length, x, y, two not used, azimuth, radius or
// parameter. Nothing when one is missing.
std::optional<IspolElement> parseElement(std::string_view line) {
    Tokenizer tokens(line);
    auto read = nextTokens<8>(tokens, blanksAndTabs);
    if (!read) return std::nullopt;
    const auto& fields = *read;
    IspolElement element;
    element.code = parseWhole(fields[0]);
    element.length = parseNumber(fields[1]);
    element.x = parseNumber(fields[2]);
    element.y = parseNumber(fields[3]);
    element.azimuth = std::fabs(parseNumber(fields[6]));
    element.curve = parseNumber(fields[7]);
    return element;
}

// The record keeps the ISPOL code in `type` until the records are complete.
AlignmentRecord recordOf(const IspolElement& element, double station) {
    AlignmentRecord record;
    record.type = element.code;
    record.station = station;
    record.x = element.x;
    record.y = element.y;
    record.azimuth = element.azimuth;
    record.length = element.length;
    switch (element.code) {
        case ispolArcGrowing: record.radius = element.curve; break;
        case ispolArcFalling: record.radius = -element.curve; break;
        case ispolClothoidIntoCurve:
        case ispolClothoid:
        case ispolOtherClothoid:
        case ispolOtherClothoidIntoCurve: record.parameter = element.curve; break;
        default: break;  // straights, and unknown codes, carry no curve
    }
    return record;
}

// The start station, then the elements, each starting where the last ended.
// The elements are read until the end of the file; an element line without a
// line break at the end of the file is used like any other. A comment line
// after the first element, or an incomplete line, ends them too.
std::vector<AlignmentRecord> readElements(LineReader& reader) {
    std::vector<AlignmentRecord> records;
    records.reserve(linesAhead(reader));
    std::string line;
    if (!readDataLine(reader, line)) return records;
    double station = parseNumber(line);
    if (!readDataLine(reader, line)) return records;
    while (std::optional<IspolElement> element = parseElement(line)) {
        records.push_back(recordOf(*element, station));
        station += element->length;
        if (!readLineThroughEnd(reader, line) || isCommentLine(line)) break;
    }
    return records;
}

std::int32_t typeOfCode(std::int32_t code) {
    if (code == ispolStraight) return straightElement;
    if (code == ispolArcGrowing || code == ispolArcFalling) return arcElement;
    return clothoidElement;
}

// Clothoids into a curve take the next record's radius (before that record
// takes its own), then codes become types. The last record starts no element
// and keeps its code.
void completeRecords(std::vector<AlignmentRecord>& records) {
    for (std::size_t i = 0; i + 1 < records.size(); ++i) {
        AlignmentRecord& record = records[i];
        if (record.type == ispolClothoidIntoCurve || record.type == ispolOtherClothoidIntoCurve)
            record.radius = records[i + 1].radius;
        record.type = typeOfCode(record.type);
    }
}

}  // namespace

Outcome importIspolAlignment(const std::string& entrada, const std::string& salida) {
    return importAlignment(entrada, salida, readElements, completeRecords);
}

}  // namespace quelcnv
