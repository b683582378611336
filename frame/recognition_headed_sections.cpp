// Telling and counting the cross-section formats whose sections start at a
// header of their own ("PK" lines of HTRAZADO and CartoMAP, CLIP TRV's
// "station , count") or stand in CLIP TER's fixed-column pairs of lines.
#include <algorithm>
#include <cstdint>

#include "common/fixed_columns.h"
#include "common/numbers.h"
#include "common/text_case.h"
#include "crosssection/cartomap_sections.h"
#include "frame/recognition_rules.h"

namespace quelcnv::recognition {

namespace {

// "PK: station", then "offset , elevation" lines.
bool isHtrazadoHeader(std::string_view text) {
    return text.starts_with("PK") && text.size() > 4 && scanNumber(text.substr(4)).length > 0;
}

bool isHtrazadoPoint(const SampledLine& line) {
    Row row = rowOf(line, blanksAndCommas);
    return row.allNumbers() && row.numbers.size() == 2 && line.text.find(',') != std::string::npos;
}

Certainty judgeHtrazado(const Sample& sample) {
    SectionCount sections;
    long points = 0;
    bool started = false;
    for (const SampledLine& line : sample.lines) {
        if (isHtrazadoHeader(line.text)) {
            if (started) sections.add(points > 0);
            started = true;
            points = 0;
        } else if (started && isHtrazadoPoint(line)) {
            ++points;
        } else if (!isBlankLine(line.text)) {
            sections.add(false);
        }
    }
    if (started) sections.add(points > 0);
    return sections.certainty();
}

// CLIP TER: a distance line (32 characters or more, a digit in columns 10
// to 18) and an elevation line of 100 characters or more, line break
// included, their fixed-column fields blank or numbers: the station, then
// ten points in these columns.
constexpr std::size_t shortestDistanceLine = 32;
constexpr std::size_t shortestElevationLine = 100;
constexpr int terColumns[] = {26, 46, 36, 56, 66, 76, 86, 96, 106, 116};

bool isDistanceLine(std::string_view text, std::size_t width) {
    if (width < shortestDistanceLine) return false;
    std::string_view columns = text.substr(9, 9);
    return std::any_of(columns.begin(), columns.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool isNumberField(std::string_view line, int column, int width) {
    std::string field = *midText(line, column, width);
    std::vector<std::string_view> words = leadingFields(field, blanks, 2);
    return words.empty() || (words.size() == 1 && isNumberText(words[0]));
}

// A pair whose station is a number, and whose point fields are blank or
// numbers but for one at most.
bool isTerPair(const SampledLine& distances, const SampledLine& elevations) {
    if (!isDistanceLine(distances.text, distances.width()) ||
        elevations.width() < shortestElevationLine || !isNumberField(distances.text, 12, 9))
        return false;
    long odd = 0;
    for (int column : terColumns) {
        odd += isNumberField(distances.text, column, 8) ? 0 : 1;
        odd += isNumberField(elevations.text, column, 8) ? 0 : 1;
    }
    return odd <= 1;
}

// Sure when the lines are named DIST and COTA; likely when the pairs make
// the file, a title apart.
Certainty judgeClipTer(const Sample& sample) {
    const std::vector<SampledLine>& lines = sample.lines;
    long pairs = 0, filled = 0;
    bool named = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!isBlankLine(lines[i].text)) ++filled;
        if (i + 1 == lines.size() || !isTerPair(lines[i], lines[i + 1])) continue;
        named = named && lines[i].text.starts_with("DIST") && lines[i + 1].text.starts_with("COTA");
        ++pairs;
        ++filled;
        ++i;
    }
    if (pairs == 0) return Certainty::none;
    if (named) return Certainty::certain;
    return pairs >= 2 && 2 * pairs + 2 >= filled ? Certainty::likely : Certainty::possible;
}

// CLIP TRV: "station , count" with that many "offset,elevation[,code]" lines.
std::optional<std::int32_t> trvHeader(std::string_view text) {
    ValueScanner scan(text);
    double station = 0.0;
    std::int32_t count = 0;
    if (!scan.number(station) || !scan.literal(',') || !scan.whole(count)) return std::nullopt;
    if (leadingFields(text, blanksAndCommas, 3).size() != 2) return std::nullopt;
    return count;
}

bool isTrvPoint(std::string_view text) {
    std::vector<std::string_view> fields = leadingFields(text, commas, 2);
    return fields.size() == 2 && isNumberText(fields[0]) && isNumberText(fields[1]);
}

Certainty judgeClipTrv(const Sample& sample) {
    const std::vector<SampledLine>& lines = sample.lines;
    if (!lines.empty() && lines.front().text.starts_with("*TRV")) return Certainty::certain;
    SectionCount sections;
    for (std::size_t i = 0; i < lines.size();) {
        std::optional<std::int32_t> count = trvHeader(lines[i++].text);
        if (!count) {
            if (!isBlankLine(lines[i - 1].text)) sections.add(false);
            continue;
        }
        bool whole = *count > 0;
        for (std::int32_t n = 0; n < *count && i < lines.size(); ++n, ++i)
            whole = whole && isTrvPoint(lines[i].text);
        sections.add(whole);
    }
    return sections.certainty();
}

// CartoMAP: "PK" headers between double quotes, or under a first line that
// holds "Distancia", kilometre+metre stations.
bool isPkHeader(const Row& row) {
    return row.fields.size() >= 2 && equalsIgnoringCase(row.fields[0], "\"PK\"") &&
           isNumberText(row.fields[1]);
}

bool isKilometreHeader(const Row& row) {
    if (row.fields.size() != 1) return false;
    std::string_view text = row.fields[0];
    std::size_t plus = text.find('+');
    return plus != std::string_view::npos && isWholeText(text.substr(0, plus)) &&
           isNumberText(text.substr(plus + 1));
}

Certainty judgeCartomap(const Sample& sample) {
    if (sample.lines.empty()) return Certainty::none;
    bool distances = sample.lines.front().text.find("Distancia") != std::string::npos;
    std::vector<Row> rows = dataRows(sample, blanksAndCommas);
    auto headers = std::count_if(rows.begin(), rows.end(), [distances](const Row& row) {
        return distances ? isKilometreHeader(row) : isPkHeader(row);
    });
    return headers > 0 ? Certainty::certain : Certainty::none;
}

// HTRAZADO: every line that is no "PK" line writes a point.
void countHtrazado(const std::string& path, FileSummary& summary) {
    Tally tally;
    double station = 0.0, offset = 0.0, elevation = 0.0;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (line.last) return tally.lose(line.number);
        if (line.text.starts_with("PK")) {
            if (line.text.size() > 4) ValueScanner(line.text.substr(4)).number(station);
            return;
        }
        // A line without a pair writes the last pair again.
        ValueScanner scan(line.text);
        if (scan.number(offset) && scan.literal(',')) scan.number(elevation);
        countPoint(tally, station, offset, elevation);
    });
    tally.finish(summary);
}

// CLIP TER: a distance line and the elevation line after it give the
// point at the axis (when its elevation is not 0) and the ten column points
// that are not empty.
double numberAt(std::string_view line, int column, int width) {
    return parseNumber(*midText(line, column, width));
}

void countTerSection(std::string_view distances, std::string_view elevations, Tally& tally) {
    double station = numberAt(distances, 12, 9);
    double axis = numberAt(elevations, 13, 8);
    if (axis != 0.0) countPoint(tally, station, 0.0, axis);
    for (int column : terColumns) {
        double offset = numberAt(distances, column, 8), elevation = numberAt(elevations, column, 8);
        if (offset != 0.0 || elevation != 0.0) countPoint(tally, station, offset, elevation);
    }
}

void countClipTer(const std::string& path, FileSummary& summary) {
    Tally tally;
    std::optional<std::string> distances;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (distances) {
            if (line.text.size() >= shortestElevationLine)
                countTerSection(*distances, line.text, tally);
            distances.reset();
            return;
        }
        if (!line.last && isDistanceLine(line.text, line.text.size())) distances = line.text;
    });
    tally.finish(summary);
}

// CLIP TRV, as its importer reads: the "*TRV" header and the line after it,
// then headers each followed by its point lines; a point repeating the
// offset before it is dropped.
struct TrvState {
    long sections = 0;
    bool skipNext = false, ended = false;
    std::int32_t missing = 0;
    double station = 0.0, offset = 0.0;
};

void countTrvPoint(const WalkedLine& line, TrvState& state, Tally& tally) {
    --state.missing;
    if (line.last) {
        state.ended = true;
        return tally.lose(line.number);
    }
    std::vector<std::string_view> fields = leadingFields(line.text, ",", 2);
    if (fields.size() < 2) return tally.skip(line.number);
    double offset = parseNumber(fields[0]);
    if (offset != state.offset) countPoint(tally, state.station, offset, parseNumber(fields[1]));
    state.offset = offset;
}

void countTrvLine(const WalkedLine& line, TrvState& state, Tally& tally) {
    if (state.ended) return;
    if (state.skipNext) {
        state.skipNext = false;
        return;
    }
    if (state.missing > 0) return countTrvPoint(line, state, tally);
    if (line.text.empty()) return;
    if (state.sections == 0 && line.text.front() == '*') {
        state.skipNext = line.text.starts_with("*TRV");
        state.ended = !state.skipNext;  // a foreign header: the import fails
        return;
    }
    ++state.sections;
    ValueScanner scan(line.text);
    if (scan.number(state.station) && scan.literal(',')) scan.whole(state.missing);
    state.offset = -100000000.0;
}

void countClipTrv(const std::string& path, FileSummary& summary) {
    Tally tally;
    TrvState state;
    walkFile(path, summary, [&](const WalkedLine& line) { countTrvLine(line, state, tally); });
    tally.finish(summary);
}

// CartoMAP, in the layout its first line chooses.
constexpr Separators cartomapSeparators = " ,\t\r\n";

struct CartomapState {
    bool distances = false, inSection = false;
    double station = 0.0;
};

// A header of the distance layout: a kilometre+metre station, or before
// the first section any line that does not start with "P"; of the station
// layout: "PK" between double quotes and the station, not after a blank.
bool isCartomapHeader(std::string_view line, std::span<const std::string_view> fields,
                      const CartomapState& state) {
    if (state.distances) {
        bool title = line.front() == 'P' || line.front() == 'p';
        return fields[0].find('+') != std::string_view::npos || (!state.inSection && !title);
    }
    return equalsIgnoringCase(fields[0], "\"PK\"") && fields.size() > 1 && line.front() != ' ';
}

void countCartomapLine(const WalkedLine& line, CartomapState& state, Tally& tally) {
    if (line.number == 1) state.distances = line.text.find("Distancia") != std::string::npos;
    std::vector<std::string_view> f = leadingFields(line.text, cartomapSeparators, 5);
    if (f.empty()) return;
    if (line.last) return tally.lose(line.number);
    if (isCartomapHeader(line.text, f, state)) {
        state.station = state.distances ? cartomapStation(f[0]) : parseNumber(f[1]);
        state.inSection = true;
        return;
    }
    if (!state.inSection) return;
    // Offset and elevation; in the distance layout, offset, two fields not
    // used, elevation and code.
    if (f.size() < (state.distances ? 5u : 2u)) return tally.skip(line.number);
    countPoint(tally, state.station, parseNumber(f[0]), parseNumber(f[state.distances ? 3 : 1]));
}

void countCartomap(const std::string& path, FileSummary& summary) {
    Tally tally;
    CartomapState state;
    walkFile(path, summary, [&](const WalkedLine& line) { countCartomapLine(line, state, tally); });
    tally.finish(summary);
}

constexpr FormatRule rules[] = {
    {FileFormat::clipTrvSections, "trv", judgeClipTrv, countClipTrv},
    {FileFormat::cartomapSections, "txt cartomap", judgeCartomap, countCartomap},
    {FileFormat::htrazadoSections, "htrazado htr", judgeHtrazado, countHtrazado},
    {FileFormat::clipTerSections, "ter", judgeClipTer, countClipTer},
};

}  // namespace

std::span<const FormatRule> headedSectionRules() { return rules; }

}  // namespace quelcnv::recognition
