#include "alignment/ruxo_alignment_file.h"

#include <array>
#include <optional>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

// The six numbers of a record line, or nothing when one is missing.
std::optional<AlignmentRecord> parseRecordLine(std::string_view line) {
    Tokenizer tokens(line);
    auto values = nextNumbers<6>(tokens, blanksTabsAndNewlines);
    if (!values) return std::nullopt;
    auto [station, x, y, azimuth, parameter, radius] = *values;
    // The file gives the parameter before the radius.
    AlignmentRecord record = keyPoint(station, x, y, azimuth, radius, parameter);
    record.type = elementTypeOf(parameter, radius);
    return record;
}

}  // namespace

AlignmentFile readAlignmentFile(const std::string& path, CommentLines comments) {
    AlignmentFile file;
    int lineCount = countLines(path);
    LineReader reader;
    if (!reader.open(path)) {
        file.outcome = Outcome::failed(Failure::inputUnreadable);
        return file;
    }
    file.capacity = 3 * static_cast<std::size_t>(lineCount);
    file.records.reserve(static_cast<std::size_t>(lineCount));
    std::string line;
    long lineNumber = 0;
    while (readLineBeforeEnd(reader, line)) {
        ++lineNumber;
        if (line.empty()) continue;
        if (comments == CommentLines::skipped && line.front() == '*') continue;
        if (auto record = parseRecordLine(line)) file.records.push_back(*record);
        // Only a file that grows while it is read gets here.
        if (file.records.size() >= static_cast<std::size_t>(lineCount)) {
            file.records.clear();
            file.outcome = Outcome::failed(Failure::rejected, lineNumber);
            return file;
        }
    }
    if (reader.readFailed())
        file.outcome = Outcome::failed(Failure::inputUnreadable, lineNumber);
    else if (file.records.empty())
        file.outcome = Outcome::failed(Failure::noData);
    if (!file.outcome.ok()) file.records.clear();
    return file;
}

Outcome writeAlignmentFile(const std::vector<AlignmentRecord>& records, const std::string& path) {
    OutputFile out;
    if (!out.open(path)) return Outcome::failed(Failure::outputUnwritable);
    for (const AlignmentRecord& r : records) {
        out.print("%0.3lf %0.3lf %0.3lf %0.3lf %0.3lf %0.3lf\n"_fmt, r.station, r.x, r.y, r.azimuth,
                  r.parameter, r.radius);
    }
    return withCount(out.complete(), &Written::records, records.size());
}

Outcome importAlignment(const std::string& entrada, const std::string& salida, RecordReader read,
                        RecordCompletion complete) {
    std::optional<std::vector<AlignmentRecord>> records = readWhole(entrada, read);
    if (!records) return Outcome::failed(Failure::inputUnreadable);
    complete(*records);
    return writeAlignmentFile(*records, salida);
}

}  // namespace quelcnv
