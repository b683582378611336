// Telling and counting the alignment formats: one key point (or element) a
// line, in the RUXO, NEVO, ISTRAM, ISPOL, HTRAZADO and CLIP PLT spellings.
#include <algorithm>
#include <array>

#include "common/fixed_columns.h"
#include "common/numbers.h"
#include "common/text_case.h"
#include "frame/recognition_rules.h"

namespace quelcnv::recognition {

namespace {

constexpr std::size_t keyPointFields = 6;
constexpr double fullCircle = 400.0;  // grads

bool isKeyPointRow(const Row& row) {
    return row.allNumbers() && row.numbers.size() == keyPointFields;
}

std::vector<Row> keyPointRows(std::span<const Row> rows) {
    std::vector<Row> fit;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(fit), isKeyPointRow);
    return fit;
}

// Key points whose stations never go down and whose azimuths (the fourth
// number in every spelling) lie within a circle.
bool keyPointsFit(std::span<const Row> rows) {
    return nonDecreasing(rows, 0) && std::all_of(rows.begin(), rows.end(), [](const Row& row) {
               return row.numbers[3] >= 0.0 && row.numbers[3] <= fullCircle;
           });
}

Certainty keyPointShape(std::span<const Row> rows) {
    std::vector<Row> fit = keyPointRows(rows);
    return byShare(fit.size(), rows.size(),
                   keyPointsFit(fit) ? Certainty::likely : Certainty::possible);
}

bool isTwoNumbers(const Row& row) { return row.allNumbers() && row.numbers.size() == 2; }

bool hasLineStarting(const Sample& sample, char c) {
    return std::any_of(sample.lines.begin(), sample.lines.end(), [c](const SampledLine& line) {
        return !line.text.empty() && line.text.front() == c;
    });
}

// Six numbers a line, blanks or tabs between them; "*" comments, which the
// intersection-point writer passes over, but no "#" ones.
Certainty judgeRuxo(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanks);
    Certainty shape = keyPointShape(rows);
    if (shape == Certainty::none) return shape;
    bool plain =
        !sampleHas(sample, ',') && !hasLineStarting(sample, '#') && isKeyPointRow(rows.front());
    return plain ? shape : Certainty::possible;
}

// A first line of two numbers, then six numbers a line.
Certainty judgeHtrazado(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanksAndCommas);
    if (rows.size() < 2 || !isTwoNumbers(rows.front())) return Certainty::none;
    return keyPointShape(std::span<const Row>(rows).subspan(1));
}

// Six numbers a line separated by commas (or "#" comments, which the RUXO
// reader does not know).
Certainty judgeClipPlt(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanksAndCommas);
    Certainty shape = keyPointShape(rows);
    if (shape == Certainty::none) return shape;
    bool own =
        (sampleHas(sample, ',') || hasLineStarting(sample, '#')) && !isTwoNumbers(rows.front());
    return own ? shape : Certainty::possible;
}

bool isNevoElementWord(std::string_view word) {
    return word == "STRAIGHT" || word == "SPIRAL" || word == "ARC" || word == "PT";
}

// START, then element or intersection-point lines.
Certainty judgeNevo(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanksAndCommas);
    if (rows.empty() || rows.front().fields.front() != "START") return Certainty::none;
    bool elements = std::any_of(rows.begin(), rows.end(), [](const Row& row) {
        return isNevoElementWord(row.fields.front());
    });
    return elements ? Certainty::certain : Certainty::likely;
}

// ISTRAM's fixed columns: the element word in columns 4-8 or 7-11 of a line
// of 100 characters or more.
constexpr std::size_t istramTableWidth = 100;
constexpr int istramStationColumn = 23;
constexpr int istramNumberWidth = 12;

bool isIstramWordAt(std::string_view line, int column) {
    std::string word = *midText(line, column, 5);
    return word == "RECTA" || word == "CIRC." || word == "CLOT.";
}

bool isIstramElementLine(std::string_view text) {
    return text.size() >= istramTableWidth && (isIstramWordAt(text, 4) || isIstramWordAt(text, 7));
}

Certainty bySightings(std::size_t count) {
    if (count == 0) return Certainty::none;
    return count == 1 ? Certainty::likely : Certainty::certain;
}

Certainty judgeIstram(const Sample& sample) {
    return bySightings(
        std::count_if(sample.lines.begin(), sample.lines.end(),
                      [](const SampledLine& l) { return isIstramElementLine(l.text); }));
}

bool isListingWord(std::string_view word) {
    return equalsIgnoringCase(word, "RECTA") || equalsIgnoringCase(word, "CIRC.") ||
           equalsIgnoringCase(word, "CLOT.");
}

// The free-format listing: element number, element word, then numbers, on
// lines narrower than ISTRAM's fixed columns; a header of two numbers first.
Certainty judgeIstramListing(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanks);
    std::size_t elements = std::count_if(rows.begin(), rows.end(), [](const Row& row) {
        return row.line->text.size() < istramTableWidth && row.fields.size() >= 6 &&
               isWholeText(row.fields[0]) && isListingWord(row.fields[1]);
    });
    if (elements < 2) return elements == 1 ? Certainty::possible : Certainty::none;
    return isTwoNumbers(rows.front()) ? Certainty::certain : Certainty::likely;
}

constexpr std::size_t ispolElementFields = 8;

// Code 1 to 7, length, x, y, two fields not used, azimuth, radius or parameter.
bool isIspolElement(const Row& row) {
    return row.fields.size() >= ispolElementFields && row.numbers.size() >= 4 &&
           isWholeText(row.fields[0]) && row.numbers[0] >= 1 && row.numbers[0] <= 7 &&
           isNumberText(row.fields[6]) && isNumberText(row.fields[7]);
}

// The start station alone on a line, then one element a line with its code.
Certainty judgeIspol(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanks);
    if (rows.size() < 2 || rows.front().fields.size() != 1 || !rows.front().allNumbers())
        return Certainty::none;
    auto end = std::find_if_not(rows.begin() + 1, rows.end(), isIspolElement);
    return bySightings(static_cast<std::size_t>(end - (rows.begin() + 1)));
}

// Counting, by each importer's reading rules.

using KeyPoint = std::array<double, keyPointFields>;

// The first six fields of a line read as numbers; nothing when one is missing.
std::optional<KeyPoint> keyPointOf(std::string_view line, const Separators& separators) {
    Tokenizer tokens(line);
    return nextNumbers<keyPointFields>(tokens, separators);
}

void countKeyPoint(Tally& tally, std::span<const double> values) {
    tally.item();
    tally.station(values[0]);
    tally.values(values);
}

bool isCommentOf(std::string_view line, std::string_view marks) {
    return !line.empty() && marks.find(line.front()) != std::string_view::npos;
}

// The RUXO reader: six fields a line; empty lines and "*" comments skipped;
// a last line without a line break ignored.
void countRuxo(const std::string& path, FileSummary& summary) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (isBlankLine(line.text) || isCommentOf(line.text, "*")) return;
        if (line.last) return tally.lose(line.number);
        std::optional<KeyPoint> values = keyPointOf(line.text, blanks);
        if (!values) return tally.skip(line.number);
        countKeyPoint(tally, *values);
    });
    tally.finish(summary);
}

// The key points of a CLIP PLT file: lines of ten characters or more (line
// break included) that are no comment, six fields.
void countClipPlt(const std::string& path, FileSummary& summary) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (isBlankLine(line.text) || isCommentOf(line.text, "*#")) return;
        std::optional<KeyPoint> values;
        if (line.text.size() >= 10) values = keyPointOf(line.text, blanksAndCommas);
        if (!values) return tally.skip(line.number);
        countKeyPoint(tally, *values);
    });
    tally.finish(summary);
}

// HTRAZADO: the first line, then the key points it reads (and this version
// does not convert).
void countHtrazado(const std::string& path, FileSummary& summary) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (line.number == 1 || isBlankLine(line.text)) return;
        std::optional<KeyPoint> values;
        if (line.text.size() >= 10 && line.text[2] != 'N')
            values = keyPointOf(line.text, blanksAndCommas);
        if (!values) return tally.skip(line.number);
        countKeyPoint(tally, *values);
    });
    tally.finish(summary);
}

// START with the first station, then one element a line; the stations of
// the element form run on by each element's length.
void countNevo(const std::string& path, FileSummary& summary) {
    Tally tally;
    double station = 0.0;
    walkFile(path, summary, [&](const WalkedLine& line) {
        std::vector<std::string_view> fields = leadingFields(line.text, blanksAndCommas, 3);
        if (fields.empty()) return;
        if (fields[0] == "START" && fields.size() > 1) {
            station = parseNumber(fields[1]);
            return tally.station(station);
        }
        if (!isNevoElementWord(fields[0])) return tally.skip(line.number);
        tally.item();
        if (fields[0] != "PT" && fields.size() == 3)
            tally.station(station += parseNumber(fields[2]));
    });
    tally.finish(summary);
}

// The table lines of the fixed-column file, the closing point with them.
void countIstram(const std::string& path, FileSummary& summary) {
    Tally tally;
    bool inTable = false;
    walkFile(path, summary, [&](const WalkedLine& line) {
        std::string_view text = withoutLineBreak(line.text);
        inTable = text.size() >= istramTableWidth && (inTable || isIstramElementLine(text));
        if (!inTable) return;
        tally.item();
        double station = parseNumber(*midText(text, istramStationColumn, istramNumberWidth));
        tally.station(station);
        tally.value(station);
    });
    tally.finish(summary);
}

struct ListingState {
    bool firstSeen = false, begun = false, ended = false;
};

// A line of the listing table: the straights are read, the arcs and
// clothoids skipped (the importer brings over the straights alone).
void countListingLine(const WalkedLine& line, ListingState& state, Tally& tally) {
    if (line.number == 1 || line.text.size() < 10 || line.text[2] == 'N') return;
    Tokenizer tokens(line.text);
    std::optional<std::string_view> word = tokens.next(blanks);
    if (!state.firstSeen && (!word || parseWhole(*word) != 1)) return;
    state.firstSeen = true;
    if (!word || !isListingWord(*word)) word = tokens.next(blanks);
    if (!word || !isListingWord(*word)) {
        state.ended = state.begun;
        return;
    }
    state.begun = true;
    if (!equalsIgnoringCase(*word, "RECTA")) return tally.skip(line.number);
    tokens.next(blanks);                           // a field not used
    auto values = nextNumbers<4>(tokens, blanks);  // station, x, y, azimuth
    if (!values) return tally.skip(line.number);
    countKeyPoint(tally, *values);
}

void countIstramListing(const std::string& path, FileSummary& summary) {
    constexpr long maximumKeyPoints = 500;
    Tally tally;
    ListingState state;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (!state.ended && tally.items() < maximumKeyPoints) countListingLine(line, state, tally);
    });
    tally.finish(summary);
}

std::optional<std::array<double, ispolElementFields>> ispolElement(std::string_view line) {
    Tokenizer tokens(line);
    return nextNumbers<ispolElementFields>(tokens, blanks);
}

enum class IspolPhase { startStation, firstElement, elements, ended };

// The start station, then elements until a comment or an incomplete line;
// the lines after that are not read.
void countIspolLine(const WalkedLine& line, IspolPhase& phase, double& station, Tally& tally) {
    bool comment = isCommentLine(line.text);
    if (phase == IspolPhase::ended) {
        if (!comment && !isBlankLine(line.text)) tally.skip(line.number);
        return;
    }
    if (comment && phase != IspolPhase::elements) return;
    if (phase == IspolPhase::startStation) {
        station = parseNumber(line.text);
        phase = IspolPhase::firstElement;
        return;
    }
    auto element = comment ? std::nullopt : ispolElement(line.text);
    if (!element) {
        phase = IspolPhase::ended;
        if (!comment) tally.skip(line.number);
        return;
    }
    phase = IspolPhase::elements;
    countKeyPoint(tally, std::array<double, 2>{station, (*element)[1]});
    station += (*element)[1];
}

void countIspol(const std::string& path, FileSummary& summary) {
    Tally tally;
    IspolPhase phase = IspolPhase::startStation;
    double station = 0.0;
    walkFile(path, summary,
             [&](const WalkedLine& line) { countIspolLine(line, phase, station, tally); });
    tally.finish(summary);
}

constexpr FormatRule rules[] = {
    {FileFormat::nevoAlignment, "nev nevo eje", judgeNevo, countNevo},
    {FileFormat::istramAlignment, "istram txt", judgeIstram, countIstram},
    {FileFormat::istramListing, "lis", judgeIstramListing, countIstramListing},
    {FileFormat::ispolAlignment, "ispol", judgeIspol, countIspol},
    {FileFormat::htrazadoAlignment, "htr htrazado", judgeHtrazado, countHtrazado},
    {FileFormat::ruxoAlignment, "ruxo eje", judgeRuxo, countRuxo},
    {FileFormat::clipPltAlignment, "plt", judgeClipPlt, countClipPlt},
};

}  // namespace

std::span<const FormatRule> alignmentRules() { return rules; }

}  // namespace quelcnv::recognition
