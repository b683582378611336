// Importer of the free-format element listing of ISTRAM into the RUXO
// alignment file. It takes at most 500 key points and only the straights of
// the listing, as the host's users have always received from it.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Reads entrada and writes the RUXO alignment file salida. Fails with
// inputUnreadable, leaving salida untouched, when entrada cannot be opened or
// read, and with outputUnwritable when salida cannot be written. Lines beyond
// the 500th record are ignored.
Outcome importIstramListingAlignment(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
