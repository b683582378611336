#include "profile/ispol_superelevation.h"

#include <optional>
#include <string_view>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/tokenizer.h"
#include "profile/superelevation_file.h"

namespace quelcnv {

namespace {

// Fields: 1 a number (not used), 2 station, 3 the second cross-fall with its
// sign changed (deliberate, and kept), 4 and 5 optional: the first cross-fall
// is field 5 when there is one, else field 4, else 0. Comment lines and
// lines of fewer than three fields give no row.
std::optional<SuperelevationRow> parseRow(std::string_view line) {
    if (isCommentLine(line)) return std::nullopt;
    std::vector<std::string_view> fields = leadingFields(line, blanksAndTabs, 5);
    if (fields.size() < 3) return std::nullopt;
    SuperelevationRow row;
    row.station = parseNumber(fields[1]);
    row.secondFall = -parseNumber(fields[2]);
    if (fields.size() == 5)
        row.firstFall = parseNumber(fields[4]);
    else if (fields.size() == 4)
        row.firstFall = parseNumber(fields[3]);
    return row;
}

// The rows after the title line. Every read is used, the one that meets the
// end of the file too. A read that finds nothing left leaves the previous
// line in the buffer and parses it again: a line already split gives no row,
// but a title never split does, when it has three words or more. So a
// listing of only a title line ended by a line break gives a row of its
// title; one whose title has no line break gives none.
std::vector<SuperelevationRow> readRows(LineReader& reader) {
    std::vector<SuperelevationRow> rows;
    rows.reserve(linesAhead(reader));
    std::string line;
    if (reader.read(line) != ReadStatus::line) return rows;
    bool titleInBuffer = true;
    while (!reader.atEnd()) {
        bool read = reader.read(line) != ReadStatus::nothing;
        if (!read && !titleInBuffer) break;
        titleInBuffer = false;
        if (std::optional<SuperelevationRow> row = parseRow(line)) rows.push_back(*row);
    }
    return rows;
}

}  // namespace

Outcome convertIspolSuperelevation(const std::string& entrada, const std::string& salida) {
    std::optional<std::vector<SuperelevationRow>> rows = readWhole(entrada, readRows);
    if (!rows) return Outcome::failed(Failure::inputUnreadable);
    return writeSuperelevationFile(*rows, salida);
}

}  // namespace quelcnv
