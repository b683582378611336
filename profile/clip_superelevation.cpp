#include "profile/clip_superelevation.h"

#include <optional>
#include <string_view>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/tokenizer.h"
#include "profile/superelevation_file.h"

namespace quelcnv {

namespace {

// Station, first cross-fall, and the second cross-fall with its sign
// changed: deliberate, and kept. Any line of three fields is a row, a title
// line too, its words reading as 0.
std::optional<SuperelevationRow> parseRow(std::string_view line) {
    std::vector<std::string_view> fields = leadingFields(line, blanksAndTabs, 3);
    if (fields.size() < 3) return std::nullopt;
    SuperelevationRow row;
    row.station = parseNumber(fields[0]);
    row.firstFall = parseNumber(fields[1]);
    row.secondFall = -parseNumber(fields[2]);
    return row;
}

}  // namespace

Outcome convertClipSuperelevation(const std::string& entrada, const std::string& salida) {
    LineReader reader;
    if (!reader.open(entrada)) return Outcome::failed(Failure::inputUnreadable);
    std::vector<SuperelevationRow> rows;
    rows.reserve(linesAhead(reader));
    // A last line without a line break is taken. A read that finds nothing
    // left leaves the last line in the buffer, already split: it gives no
    // row, so it ends the reading.
    std::string line;
    while (readLineThroughEnd(reader, line)) {
        if (std::optional<SuperelevationRow> row = parseRow(line)) rows.push_back(*row);
    }
    if (reader.readFailed()) return Outcome::failed(Failure::inputUnreadable);
    reader.close();
    return writeSuperelevationFile(rows, salida);
}

}  // namespace quelcnv
