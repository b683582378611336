#include "profile/superelevation_file.h"

#include "common/output_file.h"

namespace quelcnv {

Outcome writeSuperelevationFile(const std::vector<SuperelevationRow>& rows,
                                const std::string& salida) {
    OutputFile out;
    if (!out.open(salida)) return Outcome::failed(Failure::outputUnwritable);
    for (const SuperelevationRow& row : rows)
        out.print("%8.3lf %6.3lf %6.3lf\n"_fmt, row.station, row.firstFall, row.secondFall);
    return out.complete();
}

}  // namespace quelcnv
