#include "alignment/istram_listing_alignment.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "alignment/alignment_record.h"
#include "alignment/ruxo_alignment_file.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/text_case.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

// A fixed limit of the listing importer: further key points are not stored.
constexpr std::size_t maximumRecords = 500;
// Shorter lines, line feed included, are not looked at.
constexpr std::size_t minimumLineLength = 10;
// An arc radius of exactly -0.001 is taken as no radius (0).
constexpr double noRadius = -0.001;

bool isElementWord(std::optional<std::string_view> word) {
    return word && (equalsIgnoringCase(*word, "RECTA") || equalsIgnoringCase(*word, "CIRC.") ||
                    equalsIgnoringCase(*word, "CLOT."));
}

// The listing's words are "CIRC." and "CLOT.", with the dot, so only "RECTA"
// ever classifies. Kept on purpose: this importer brings over the straights.
std::optional<std::int32_t> classify(std::string_view word) {
    if (equalsIgnoringCase(word, "RECTA")) return straightElement;
    if (equalsIgnoringCase(word, "CIRC")) return arcElement;
    if (equalsIgnoringCase(word, "CLOT")) return clothoidElement;
    return std::nullopt;
}

std::optional<double> nextNumber(Tokenizer& tokens) {
    auto token = tokens.next(blanksAndTabs);
    if (!token) return std::nullopt;
    return parseNumber(*token);
}

// The tokens after the element word: one not used, station, x, y, the radius
// of an arc or the parameter of a clothoid, azimuth. Nothing when one is missing.
std::optional<AlignmentRecord> readNumbers(Tokenizer& tokens, std::int32_t type) {
    if (!tokens.next(blanksAndTabs)) return std::nullopt;
    std::optional<double> station = nextNumber(tokens);
    std::optional<double> x = nextNumber(tokens);
    std::optional<double> y = nextNumber(tokens);
    std::optional<double> curve = 0.0;
    if (type != straightElement) curve = nextNumber(tokens);
    std::optional<double> azimuth = nextNumber(tokens);
    if (!station || !x || !y || !curve || !azimuth) return std::nullopt;
    AlignmentRecord record;
    record.type = type;
    record.station = *station;
    record.x = *x;
    record.y = *y;
    record.azimuth = *azimuth;
    if (type == arcElement) record.radius = *curve == noRadius ? 0.0 : *curve;
    if (type == clothoidElement) record.parameter = std::fabs(*curve);
    return record;
}

struct ListingState {
    bool firstElementSeen = false;
    bool tableBegun = false;
};

// What one line gives: a record, or the end of the table, or neither.
struct LineResult {
    std::optional<AlignmentRecord> record;
    bool endOfTable = false;
};

LineResult readTableLine(std::string_view line, ListingState& state) {
    if (line.size() < minimumLineLength || line[2] == 'N') return {};
    Tokenizer tokens(line);
    std::optional<std::string_view> word = tokens.next(blanksAndTabs);
    if (!state.firstElementSeen) {  // the table starts at element number 1
        if (!word || parseWhole(*word) != 1) return {};
        state.firstElementSeen = true;
    }
    if (!isElementWord(word)) word = tokens.next(blanksAndTabs);
    if (!isElementWord(word)) return {std::nullopt, state.tableBegun};
    std::optional<std::int32_t> type = classify(*word);
    if (!type) return {};
    state.tableBegun = true;
    return {readNumbers(tokens, *type), false};
}

std::vector<AlignmentRecord> readListing(LineReader& reader) {
    std::vector<AlignmentRecord> records;
    std::string line;
    readLineThroughEnd(reader, line);  // the header: two numbers, not used
    ListingState state;
    while (records.size() < maximumRecords && readLineThroughEnd(reader, line)) {
        LineResult result = readTableLine(line, state);
        if (result.endOfTable) break;
        if (result.record) records.push_back(*result.record);
    }
    return records;
}

// A clothoid takes the radius of the record that follows it.
void takeNextRadius(std::vector<AlignmentRecord>& records) {
    for (std::size_t i = 0; i + 1 < records.size(); ++i)
        if (records[i].parameter != 0) records[i].radius = records[i + 1].radius;
}

}  // namespace

Outcome importIstramListingAlignment(const std::string& entrada, const std::string& salida) {
    return importAlignment(entrada, salida, readListing, takeNextRadius);
}

}  // namespace quelcnv
