// Importer of the CLIP superelevation table (rows of station and two
// cross-falls, no title) into the superelevation file.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Reads entrada and writes the superelevation file salida; a table without
// rows gives an empty file. Fails with inputUnreadable when entrada cannot be
// opened or read, and with outputUnwritable when salida cannot be written.
Outcome convertClipSuperelevation(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
