// The NEVO profile file, read by the data collector for setting out: one
// vertex per line, station, elevation and full curve length.
#pragma once

#include <string>

#include "common/outcome.h"
#include "profile/profile_vertex.h"

namespace quelcnv {

// Writes salida: the first vertex with curve length 0.000, every inner vertex
// with twice its tangent, and the last vertex with 0.000 and no line break
// after it. A single vertex is written twice, as first and as last. Fails
// with noData, creating nothing, when there is no vertex, and with
// outputUnwritable when salida cannot be written.
Outcome writeNevoProfile(const Profile& vertices, const std::string& salida);

}  // namespace quelcnv
