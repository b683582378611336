#include "alignment/istram_alignment.h"

#include <string_view>
#include <vector>

#include "alignment/alignment_record.h"
#include "alignment/ruxo_alignment_file.h"
#include "common/fixed_columns.h"
#include "common/line_reader.h"
#include "common/numbers.h"

namespace quelcnv {

namespace {

// Lines with fewer characters than this before their line feed are no table
// lines: they end the table (headers, footers, blank lines).
constexpr std::size_t minimumTableWidth = 100;
constexpr int wordWidth = 5;
constexpr int numberWidth = 12;

// First column of each field.
constexpr int wordColumn = 4;
constexpr int shiftedWordColumn = 7;
constexpr int stationColumn = 23;
constexpr int xColumn = 36;
constexpr int yColumn = 49;
constexpr int radiusColumn = 62;
constexpr int parameterColumn = 75;
constexpr int azimuthColumn = 88;

bool isElementWordAt(std::string_view line, int column) {
    std::string word = *midText(line, column, wordWidth);
    return word == "RECTA" || word == "CIRC." || word == "CLOT.";
}

double numberAt(std::string_view line, int column) {
    return parseNumber(*midText(line, column, numberWidth));
}

AlignmentRecord recordOf(std::string_view text) {
    // Padded so that trailing columns the line does not reach read as blanks.
    std::string line(text);
    if (line.size() < LineReader::maxLineLength) line.resize(LineReader::maxLineLength, ' ');
    AlignmentRecord record;
    record.station = numberAt(line, stationColumn);
    record.x = numberAt(line, xColumn);
    record.y = numberAt(line, yColumn);
    record.radius = numberAt(line, radiusColumn);
    record.parameter = numberAt(line, parameterColumn);
    record.azimuth = numberAt(line, azimuthColumn);
    return record;
}

// One record per table line. A table starts at a line with an element word;
// wide lines without a word that follow it (the closing point) belong to it.
std::vector<AlignmentRecord> readTables(LineReader& reader) {
    std::vector<AlignmentRecord> records;
    records.reserve(linesAhead(reader));
    bool inTable = false;
    std::string line;
    while (readLineThroughEnd(reader, line)) {
        std::string_view text = withoutLineBreak(line);
        if (text.size() < minimumTableWidth) {
            inTable = false;
            continue;
        }
        if (isElementWordAt(text, wordColumn) || isElementWordAt(text, shiftedWordColumn))
            inTable = true;
        if (inTable) records.push_back(recordOf(text));
    }
    return records;
}

// Lengths from the stations, clothoid radii from the curve that follows, and
// the types. Each record looks at its successor before that one is changed.
void completeRecords(std::vector<AlignmentRecord>& records) {
    for (std::size_t i = 0; i + 1 < records.size(); ++i) {
        AlignmentRecord& record = records[i];
        const AlignmentRecord& next = records[i + 1];
        record.length = next.station - record.station;
        // A clothoid takes the radius of the curve it leads into; one listed
        // with a negative parameter keeps its own radius, as the alignments
        // imported from ISTRAM always have.
        if (record.parameter > 0) record.radius = next.radius;
        if (record.length == 0) {  // a zero-length element becomes a straight
            record.parameter = 0;
            record.radius = 0;
        }
    }
    for (AlignmentRecord& record : records)
        record.type = elementTypeOf(record.parameter, record.radius);
}

}  // namespace

Outcome importIstramAlignment(const std::string& entrada, const std::string& salida) {
    return importAlignment(entrada, salida, readTables, completeRecords);
}

}  // namespace quelcnv
