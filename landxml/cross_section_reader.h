// Cross sections out of a LandXML document (CrossSects of an Alignment, one
// CrossSect a station, one CrossSectSurf a surface with its PntList2D): the
// list of alignments and surfaces for the host to choose from, and the
// points of the chosen surface as a RUXO cross-section file.
#pragma once

#include <memory>
#include <string>

#include "common/outcome.h"
#include "landxml/selection_list.h"

namespace quelcnv {

// Writes to ruxoPath, once the whole document has been read, the points of
// the surface named capa in the cross sections of the alignment named
// transver (both without regard to case), sorted by station and offset. A
// surface whose description is "left" gives its offsets negated. Names that
// match nothing give an empty file; a document that cannot be read to its
// end writes nothing. Fails with readerUnavailable or outputUnwritable.
Outcome importLandXmlSections(const std::string& transver, const std::string& capa,
                              const std::string& entrada, const std::string& ruxoPath);

// Writes to listPath "alignment: surface" for every surface of every
// alignment's cross sections, each combination once, in document order.
// Fails with outputUnwritable.
Outcome listLandXmlSurfaces(const std::string& entrada, const std::string& listPath);

// The handler that gathers the names listLandXmlSurfaces writes, for a caller that
// reads the document itself, alone or together with other handlers.
// Another element than CrossSectSurf may be listed alike: the
// DesignCrossSectSurf of Civil 3D corridors, which no conversion reads.
std::unique_ptr<NameLister> makeSurfaceLister(std::string_view surfaceElement = "CrossSectSurf");

}  // namespace quelcnv
