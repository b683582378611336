// Importer of the ISPOL alignment file (the start station, then one line per
// element with its ISPOL code 1 to 7) into the RUXO alignment file.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Reads entrada and writes the RUXO alignment file salida. Fails with
// inputUnreadable, leaving salida untouched, when entrada cannot be opened or
// read, and with outputUnwritable when salida cannot be written. The elements
// end at the end of the file, at a comment line or at an incomplete line.
Outcome importIspolAlignment(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
