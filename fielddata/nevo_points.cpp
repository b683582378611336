#include "fielddata/nevo_points.h"

#include <array>
#include <optional>
#include <string_view>

#include "common/conversion_files.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

// Name, X and Y end at a blank or tab, Z and the code also at the line
// break; a line with fewer than four fields is no point. The name is read as
// a whole number, so a name that is not one gives point 0.
void writePoint(OutputFile& out, std::string_view line) {
    Tokenizer tokens(line);
    std::array<std::string_view, 4> fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        auto field = tokens.next(i < 3 ? blanksAndTabs : blanksTabsAndNewlines);
        if (!field) return;
        fields[i] = *field;
    }
    std::int32_t number = parseWhole(fields[0]);
    double x = parseNumber(fields[1]), y = parseNumber(fields[2]), z = parseNumber(fields[3]);
    if (auto code = tokens.next(blanksTabsAndNewlines))
        out.print("%d,%0.3lf,%0.3lf,%0.3lf,%s\n"_fmt, number, x, y, z, *code);
    else
        out.print("%d,%0.3lf,%0.3lf,%0.3lf\n"_fmt, number, x, y, z);
}

}  // namespace

// Streams line by line; the read that meets the end of the file is not
// used, so a last point without a line break is not converted.
Outcome convertPointsToNevo(const std::string& entrada, const std::string& salida) {
    return convertLineByLine(entrada, salida, readLineBeforeEnd, writePoint);
}

}  // namespace quelcnv
