// The VELM profile file: one vertex per line, five numbers separated by
// blanks or tabs (station, elevation, kv, tangent, external), "#" lines
// being comments. Read into the NEVO profile file, and written by the
// CartoMAP importer.
#pragma once

#include <string>

#include "common/outcome.h"
#include "profile/profile_vertex.h"

namespace quelcnv {

// Writes the NEVO profile file salida from entrada, which is either a VELM
// profile file or, when its first character is "#", an ISPOL vertex listing.
// Fails with inputUnreadable when entrada cannot be opened or read, with
// noData (creating nothing) when it holds no vertex, with rejected when it
// holds more vertices than lines, and with outputUnwritable when salida
// cannot be written.
Outcome convertVelmProfileToNevo(const std::string& entrada, const std::string& salida);

// The vertices of a VELM profile file or, when its first character is "#",
// of an ISPOL vertex listing; fails as above but for the writing.
ProfileRead readVelmProfile(const std::string& path);

// Writes the vertices as a VELM profile file, fixed widths, every line ended
// by a line break: "%10.3lf %8.3lf %9.3lf %8.3lf %8.3lf\n" of station,
// elevation, kv, tangent and external. Fails with outputUnwritable.
Outcome writeVelmProfile(const Profile& vertices, const std::string& salida);

}  // namespace quelcnv
