// Importer of the ISPOL superelevation listing (a title line, then rows of
// a number, the station and two or three cross-falls) into the
// superelevation file.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Reads entrada and writes the superelevation file salida; a listing without
// rows gives an empty file. Fails with inputUnreadable when entrada cannot be
// opened or read, and with outputUnwritable when salida cannot be written.
Outcome convertIspolSuperelevation(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
