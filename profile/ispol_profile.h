// Importer of the ISPOL vertex listing (header lines beginning with "#",
// then one vertex per line with the grade of the straight arriving at it)
// into the NEVO profile file.
#pragma once

#include <string>

#include "common/outcome.h"
#include "profile/profile_vertex.h"

namespace quelcnv {

// Reads entrada as an ISPOL listing, whatever its first character, and writes
// the NEVO profile file salida. Fails with inputUnreadable when entrada cannot
// be opened or read, with noData (creating nothing) when it holds no vertex
// line, and with outputUnwritable when salida cannot be written.
Outcome convertIspolProfileToNevo(const std::string& entrada, const std::string& salida);

// The vertices of the listing, each inner one with its curve; fails with
// inputUnreadable only (a listing with no vertex line gives none).
ProfileRead readIspolProfile(const std::string& path);

}  // namespace quelcnv
