// Importer of the ISTRAM vertex listing (one vertex per line with the grade
// of the straight leaving it) into the NEVO profile file.
#pragma once

#include <string>

#include "common/outcome.h"
#include "profile/profile_vertex.h"

namespace quelcnv {

// Reads entrada and writes the NEVO profile file salida. Fails with
// inputUnreadable when entrada cannot be opened or read, with noData
// (creating nothing) when it holds no vertex, with rejected when it holds
// more vertices than lines, and with outputUnwritable when salida cannot be
// written.
Outcome convertIstramProfileToNevo(const std::string& entrada, const std::string& salida);

// The vertices of the listing, each inner one with its curve; fails as above
// but for the writing.
ProfileRead readIstramProfile(const std::string& path);

}  // namespace quelcnv
