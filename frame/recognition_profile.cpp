// Telling and counting the profile and superelevation formats. Both are
// tables of numbers by station; a profile's second column is an elevation
// and its curve lengths never go below zero, while superelevation gives two
// small cross-falls of either sign.
#include <algorithm>
#include <cmath>

#include "common/numbers.h"
#include "frame/recognition_rules.h"

namespace quelcnv::recognition {

namespace {

// Cross-falls, in percent, stay below this.
constexpr double largestCrossFall = 20.0;

std::vector<Row> rowsOfNumbers(std::span<const Row> rows, std::size_t count) {
    std::vector<Row> fit;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(fit), [count](const Row& row) {
        return row.allNumbers() && row.numbers.size() == count;
    });
    return fit;
}

bool columnsAtLeastZero(std::span<const Row> rows, std::size_t from) {
    return std::all_of(rows.begin(), rows.end(), [from](const Row& row) {
        return std::all_of(row.numbers.begin() + static_cast<std::ptrdiff_t>(from),
                           row.numbers.end(), [](double n) { return n >= 0.0; });
    });
}

bool looksLikeCrossFalls(std::span<const Row> rows, std::size_t from) {
    return std::all_of(rows.begin(), rows.end(), [from](const Row& row) {
        return std::all_of(row.numbers.begin() + static_cast<std::ptrdiff_t>(from),
                           row.numbers.end(),
                           [](double n) { return std::fabs(n) <= largestCrossFall; });
    });
}

// Stations that rise from row to row, one repeated now and then at most
// (cross sections repeat theirs at every point).
bool risingStations(std::span<const Row> rows, std::size_t column) {
    return nonDecreasing(rows, column) && repeatedStations(rows, column) * 10 <= rows.size();
}

// Whether every row is printed as "%N.3lf" fields of these widths, one
// blank apart, as the writers print them: each field's decimal point four
// characters before its end.
bool hasWidths(std::span<const Row> rows, std::span<const std::size_t> widths) {
    return std::all_of(rows.begin(), rows.end(), [widths](const Row& row) {
        std::string_view text = row.line->text;
        std::size_t end = 0;
        for (std::size_t width : widths) {
            bool first = end == 0;
            end += (first ? 0 : 1) + width;
            if (end > text.size() || text[end - 4] != '.') return false;
            if (!first && text[end - width - 1] != ' ') return false;
        }
        return end == text.size();
    });
}

// Five numbers a line: station, elevation, kv, tangent, external.
Certainty judgeVelm(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanks);
    std::vector<Row> fit = rowsOfNumbers(rows, 5);
    bool values = risingStations(fit, 0) && columnsAtLeastZero(fit, 2);
    return byShare(fit.size(), rows.size(), values ? Certainty::likely : Certainty::possible);
}

// Three numbers a line: station, elevation, curve length; fixed widths
// when the LandXML profile reader wrote them.
Certainty judgeCurveLengths(const Sample& sample) {
    if (sampleHas(sample, ',')) return Certainty::none;
    std::vector<Row> rows = dataRows(sample, blanks);
    std::vector<Row> fit = rowsOfNumbers(rows, 3);
    if (fit.empty() || !risingStations(fit, 0) || !columnsAtLeastZero(fit, 2))
        return byShare(fit.size(), rows.size(), Certainty::possible);
    constexpr std::size_t widths[] = {10, 8, 9};
    if (hasWidths(fit, widths)) return byShare(fit.size(), rows.size(), Certainty::certain);
    bool profile = !looksLikeCrossFalls(fit, 1) && fit.front().numbers[2] == 0.0;
    return byShare(fit.size(), rows.size(), profile ? Certainty::likely : Certainty::possible);
}

// Three numbers a line: station and two cross-falls.
Certainty judgeClipSuperelevation(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanks);
    std::vector<Row> fit = rowsOfNumbers(rows, 3);
    if (fit.empty() || !risingStations(fit, 0))
        return byShare(fit.size(), rows.size(), Certainty::possible);
    bool falls = looksLikeCrossFalls(fit, 1) || !columnsAtLeastZero(fit, 2);
    return byShare(fit.size(), rows.size(), falls ? Certainty::likely : Certainty::possible);
}

// What both superelevation converters write: "%8.3lf %6.3lf %6.3lf".
Certainty judgeSuperelevationOutput(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanks);
    std::vector<Row> fit = rowsOfNumbers(rows, 3);
    constexpr std::size_t widths[] = {8, 6, 6};
    if (fit.size() != rows.size() || !hasWidths(fit, widths)) return Certainty::none;
    return byShare(fit.size(), rows.size(), Certainty::certain);
}

// A title line, then a number, the station and two or three cross-falls.
Certainty judgeIspolSuperelevation(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanks);
    if (!rows.empty() && rows.front().line == &sample.lines.front()) rows.erase(rows.begin());
    std::vector<Row> fit;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(fit), [](const Row& row) {
        return row.allNumbers() && row.numbers.size() >= 4 && row.numbers.size() <= 5 &&
               isWholeText(row.fields[0]);
    });
    if (fit.empty() || !risingStations(fit, 1) || !looksLikeCrossFalls(fit, 2))
        return byShare(fit.size(), rows.size(), Certainty::possible);
    bool numbered = true;
    for (std::size_t i = 1; i < fit.size(); ++i)
        numbered = numbered && fit[i].numbers[0] == fit[i - 1].numbers[0] + 1;
    return byShare(fit.size(), rows.size(), numbered ? Certainty::certain : Certainty::likely);
}

// Station, elevation and curve length separated by commas, as RUXO writes
// them; with a blank after each comma, as the NEVO profile writer does.
Certainty judgeCommaProfile(const Sample& sample, bool blankAfterComma) {
    if (!sampleHas(sample, ',') || sampleHas(sample, '\t')) return Certainty::none;
    std::vector<Row> rows = dataRows(sample, blanksAndCommas);
    std::vector<Row> fit = rowsOfNumbers(rows, 3);
    if (sampleHas(sample, ' ') != blankAfterComma) return Certainty::none;
    bool values = risingStations(fit, 0) && columnsAtLeastZero(fit, 2);
    return byShare(fit.size(), rows.size(), values ? Certainty::likely : Certainty::possible);
}

Certainty judgeRuxoProfile(const Sample& sample) { return judgeCommaProfile(sample, false); }
Certainty judgeNevoProfile(const Sample& sample) { return judgeCommaProfile(sample, true); }

bool isCartomapKeyword(std::string_view word) {
    return word == "INICIO" || word == "VERTICE" || word == "FINAL";
}

Certainty judgeCartomap(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanks);
    auto vertices = std::count_if(rows.begin(), rows.end(), [](const Row& row) {
        return row.fields.size() >= 4 && isCartomapKeyword(row.fields[0]) &&
               isNumberText(row.fields[1]) && isNumberText(row.fields[2]);
    });
    if (vertices == 0) return Certainty::none;
    return vertices == 1 ? Certainty::likely : Certainty::certain;
}

// The vertex listings of ISTRAM and ISPOL: eight fields a line, the
// station, the elevation and, in the seventh, a grade in percent: that of
// the straight leaving the vertex in ISTRAM's, arriving at it in ISPOL's.
constexpr std::size_t listingFields = 8;
constexpr std::size_t gradeField = 6;

std::vector<Row> listingRows(const Sample& sample, std::size_t& data) {
    std::vector<Row> rows = dataRows(sample, blanks);
    data = rows.size();
    std::erase_if(rows, [](const Row& row) {
        return row.fields.size() < listingFields || row.numbers.size() < 2 ||
               !isNumberText(row.fields[gradeField]) || !isNumberText(row.fields[7]);
    });
    return rows;
}

double gradeOn(const Row& row) { return parseNumber(row.fields[gradeField]); }

bool sameGrade(double listed, double computed) {
    return std::fabs(listed - computed) <= 0.01 + std::fabs(computed) * 0.001;
}

// How many of the listed grades are those leaving the vertex, and how many
// those arriving at it, as the stations and elevations give them.
struct GradeEvidence {
    std::size_t leaving = 0, arriving = 0;
};

GradeEvidence gradeEvidence(std::span<const Row> rows) {
    GradeEvidence evidence;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        double run = rows[i].numbers[0] - rows[i - 1].numbers[0];
        if (run == 0.0) continue;
        double grade = (rows[i].numbers[1] - rows[i - 1].numbers[1]) / run * 100.0;
        if (sameGrade(gradeOn(rows[i - 1]), grade)) ++evidence.leaving;
        if (sameGrade(gradeOn(rows[i]), grade)) ++evidence.arriving;
    }
    return evidence;
}

// When the grades tell nothing: ISPOL's first vertex has no arriving grade
// and ISTRAM's last no leaving one.
bool endsSayLeaving(std::span<const Row> rows) {
    return gradeOn(rows.back()) == 0.0 && gradeOn(rows.front()) != 0.0;
}

Certainty judgeListing(const Sample& sample, bool leaving) {
    std::size_t data = 0;
    std::vector<Row> rows = listingRows(sample, data);
    if (byShare(rows.size(), data, Certainty::likely) == Certainty::none) return Certainty::none;
    GradeEvidence evidence = gradeEvidence(rows);
    std::size_t mine = leaving ? evidence.leaving : evidence.arriving;
    std::size_t other = leaving ? evidence.arriving : evidence.leaving;
    Certainty fits = mine + 1 == rows.size() ? Certainty::certain : Certainty::likely;
    if (mine != other) return mine > other ? byShare(rows.size(), data, fits) : Certainty::possible;
    bool ends = endsSayLeaving(rows) == leaving;
    return byShare(rows.size(), data, ends ? Certainty::likely : Certainty::possible);
}

Certainty judgeIstramListing(const Sample& sample) { return judgeListing(sample, true); }
Certainty judgeIspolListing(const Sample& sample) { return judgeListing(sample, false); }

// Counting, by each reader's rules.

void countVertex(Tally& tally, double station, double elevation) {
    tally.item();
    tally.station(station);
    tally.values(std::array<double, 2>{station, elevation});
}

// A vertex on every line with at least `fields` fields; empty lines and
// comments skipped; a last line without a line break lost.
void countVertexLines(const std::string& path, FileSummary& summary, std::size_t fields) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (isBlankLine(line.text) || isCommentLine(line.text)) return;
        if (line.last) return tally.lose(line.number);
        std::vector<std::string_view> found = leadingFields(line.text, blanks, fields);
        if (found.size() < fields) return tally.skip(line.number);
        countVertex(tally, parseNumber(found[0]), parseNumber(found[1]));
    });
    tally.finish(summary);
}

void countVelm(const std::string& path, FileSummary& summary) {
    countVertexLines(path, summary, 5);
}
void countCurveLengths(const std::string& path, FileSummary& summary) {
    countVertexLines(path, summary, 3);
}
void countIstramListing(const std::string& path, FileSummary& summary) {
    countVertexLines(path, summary, listingFields);
}

enum class BlockPhase { header, vertices, ended };

// The ISPOL listing: the header, then vertices up to a comment line or a
// line of fewer than eight fields; the lines after that are not read.
void countIspolListingLine(const WalkedLine& line, BlockPhase& phase, Tally& tally) {
    bool comment = isCommentLine(line.text);
    if (phase == BlockPhase::header && comment) return;
    if (phase == BlockPhase::ended || comment) {
        if (phase == BlockPhase::ended && !comment && !isBlankLine(line.text))
            tally.skip(line.number);
        phase = BlockPhase::ended;
        return;
    }
    phase = BlockPhase::vertices;
    if (line.last) return tally.lose(line.number);
    std::vector<std::string_view> found = leadingFields(line.text, blanks, listingFields);
    if (found.size() < listingFields) {
        phase = BlockPhase::ended;
        return tally.skip(line.number);
    }
    countVertex(tally, parseNumber(found[0]), parseNumber(found[1]));
}

void countIspolListing(const std::string& path, FileSummary& summary) {
    Tally tally;
    BlockPhase phase = BlockPhase::header;
    walkFile(path, summary,
             [&](const WalkedLine& line) { countIspolListingLine(line, phase, tally); });
    tally.finish(summary);
}

// Station, elevation and curve length split at commas; every line read.
void countCommaProfile(const std::string& path, FileSummary& summary) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (isBlankLine(line.text)) return;
        std::vector<std::string_view> found = leadingFields(line.text, ",", 3);
        if (found.size() < 3) return tally.skip(line.number);
        countVertex(tally, parseNumber(found[0]), parseNumber(found[1]));
    });
    tally.finish(summary);
}

// CartoMAP: a keyword and three numbers on lines of ten characters or more.
void countCartomap(const std::string& path, FileSummary& summary) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        std::vector<std::string_view> words = leadingFields(line.text, blanks, 4);
        if (line.text.size() < 10 || words.size() < 4 || !isCartomapKeyword(words[0])) return;
        if (line.last) return tally.lose(line.number);
        countVertex(tally, parseNumber(words[1]), parseNumber(words[2]));
    });
    tally.finish(summary);
}

// Superelevation rows: three fields or more; every line read, the title of
// ISPOL's listing and its comments apart.
void countRows(const std::string& path, FileSummary& summary, bool titled) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if ((titled && (line.number == 1 || isCommentLine(line.text))) || isBlankLine(line.text))
            return;
        std::vector<std::string_view> found = leadingFields(line.text, blanks, 5);
        if (found.size() < 3) return tally.skip(line.number);
        double station = parseNumber(found[titled ? 1 : 0]);
        tally.item();
        tally.station(station);
        for (std::string_view field : found) tally.value(parseNumber(field));
    });
    tally.finish(summary);
}

void countIspolSuperelevation(const std::string& path, FileSummary& summary) {
    countRows(path, summary, true);
}
void countClipSuperelevation(const std::string& path, FileSummary& summary) {
    countRows(path, summary, false);
}

constexpr FormatRule rules[] = {
    {FileFormat::cartomapProfile, "cartomap txt", judgeCartomap, countCartomap},
    {FileFormat::istramProfile, "istram txt", judgeIstramListing, countIstramListing},
    {FileFormat::ispolProfile, "ispol txt", judgeIspolListing, countIspolListing},
    {FileFormat::velmProfile, "velm tab", judgeVelm, countVelm},
    {FileFormat::superelevationOutput, "out txt", judgeSuperelevationOutput,
     countClipSuperelevation},
    {FileFormat::ispolSuperelevation, "ispol", judgeIspolSuperelevation, countIspolSuperelevation},
    {FileFormat::clipSuperelevation, "clip", judgeClipSuperelevation, countClipSuperelevation},
    {FileFormat::curveLengthProfile, "txt", judgeCurveLengths, countCurveLengths},
    {FileFormat::ruxoProfile, "ruxo", judgeRuxoProfile, countCommaProfile},
    {FileFormat::nevoProfile, "nev nevo", judgeNevoProfile, countCommaProfile},
};

}  // namespace

std::span<const FormatRule> profileRules() { return rules; }

}  // namespace quelcnv::recognition
