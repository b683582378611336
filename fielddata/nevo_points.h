// A plain points list (name, X, Y, Z and an optional code, separated by
// blanks or tabs) written as the NEVO data collector's points file.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Writes one line "number,X,Y,Z[,code]" per point line of entrada to
// salida. Fails with inputUnreadable (writing nothing) when entrada cannot
// be opened or read, with outputUnwritable when salida cannot be written.
Outcome convertPointsToNevo(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
