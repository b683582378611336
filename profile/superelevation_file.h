// The superelevation file: one row per line, the station and two
// cross-falls, written by both superelevation importers and read back by
// what draws it.
#pragma once

#include <optional>
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

// Every line of three fields or more, separated by blanks or tabs: the
// station and the two cross-falls as they stand. A last line without a line
// break is read. Nothing when the file cannot be read.
std::optional<std::vector<SuperelevationRow>> readSuperelevationFile(const std::string& path);

}  // namespace quelcnv
