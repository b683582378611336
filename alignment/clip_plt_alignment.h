// Importer of the CLIP PLT alignment listing (free-format key points whose
// curve data belong to the element that ends there) into the RUXO alignment
// file.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Reads entrada and writes the RUXO alignment file salida. Fails with
// inputUnreadable, leaving salida untouched, when entrada cannot be opened or
// read, and with outputUnwritable when salida cannot be written.
Outcome importClipPltAlignment(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
