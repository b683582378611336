// Telling and counting the field-data formats: point lists, the level's
// readings and book, LEA surveys, NEVO and Medrix observations, and the
// robotic station's readings.
#include <algorithm>
#include <array>

#include "common/numbers.h"
#include "common/text_case.h"
#include "frame/recognition_rules.h"

namespace quelcnv::recognition {

namespace {

std::size_t countRows(std::span<const Row> rows, bool (*fits)(const Row&)) {
    return static_cast<std::size_t>(std::count_if(rows.begin(), rows.end(), fits));
}

// Fields from `from` to `to` (not included) are all numbers.
bool numbersIn(const Row& row, std::size_t from, std::size_t to) {
    return row.fields.size() >= to &&
           std::all_of(row.fields.begin() + static_cast<std::ptrdiff_t>(from),
                       row.fields.begin() + static_cast<std::ptrdiff_t>(to), isNumberText);
}

// A point's name: a whole number or a word, never a number with decimals
// (a station, say).
bool isPointName(std::string_view field) { return isWholeText(field) || !isNumberText(field); }

bool distinctNames(std::span<const Row> rows) {
    std::vector<std::string_view> names;
    for (const Row& row : rows) names.push_back(row.fields[0]);
    std::sort(names.begin(), names.end());
    return std::adjacent_find(names.begin(), names.end()) == names.end();
}

// Name, x, y, z and an optional code, separated by blanks or tabs.
bool isPointRow(const Row& row) {
    return (row.fields.size() == 4 || row.fields.size() == 5) && isPointName(row.fields[0]) &&
           numbersIn(row, 1, 4);
}

Certainty judgePointList(const Sample& sample) {
    if (sampleHas(sample, ',')) return Certainty::none;
    std::vector<Row> rows = dataRows(sample, blanks);
    std::vector<Row> fit;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(fit), isPointRow);
    return byShare(fit.size(), rows.size(),
                   distinctNames(fit) ? Certainty::likely : Certainty::possible);
}

// What puntos2nevo writes: "number,x,y,z[,code]", three decimals.
bool isNevoPointRow(const Row& row) {
    return (row.fields.size() == 4 || row.fields.size() == 5) && isWholeText(row.fields[0]) &&
           numbersIn(row, 1, 4);
}

Certainty judgeNevoPoints(const Sample& sample) {
    if (!sampleHas(sample, ',') || sampleHas(sample, ' ')) return Certainty::none;
    std::vector<Row> rows = dataRows(sample, commas);
    return byShare(countRows(rows, isNevoPointRow), rows.size(), Certainty::likely);
}

// The KL500's records: a lower-case letter and a comma.
bool isLevelRecord(const Row& row) {
    std::string_view text = row.line->text;
    return text.size() > 1 && text[1] == ',' &&
           std::string_view("cghijvw").find(text[0]) != std::string_view::npos;
}

Certainty judgeLevelReadings(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, commas);
    std::size_t records = countRows(rows, isLevelRecord);
    if (records < 3) return Certainty::none;
    return byShare(records, rows.size(), Certainty::certain);
}

// The IGN book's header.
Certainty judgeLevelBook(const Sample& sample) {
    const std::vector<SampledLine>& lines = sample.lines;
    bool header = lines.size() >= 2 && lines[0].text.starts_with("EMPRESA:") &&
                  lines[1].text.starts_with("NIVEL:");
    return header ? Certainty::certain : Certainty::none;
}

// What puntos2nivel writes: "z,01,name,,,+millimetres,code".
Certainty judgeLevelUpload(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, commas);
    std::size_t fit =
        countRows(rows, [](const Row& row) { return row.line->text.starts_with("z,01,"); });
    return byShare(fit, rows.size(), Certainty::certain);
}

// LEA: station lines "S name height", observations "E|P point h v d height [code]".
bool isLeaStation(const Row& row) {
    return row.fields.size() == 3 && row.fields[0] == "S" && isNumberText(row.fields[2]);
}

bool isLeaObservation(const Row& row) {
    return (row.fields[0] == "E" || row.fields[0] == "P") && row.fields.size() <= 7 &&
           numbersIn(row, 2, 6);
}

Certainty judgeLea(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanks);
    std::size_t stations = countRows(rows, isLeaStation);
    std::size_t observations = countRows(rows, isLeaObservation);
    if (stations == 0 || observations == 0) return Certainty::none;
    return byShare(stations + observations, rows.size(), Certainty::certain);
}

// Station, point, five numbers and an optional code.
bool isObservationRow(const Row& row) {
    return (row.fields.size() == 7 || row.fields.size() == 8) && numbersIn(row, 2, 7);
}

Certainty judgeNevoObservations(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanksAndCommas);
    return byShare(countRows(rows, isObservationRow), rows.size(),
                   sampleHas(sample, ',') ? Certainty::likely : Certainty::possible);
}

// Medrix lines in the widths of either writer: the fields' last characters
// stand in these columns (1-based), the numbers with these decimals.
constexpr std::array<std::size_t, 7> leaMedrixEnds = {5, 11, 20, 29, 39, 47, 55};
constexpr std::array<std::size_t, 7> nevoMedrixEnds = {9, 18, 29, 39, 49, 56, 63};
constexpr std::array<std::size_t, 5> medrixDecimals = {4, 4, 3, 3, 3};

bool hasMedrixWidths(const Row& row, const std::array<std::size_t, 7>& ends) {
    std::string_view text = row.line->text;
    if (text.size() < ends.back()) return false;
    for (std::size_t i = 0; i < ends.size(); ++i) {
        if (text[ends[i] - 1] == ' ') return false;
        if (i >= 2 && text[ends[i] - 1 - medrixDecimals[i - 2]] != '.') return false;
    }
    return true;
}

Certainty judgeMedrix(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanks);
    std::size_t fit = countRows(rows, [](const Row& row) {
        return isObservationRow(row) &&
               (hasMedrixWidths(row, leaMedrixEnds) || hasMedrixWidths(row, nevoMedrixEnds));
    });
    return byShare(fit, rows.size(), Certainty::certain);
}

// The NEVO-800's records, named by their first field.
bool isRoboticRecord(std::string_view name) {
    static constexpr std::string_view names[] = {"INST", "JOB", "NOTE", "DATE", "UNITS",
                                                 "STN",  "BS",  "FS",   "SS"};
    return std::any_of(std::begin(names), std::end(names),
                       [name](std::string_view known) { return equalsIgnoringCase(name, known); });
}

// Sure with a JOB or DATE record among records of the station, most lines
// being such records.
Certainty judgeRobotic(const Sample& sample) {
    std::vector<Row> rows = dataRows(sample, blanks);
    std::size_t known = 0, header = 0;
    for (const Row& row : rows) {
        if (!isRoboticRecord(row.fields[0])) continue;
        ++known;
        if (equalsIgnoringCase(row.fields[0], "JOB") || equalsIgnoringCase(row.fields[0], "DATE"))
            ++header;
    }
    if (header > 0) return known * 2 >= rows.size() ? Certainty::certain : Certainty::likely;
    return known >= 2 ? byShare(known, rows.size(), Certainty::likely) : Certainty::none;
}

// Counting, by each converter's reading rules.

// A line with at least `fields` fields separated as given is an item; the
// rest of the lines that hold something are skipped. `lastLost`: a last line
// without a line break is not read.
void countFieldLines(const std::string& path, FileSummary& summary, const Separators& separators,
                     std::size_t fields, bool lastLost) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (isBlankLine(line.text)) return;
        if (lastLost && line.last) return tally.lose(line.number);
        std::vector<std::string_view> found = leadingFields(line.text, separators, fields);
        if (found.size() < fields) return tally.skip(line.number);
        tally.item();
        for (std::size_t i = 1; i < found.size(); ++i) tally.value(parseNumber(found[i]));
    });
    tally.finish(summary);
}

void countPointList(const std::string& path, FileSummary& summary) {
    countFieldLines(path, summary, blanks, 4, true);
}
void countNevoPoints(const std::string& path, FileSummary& summary) {
    countFieldLines(path, summary, commas, 4, false);
}
void countNevoObservations(const std::string& path, FileSummary& summary) {
    countFieldLines(path, summary, blanksAndCommas, 7, true);
}
void countMedrix(const std::string& path, FileSummary& summary) {
    countFieldLines(path, summary, blanks, 7, false);
}
void countRobotic(const std::string& path, FileSummary& summary) {
    countFieldLines(path, summary, blanks, 1, true);
}

// Lines that start as the format's lines do are its items; the others are skipped.
template <bool (*isItem)(std::string_view)>
void countLinesLike(const std::string& path, FileSummary& summary) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (isBlankLine(line.text)) return;
        isItem(line.text) ? tally.item() : tally.skip(line.number);
    });
    tally.finish(summary);
}

bool isUploadLine(std::string_view text) { return text.starts_with("z,"); }

// A book line: the back point number and the eight readings and distances.
bool isBookLine(std::string_view text) {
    std::vector<std::string_view> fields = leadingFields(text, blanks, 10);
    return fields.size() >= 9 && std::all_of(fields.begin(), fields.begin() + 9, isNumberText);
}

void countLevelBook(const std::string& path, FileSummary& summary) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (isBookLine(line.text)) tally.item();
    });
    tally.finish(summary);
}

// A sighting of the KL500 (g, h, i, j) with its unit code, reading and
// distance; a stamp (c, v, w) with a field of ten characters or more among
// the next 18 (4 for v and w). Other lines are passed over.
bool isLevelSighting(std::string_view text) {
    std::vector<std::string_view> f = leadingFields(text, ",", 4);
    return f.size() == 4 && f[1].size() >= 2 &&
           std::string_view("12378").find(f[1][1]) != std::string_view::npos;
}

bool isLevelStamp(std::string_view text) {
    std::size_t limit = text.front() == 'c' ? 18 : 4;
    std::vector<std::string_view> f = leadingFields(text, ",\r\n", limit + 1);
    return std::any_of(f.begin() + (f.empty() ? 0 : 1), f.end(),
                       [](std::string_view field) { return field.size() >= 10; });
}

void countLevelReadings(const std::string& path, FileSummary& summary) {
    Tally tally;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (isBlankLine(line.text)) return;
        if (line.last) return tally.lose(line.number);
        char kind = line.text.front();
        bool sighting = std::string_view("ghij").find(kind) != std::string_view::npos;
        bool stamp = std::string_view("cvw").find(kind) != std::string_view::npos;
        if (sighting && isLevelSighting(line.text)) return tally.item();
        if (!(stamp && isLevelStamp(line.text))) tally.skip(line.number);
    });
    tally.finish(summary);
}

// LEA: observations from a station whose height is known.
void countLea(const std::string& path, FileSummary& summary) {
    Tally tally;
    bool station = false;
    walkFile(path, summary, [&](const WalkedLine& line) {
        if (isBlankLine(line.text)) return;
        std::vector<std::string_view> f = leadingFields(line.text, " \t", 6);
        char kind = line.text.front();
        if (kind == 'S' && f.size() >= 2) {
            station = station || f.size() >= 3;  // a station line without height names it only
            return;
        }
        if ((kind != 'E' && kind != 'P') || !station || f.size() < 6)
            return tally.skip(line.number);
        tally.item();
        for (std::size_t i = 2; i < f.size(); ++i) tally.value(parseNumber(f[i]));
    });
    tally.finish(summary);
}

constexpr FormatRule rules[] = {
    {FileFormat::levelBook, "ign txt", judgeLevelBook, countLevelBook},
    {FileFormat::levelReadings, "dat txt", judgeLevelReadings, countLevelReadings},
    {FileFormat::levelUpload, "nivel txt", judgeLevelUpload, countLinesLike<isUploadLine>},
    {FileFormat::leaSurvey, "lea", judgeLea, countLea},
    {FileFormat::roboticReadings, "txt", judgeRobotic, countRobotic},
    {FileFormat::medrix, "med txt", judgeMedrix, countMedrix},
    {FileFormat::nevoObservations, "txt", judgeNevoObservations, countNevoObservations},
    {FileFormat::pointList, "txt", judgePointList, countPointList},
    {FileFormat::nevoPoints, "nev nevo", judgeNevoPoints, countNevoPoints},
};

}  // namespace

std::span<const FormatRule> fieldDataRules() { return rules; }

}  // namespace quelcnv::recognition
