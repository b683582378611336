#include "fielddata/point_files.h"

#include <array>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

constexpr Separators commasAndNewlines = ",\n";

// The fields of a point line: name, x and y end where `separators` say, z
// and the code also at `lastSeparators`.
std::optional<NamedPoint> pointOf(std::string_view line, const Separators& separators,
                                  const Separators& lastSeparators) {
    Tokenizer tokens(line);
    std::optional<std::array<std::string_view, 3>> first = nextTokens<3>(tokens, separators);
    std::optional<std::string_view> z = first ? tokens.next(lastSeparators) : std::nullopt;
    if (!z) return std::nullopt;
    NamedPoint point{std::string((*first)[0]),
                     parseNumber((*first)[1]),
                     parseNumber((*first)[2]),
                     parseNumber(*z),
                     {}};
    if (auto code = tokens.next(lastSeparators)) point.code = *code;
    return point;
}

}  // namespace

std::optional<NamedPoint> pointListLine(std::string_view line) {
    return pointOf(line, blanksAndTabs, blanksTabsAndNewlines);
}

std::optional<std::vector<NamedPoint>> readPointList(const std::string& path) {
    return readWhole(path, [](LineReader& reader) {
        std::vector<NamedPoint> points;
        std::string_view line;
        while (readLineBeforeEnd(reader, line))
            if (auto point = pointListLine(line)) points.push_back(*point);
        return points;
    });
}

std::optional<std::vector<NamedPoint>> readNevoPoints(const std::string& path) {
    return readWhole(path, [](LineReader& reader) {
        std::vector<NamedPoint> points;
        std::string_view line;
        while (readLineThroughEnd(reader, line))
            if (auto point = pointOf(line, commasAndNewlines, commasAndNewlines))
                points.push_back(*point);
        return points;
    });
}

}  // namespace quelcnv
