#include "fielddata/nevo_points.h"

#include <array>
#include <optional>
#include <string_view>

#include "common/conversion_files.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"
#include "fielddata/point_files.h"

namespace quelcnv {

namespace {

// The name is read as a whole number, so a name that is not one gives
// point 0.
void writePoint(OutputFile& out, std::string_view line) {
    std::optional<NamedPoint> point = pointListLine(line);
    if (!point) return;
    std::int32_t number = parseWhole(point->name);
    if (!point->code.empty())
        out.print("%d,%0.3lf,%0.3lf,%0.3lf,%s\n"_fmt, number, point->x, point->y, point->z,
                  point->code);
    else
        out.print("%d,%0.3lf,%0.3lf,%0.3lf\n"_fmt, number, point->x, point->y, point->z);
}

}  // namespace

// Streams line by line; the read that meets the end of the file is not
// used, so a last point without a line break is not converted.
Outcome convertPointsToNevo(const std::string& entrada, const std::string& salida) {
    return convertLineByLine(entrada, salida, readLineBeforeEnd, writePoint);
}

}  // namespace quelcnv
