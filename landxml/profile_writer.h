// Vertical profiles written as LandXML, so that our own profile reader and
// selection list take them back: Alignments/Alignment/Profile/ProfAlign,
// with a PVI for each vertex without a vertical curve and a ParaCurve with
// its length for each vertex with one.
#pragma once

#include <string>

#include "common/outcome.h"
#include "landxml/landxml_document.h"
#include "profile/profile_vertex.h"

namespace quelcnv {

// Writes the vertices as the LandXML document salida; the alignment and the
// profile are both named after salida's base name. The first and the last
// vertex are PVIs always. Fails with noData (salida not created) when there
// is no vertex, and with outputUnwritable.
Outcome writeLandXmlProfile(const Profile& vertices, const std::string& salida,
                            const Clock& clock = localNow);

}  // namespace quelcnv
