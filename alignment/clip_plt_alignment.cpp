#include "alignment/clip_plt_alignment.h"

#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "alignment/alignment_record.h"
#include "alignment/ruxo_alignment_file.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

constexpr Separators separators = "\t ,";
// Shorter lines, line feed included, hold no key point.
constexpr std::size_t minimumLineLength = 10;

// Station, x, y, azimuth, radius, parameter (the radius first, unlike the
// RUXO file). Nothing for a short line, a comment or fewer than six tokens.
std::optional<AlignmentRecord> parseKeyPoint(std::string_view line) {
    if (line.size() < minimumLineLength || line.front() == '*' || line.front() == '#')
        return std::nullopt;
    Tokenizer tokens(line);
    auto values = nextNumbers<6>(tokens, separators);
    if (!values) return std::nullopt;
    auto [station, x, y, azimuth, radius, parameter] = *values;
    return keyPoint(station, x, y, azimuth, radius, parameter);
}

// CLIP gives a curve's radius and parameter at the key point where the
// element ends, RUXO where it starts: each record takes its successor's, and
// the end point carries no curve.
void moveCurvesBack(std::vector<AlignmentRecord>& records) {
    if (records.empty()) return;
    for (std::size_t i = 0; i + 1 < records.size(); ++i) {
        records[i].radius = records[i + 1].radius;
        records[i].parameter = records[i + 1].parameter;
    }
    records.back().radius = 0;
    records.back().parameter = 0;
}

// One key point for each line of six numbers.
std::vector<AlignmentRecord> readKeyPoints(LineReader& reader) {
    std::vector<AlignmentRecord> records;
    records.reserve(linesAhead(reader));
    std::string line;
    while (readLineThroughEnd(reader, line))
        if (auto record = parseKeyPoint(line)) records.push_back(*record);
    return records;
}

}  // namespace

Outcome importClipPltAlignment(const std::string& entrada, const std::string& salida) {
    return importAlignment(entrada, salida, readKeyPoints, moveCurvesBack);
}

}  // namespace quelcnv
