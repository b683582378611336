// Cross sections written as LandXML, so that our own cross-section reader
// and selection list take them back: Alignments/Alignment/CrossSects, one
// CrossSect per station with one CrossSectSurf holding the points as offset
// and elevation pairs. Point codes have no place in a PntList2D and are left
// out.
#pragma once

#include <string>
#include <vector>

#include "common/outcome.h"
#include "crosssection/section_point.h"
#include "landxml/landxml_document.h"

namespace quelcnv {

// Writes the points as the LandXML document salida: the alignment named after
// salida's base name, the surface after surfaceName (a file name). One
// CrossSect per station, in the order the stations first come; offsets
// signed, three decimals. Fails with noData (salida not created) when there
// is no point, and with outputUnwritable.
Outcome writeLandXmlSections(const std::vector<SectionPoint>& points,
                             const std::string& surfaceName, const std::string& salida,
                             const Clock& clock = localNow);

}  // namespace quelcnv
