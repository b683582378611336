// A plain points list written as the upload file of point heights that the
// digital level loads.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Writes one line "z,01,name,,,+millimetres,code" per point line of entrada
// to salida. Fails with inputUnreadable (writing nothing) when entrada
// cannot be opened or read, with outputUnwritable when salida cannot be
// written.
Outcome convertPointsToLevelUpload(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
