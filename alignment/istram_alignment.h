// Importer of the fixed-column alignment listing that ISTRAM prints (the
// element word in columns 4-8 or 7-11, the numbers in 12-character columns)
// into the RUXO alignment file.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Reads entrada and writes the RUXO alignment file salida. Fails with
// inputUnreadable, leaving salida untouched, when entrada cannot be opened or
// read, and with outputUnwritable when salida cannot be written. A listing
// without element lines gives an empty RUXO file.
Outcome importIstramAlignment(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
