#include "fielddata/robotic_header.h"

#include <string_view>

#include "common/line_reader.h"
#include "common/output_file.h"
#include "common/text_case.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

struct RoboticHeader {
    std::string job;
    std::string date;
    std::string time;
};

// "DATE date,time": the date runs from after the separator that ended the
// record name to the first comma (blanks in it stay), the time is the rest
// of the line, its line break included.
void readDate(Tokenizer& tokens, RoboticHeader& header) {
    if (auto date = tokens.next(",")) header.date = *date;
    if (auto time = tokens.next("")) header.time = *time;
}

// "JOB field,name.extension": the job name runs from the first comma to the
// next full stop, or to the end of the line, line break included.
void readJob(Tokenizer& tokens, RoboticHeader& header) {
    if (!tokens.next(",")) return;
    if (auto job = tokens.next(".")) header.job = *job;
}

// Record names are whole words in any letter case; later records overwrite
// earlier ones, and blank lines and other records are passed over.
void readHeaderLine(std::string_view line, RoboticHeader& header) {
    Tokenizer tokens(line);
    auto name = tokens.next(blanksAndTabs);
    if (!name) return;
    if (equalsIgnoringCase(*name, "DATE"))
        readDate(tokens, header);
    else if (equalsIgnoringCase(*name, "JOB"))
        readJob(tokens, header);
}

RoboticHeader readHeader(LineReader& reader) {
    RoboticHeader header;
    std::string line;
    while (readLineBeforeEnd(reader, line)) readHeaderLine(line, header);
    return header;
}

}  // namespace

void shiftLeadingBlanks(std::string& text) {
    std::size_t blanks = text.find_first_not_of(' ');
    if (blanks == std::string::npos) blanks = text.size();
    if (blanks == 0) return;
    text.erase(0, blanks);
    text.append(blanks, ' ');
}

// The read that meets the end of the file is not used, so a last record
// without a line break is passed over.
Outcome convertRoboticHeader(const std::string& lecturas, const std::string& salida) {
    std::optional<RoboticHeader> header = readWhole(lecturas, readHeader);
    if (!header) return Outcome::failed(Failure::inputUnreadable);
    for (std::string* value : {&header->job, &header->date, &header->time})
        shiftLeadingBlanks(*value);
    return writeWholeFile(salida, [&](OutputFile& out) {
        out.print("%s\n%s\n%s\n"_fmt, header->job, header->date, header->time);
    });
}

}  // namespace quelcnv
