// The superelevation file: one row per line, the station and two
// cross-falls, written by both superelevation importers.
#pragma once

#include <string>
#include <vector>

#include "common/outcome.h"

namespace quelcnv {

struct SuperelevationRow {
    double station = 0.0;
    double firstFall = 0.0;
    double secondFall = 0.0;
};

// Writes every row as "%8.3lf %6.3lf %6.3lf\n"; no row gives an empty file.
// Fails with outputUnwritable when salida cannot be written.
Outcome writeSuperelevationFile(const std::vector<SuperelevationRow>& rows,
                                const std::string& salida);

}  // namespace quelcnv
