// Telling and counting the cross-section formats of numbers alone: one point
// a line with its station repeated through each section (RUXO, NEVO,
// comma-separated), or sections of pairs of numbers after a header
// (ISTRAM/ISPOL, MXROAD).
#include <algorithm>
#include <cstdint>

#include "common/numbers.h"
#include "crosssection/ruxo_sections.h"
#include "frame/recognition_rules.h"

namespace quelcnv::recognition {

namespace {

// Three numbers, then at most a code, with most stations repeated from the
// line before: points grouped in sections, not a list of points.
Certainty pointsInSections(std::span<const Row> rows) {
    std::vector<Row> fit;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(fit),
                 [](const Row& row) { return row.numbers.size() >= 3 && row.fields.size() <= 4; });
    bool grouped = repeatedStations(fit, 0) * 2 >= fit.size();
    return byShare(fit.size(), rows.size(), grouped ? Certainty::likely : Certainty::possible);
}

Certainty judgeRuxo(const Sample& sample) {
    if (sampleHas(sample, ',')) return Certainty::none;
    return pointsInSections(dataRows(sample, blanks));
}

Certainty judgeComma(const Sample& sample) {
    if (!sampleHas(sample, ',')) return Certainty::none;
    return pointsInSections(dataRows(sample, commas));
}

// What ruxo2nevo writes: three decimals, commas and no blank.
bool isNevoSpelling(const Row& row) {
    bool fixed = std::all_of(row.fields.begin(), row.fields.begin() + 3, [](std::string_view f) {
        return f.size() > 4 && f[f.size() - 4] == '.';
    });
    return fixed && row.line->text.find_first_of(" \t") == std::string::npos;
}

Certainty judgeNevo(const Sample& sample) {
    Certainty shape = judgeComma(sample);
    std::vector<Row> rows = dataRows(sample, commas);
    bool spelled = std::all_of(rows.begin(), rows.end(), [](const Row& r) {
        return r.numbers.size() >= 3 && isNevoSpelling(r);
    });
    return spelled ? shape : Certainty::none;
}

// The lines of the sample from one on, as fields split at blanks.
struct Lines {
    const Sample& sample;
    std::size_t next = 0;

    std::optional<Row> take(const Separators& separators) {
        if (next >= sample.lines.size()) return std::nullopt;
        return rowOf(sample.lines[next++], separators);
    }
};

bool cutBySample(const Lines& lines) {
    return !lines.sample.whole && lines.next >= lines.sample.lines.size();
}

bool isPairsLine(const Row& row) { return row.allNumbers() && !row.numbers.empty(); }

// A count read as a number, kept within what a sample could ever hold.
long countOf(double value) {
    return value <= 0.0
               ? 0
               : static_cast<long>(std::min(value, static_cast<double>(sampledLines) * 1000.0));
}

// Reads lines of pairs until `wanted` pairs are read (a lone number at the
// end of a line is no pair); false when a line holds anything but numbers.
bool takePairs(Lines& lines, long wanted) {
    while (wanted > 0) {
        std::optional<Row> row = lines.take(blanks);
        if (!row || !isPairsLine(*row)) return false;
        wanted -= static_cast<long>(row->numbers.size() / 2);
    }
    return true;
}

// Section record (six numbers or more, the first 4), a line of five whole
// numbers (the last two the left and right counts), then that many pairs.
// Negative counts still make the shape, which the importer then refuses.
bool istramSection(Lines& lines) {
    std::optional<Row> counts = lines.take(blanks);
    if (!counts || counts->numbers.size() < 5 || counts->fields.size() != 5) return false;
    if (!std::all_of(counts->fields.begin(), counts->fields.end(), isWholeText)) return false;
    if (counts->numbers[3] < 0 || counts->numbers[4] < 0) return true;
    return takePairs(lines, countOf(counts->numbers[3]) + countOf(counts->numbers[4]));
}

bool isIstramRecord(const Row& row) { return row.numbers.size() >= 6 && row.fields[0] == "4"; }

Certainty judgeIstram(const Sample& sample) {
    Lines lines{sample};
    SectionCount sections;
    while (std::optional<Row> row = lines.take(blanks)) {
        if (!isIstramRecord(*row)) continue;
        // The importer takes a last section that the end of the file cuts.
        sections.add(istramSection(lines) || lines.next >= sample.lines.size());
    }
    return sections.certainty();
}

// An MXROAD header: longer than 17 characters with its line break, a
// station and a whole count above zero, then words if anything. Other lines
// between sections are passed over.
bool isMxroadHeader(const Row& row) {
    return row.line->width() > 17 && row.numbers.size() == 2 && isWholeText(row.fields[1]) &&
           row.numbers[1] > 0;
}

Certainty judgeMxroad(const Sample& sample) {
    Lines lines{sample, 1};  // the title
    SectionCount sections;
    while (std::optional<Row> row = lines.take(blanks)) {
        if (!isMxroadHeader(*row)) continue;
        bool whole = takePairs(lines, countOf(row->numbers[1]));
        sections.add(whole || cutBySample(lines));
    }
    return sections.certainty();
}

// RUXO points; a last line without a line break is never converted.
void countRuxo(const std::string& path, FileSummary& summary) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (isBlankLine(line.text)) return;
        if (line.last) return tally.lose(line.number);
        std::optional<SectionPointText> p = ruxoSectionPoint(line.text);
        if (!p) return tally.skip(line.number);
        countPoint(tally, p->station, p->offset, p->elevation);
    });
    tally.finish(summary);
}

// Comma-separated points; every line is read.
void countComma(const std::string& path, FileSummary& summary) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (isBlankLine(line.text)) return;
        std::optional<SectionPointText> p = commaSectionPoint(line.text);
        if (!p) return tally.skip(line.number);
        countPoint(tally, p->station, p->offset, p->elevation);
    });
    tally.finish(summary);
}

// The pairs of one line, counted as points at the station.
long countPairs(std::string_view text, double station, Tally& tally) {
    Tokenizer tokens(text);
    long pairs = 0;
    double offset = 0.0, elevation = 0.0;
    while (tokens.nextNumber(blanks, offset) && tokens.nextNumber(blanks, elevation)) {
        countPoint(tally, station, offset, elevation);
        ++pairs;
    }
    return pairs;
}

// ISTRAM/ISPOL: record, counts, then pairs until the section has its points.
struct IstramState {
    enum { outside, counts, points } phase = outside;
    double station = 0.0;
    std::int64_t missing = 0;
};

void countIstramLine(const WalkedLine& line, IstramState& state, Tally& tally) {
    if (line.last) {
        if (!isBlankLine(line.text)) tally.lose(line.number);
        return;
    }
    if (state.phase == IstramState::points) {
        state.missing -= countPairs(line.text, state.station, tally);
        if (state.missing <= 0) state.phase = IstramState::outside;
        return;
    }
    std::vector<std::string_view> fields = leadingFields(line.text, blanks, 6);
    if (state.phase == IstramState::counts) {
        fields = leadingFields(line.text, blanks, 5);
        std::int64_t left = fields.size() == 5 ? parseWhole(fields[3]) : 0;
        std::int64_t right = fields.size() == 5 ? parseWhole(fields[4]) : 0;
        // Negative counts make the importer refuse the file.
        state.missing = left < 0 || right < 0 ? 0 : left + right;
        state.phase = state.missing > 0 ? IstramState::points : IstramState::outside;
    } else if (fields.size() == 6 && parseWhole(fields[0]) == 4) {
        state.station = parseNumber(fields[4]);
        state.phase = IstramState::counts;
    }
}

void countIstram(const std::string& path, FileSummary& summary) {
    Tally tally;
    IstramState state;
    walkFile(path, summary, [&](const WalkedLine& line) { countIstramLine(line, state, tally); });
    tally.finish(summary);
}

// MXROAD: the title, then headers each followed by its pairs.
void countMxroad(const std::string& path, FileSummary& summary) {
    Tally tally;
    double station = 0.0;
    long missing = 0;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (line.number == 1) return;
        if (missing > 0) {
            missing -= countPairs(line.text, station, tally);
            return;
        }
        if (line.last || line.text.size() <= 17) return;
        std::vector<std::string_view> fields = leadingFields(line.text, blanks, 2);
        if (fields.size() < 2 || parseWhole(fields[1]) <= 0) return;
        station = parseNumber(fields[0]);
        missing = parseWhole(fields[1]);
    });
    tally.finish(summary);
}

constexpr FormatRule rules[] = {
    {FileFormat::istramSections, "istram ispol", judgeIstram, countIstram},
    {FileFormat::mxroadSections, "mxroad", judgeMxroad, countMxroad},
    {FileFormat::ruxoSections, "ruxo", judgeRuxo, countRuxo},
    {FileFormat::commaSections, "csv txt", judgeComma, countComma},
    {FileFormat::nevoSections, "nev nevo", judgeNevo, countComma},
};

}  // namespace

std::span<const FormatRule> sectionRules() { return rules; }

}  // namespace quelcnv::recognition
