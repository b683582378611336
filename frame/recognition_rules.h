// What the recogniser of file formats shares between its families: the first
// lines of a file split into fields, the pass that counts what a format's
// reader would read, and one rule per text format.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/line_reader.h"
#include "common/tokenizer.h"
#include "frame/recognition.h"

namespace quelcnv::recognition {

// How many line reads of a file the judges look at.
inline constexpr std::size_t sampledLines = 300;

// Separators of the fields the judges and counters split lines into.
inline constexpr Separators blanks = " \t\r\n";
inline constexpr Separators blanksAndCommas = " \t\r\n,";
inline constexpr Separators commas = ",\r\n";

// One line read, as the readers get it: at most 255 characters.
struct SampledLine {
    std::string text;   // without its line break
    bool ended = true;  // a line break ended it
    // The width the readers measure when they count the line break.
    std::size_t width() const { return text.size() + (ended ? 1 : 0); }
};

// The first lines of a file.
struct Sample {
    std::vector<SampledLine> lines;
    bool whole = false;  // the lines are all the file holds
};

Sample sampleOf(const std::string& path);

// A line split into fields, and the numbers its first fields are.
struct Row {
    const SampledLine* line = nullptr;
    std::vector<std::string_view> fields;
    std::vector<double> numbers;  // the values of the leading fields that are numbers
    bool allNumbers() const { return numbers.size() == fields.size(); }
};

// A field that is a number and nothing else ("12.5", "-3", "1e3").
bool isNumberText(std::string_view text);
// A field of digits with an optional sign.
bool isWholeText(std::string_view text);
Row rowOf(const SampledLine& line, const Separators& separators);
// A line with nothing but blanks, tabs and line breaks.
bool isBlankLine(std::string_view text);
// The rows of the lines that hold a field and are no comment ("#" or "*"
// first).
std::vector<Row> dataRows(const Sample& sample, const Separators& separators);
// Whether any of the sampled lines holds the character.
bool sampleHas(const Sample& sample, char c);
// Whether the numbers of a column never go down from row to row.
bool nonDecreasing(std::span<const Row> rows, std::size_t column);
// How many rows repeat the previous row's station in the column (within 0.001).
std::size_t repeatedStations(std::span<const Row> rows, std::size_t column);
// The certainty of a shape that `fitting` of `rows` rows have: none when
// fewer than half of them fit, or fewer than two (one when that is all the
// file has); possible when a tenth of them or more do not fit; else the
// certainty given, at most likely below three rows.
Certainty byShare(std::size_t fitting, std::size_t rows, Certainty whenAllFit);

// How sure the sections a judge found make the format: sure when none broke
// its shape, likely while the good ones are more, none otherwise.
struct SectionCount {
    long good = 0, bad = 0;

    void add(bool whole) { ++(whole ? good : bad); }
    Certainty certainty() const;
};

// One line as the counting pass reads it.
struct WalkedLine {
    std::string_view text;  // as read, its line break included when there is one
    long number = 0;        // 1-based
    bool last = false;      // the read met the end of the file: no line break after it
};

// What a format's reader would read, gathered line by line.
class Tally {
public:
    void item() { ++items_; }
    long items() const { return items_; }
    void skip(long line);
    // A line without a line break at the end of the file that the reader loses.
    void lose(long line) { lost_ = line; }
    void station(double at);
    // Counts a section when the station differs from the last one's.
    void sectionAt(double at);
    void values(std::span<const double> numbers);
    void value(double number) { values(std::span<const double>(&number, 1)); }
    // Fills the counts, stations and problems of the summary.
    void finish(FileSummary& summary) const;

private:
    long items_ = 0;
    long sections_ = 0;
    long skipped_ = 0;
    long firstSkipped_ = 0;
    long lost_ = 0;
    std::optional<double> first_, last_, section_;
    bool numbers_ = false, nonZero_ = false;
};

// A point of a cross section read: a section is a run of points at one station.
void countPoint(Tally& tally, double station, double offset, double elevation);

// Hands every line of the file to each, in turn, as a LineReader reads it,
// and puts the number of text lines into the summary.
template <typename Each>
void walkFile(const std::string& path, FileSummary& summary, Each each) {
    LineReader reader;
    if (!reader.open(path)) return;
    std::string_view text;
    for (ReadStatus status; (status = reader.read(text)) != ReadStatus::nothing;) {
        summary.lines = reader.lineNumber();
        each(WalkedLine{text, reader.lineNumber(), status == ReadStatus::lastLine});
        if (status == ReadStatus::lastLine) break;
    }
}

using Judge = Certainty (*)(const Sample& sample);
using Count = void (*)(const std::string& path, FileSummary& summary);

// How one text format is told and counted.
struct FormatRule {
    FileFormat format;
    std::string_view extensions;  // that break a tie, lower case, separated by blanks
    Judge judge;
    Count count;
};

std::span<const FormatRule> alignmentRules();
std::span<const FormatRule> profileRules();
std::span<const FormatRule> sectionRules();
std::span<const FormatRule> headedSectionRules();
std::span<const FormatRule> fieldDataRules();

// A LandXML document's contents and problems, read to its end.
void summariseXml(const std::string& path, FileSummary& summary);

}  // namespace quelcnv::recognition
