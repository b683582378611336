#include <algorithm>
#include <array>
#include <cmath>

#include "common/numbers.h"
#include "common/tolerance.h"
#include "frame/recognition_rules.h"

namespace quelcnv::recognition {

Sample sampleOf(const std::string& path) {
    Sample sample;
    LineReader reader;
    if (!reader.open(path)) return sample;
    std::string_view text;
    ReadStatus status = ReadStatus::line;
    while (sample.lines.size() < sampledLines &&
           (status = reader.read(text)) != ReadStatus::nothing) {
        bool ended = !text.empty() && text.back() == '\n';
        sample.lines.push_back({std::string(withoutLineBreak(text)), ended});
        if (status == ReadStatus::lastLine) break;
    }
    sample.whole = status != ReadStatus::line || reader.read(text) == ReadStatus::nothing;
    return sample;
}

bool isNumberText(std::string_view text) {
    if (text.empty() || text.front() == ' ' || text.front() == '\t') return false;
    NumberScan scan = scanNumber(text);
    return scan.length != 0 && scan.length == text.size() && std::isfinite(scan.value);
}

bool isWholeText(std::string_view text) {
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

Row rowOf(const SampledLine& line, const Separators& separators) {
    Row row;
    row.line = &line;
    Tokenizer tokens(line.text);
    while (auto field = tokens.next(separators)) {
        if (row.numbers.size() == row.fields.size() && isNumberText(*field))
            row.numbers.push_back(parseNumber(*field));
        row.fields.push_back(*field);
    }
    return row;
}

bool isBlankLine(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return blanks.has(c); });
}

std::vector<Row> dataRows(const Sample& sample, const Separators& separators) {
    std::vector<Row> rows;
    for (const SampledLine& line : sample.lines) {
        if (isBlankLine(line.text) || line.text.front() == '#' || line.text.front() == '*')
            continue;
        Row row = rowOf(line, separators);
        if (!row.fields.empty()) rows.push_back(std::move(row));
    }
    return rows;
}

bool sampleHas(const Sample& sample, char c) {
    return std::any_of(sample.lines.begin(), sample.lines.end(), [c](const SampledLine& line) {
        return line.text.find(c) != std::string::npos;
    });
}

bool nonDecreasing(std::span<const Row> rows, std::size_t column) {
    for (std::size_t i = 1; i < rows.size(); ++i)
        if (rows[i].numbers.at(column) < rows[i - 1].numbers.at(column)) return false;
    return true;
}

std::size_t repeatedStations(std::span<const Row> rows, std::size_t column) {
    std::size_t repeated = 0;
    for (std::size_t i = 1; i < rows.size(); ++i)
        if (std::fabs(rows[i].numbers.at(column) - rows[i - 1].numbers.at(column)) <
            stationTolerance)
            ++repeated;
    return repeated;
}

Certainty byShare(std::size_t fitting, std::size_t rows, Certainty whenAllFit) {
    if (fitting == 0 || (fitting < 2 && rows > 1) || fitting * 2 < rows) return Certainty::none;
    if (fitting * 10 < rows * 9) return Certainty::possible;
    return fitting < 3 ? std::min(whenAllFit, Certainty::likely) : whenAllFit;
}

Certainty SectionCount::certainty() const {
    if (good == 0 || bad >= good) return Certainty::none;
    if (bad > 0 || good == 1) return Certainty::likely;
    return Certainty::certain;
}

void Tally::skip(long line) {
    if (skipped_++ == 0) firstSkipped_ = line;
}

void Tally::station(double at) {
    if (!first_) first_ = at;
    last_ = at;
}

void Tally::sectionAt(double at) {
    if (section_ && std::fabs(at - *section_) < stationTolerance) return;
    ++sections_;
    section_ = at;
    station(at);
}

void Tally::values(std::span<const double> numbers) {
    numbers_ = numbers_ || !numbers.empty();
    nonZero_ =
        nonZero_ || std::any_of(numbers.begin(), numbers.end(), [](double n) { return n != 0.0; });
}

void Tally::finish(FileSummary& summary) const {
    summary.items = items_;
    summary.sections = sections_;
    summary.firstStation = first_;
    summary.lastStation = last_;
    if (skipped_ > 0)
        summary.problems.push_back({ProblemKind::linesSkipped, firstSkipped_, skipped_, {}});
    if (lost_ > 0) summary.problems.push_back({ProblemKind::lastLineLost, lost_, 0, {}});
    if (items_ == 0) summary.problems.push_back({ProblemKind::noData, 0, 0, {}});
    if (numbers_ && !nonZero_) summary.problems.push_back({ProblemKind::allZero, 0, 0, {}});
}

void countPoint(Tally& tally, double station, double offset, double elevation) {
    tally.item();
    tally.sectionAt(station);
    tally.values(std::array<double, 3>{station, offset, elevation});
}

}  // namespace quelcnv::recognition
