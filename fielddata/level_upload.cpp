#include "fielddata/level_upload.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

struct LevelPoint {
    std::string name;  // as written in the list
    double z = 0.0;
    std::string code;  // empty when the line has none
};

// Fields split at blanks, tabs and line breaks: name, X, Y, Z and an
// optional code. Nothing when one of the first four is missing.
std::optional<LevelPoint> parsePoint(std::string_view line) {
    Tokenizer tokens(line);
    std::optional<std::string_view> fields[4];
    for (auto& field : fields) {
        field = tokens.next(blanksTabsAndNewlines);
        if (!field) return std::nullopt;
    }
    LevelPoint point;
    point.name = *fields[0];
    point.z = parseNumber(*fields[3]);
    if (auto code = tokens.next(blanksTabsAndNewlines)) point.code = *code;
    return point;
}

// The height in millimetres, cut toward zero. A height beyond the range of
// a 32-bit integer gives its lowest value, which is what the x86 conversion
// of the 32-bit Windows library gives for any value it cannot hold.
std::int32_t millimetres(double z) {
    double mm = std::trunc(z * 1000.0);
    constexpr auto lowest = std::numeric_limits<std::int32_t>::min();
    constexpr auto highest = std::numeric_limits<std::int32_t>::max();
    if (!(mm >= lowest && mm <= highest)) return lowest;
    return static_cast<std::int32_t>(mm);
}

// The plus sign is written whatever the sign of the height, so a height
// below zero comes out as "+-": kept deliberately, as the upload files have
// always been written.
std::vector<LevelPoint> readPoints(LineReader& reader) {
    std::vector<LevelPoint> points;
    points.reserve(linesAhead(reader));
    std::string line;
    while (readLineBeforeEnd(reader, line))
        if (std::optional<LevelPoint> point = parsePoint(line)) points.push_back(*point);
    return points;
}

void writePoints(OutputFile& out, const std::vector<LevelPoint>& points) {
    for (const LevelPoint& point : points)
        out.print("z,01,%s,,,+%d,%s\n"_fmt, point.name, millimetres(point.z), point.code);
}

}  // namespace

// Reads all points first, then writes them; the read that meets the end of
// the file is not used, so a last point without a line break is lost.
Outcome convertPointsToLevelUpload(const std::string& entrada, const std::string& salida) {
    std::optional<std::vector<LevelPoint>> points = readWhole(entrada, readPoints);
    if (!points) return Outcome::failed(Failure::inputUnreadable);
    return writeWholeFile(salida, [&](OutputFile& out) { writePoints(out, *points); });
}

}  // namespace quelcnv
