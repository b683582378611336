// Cross sections written as LandXML, so that our own cross-section reader
// and selection list take them back: Alignments/Alignment/CrossSects, one
// CrossSect per station with one CrossSectSurf holding the points as offset
// and elevation pairs. Point codes have no place in a PntList2D and are left
// out.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "common/outcome.h"
#include "crosssection/section_point.h"
#include "landxml/landxml_document.h"

namespace quelcnv {

// Points gathered into the sections of a document as they are read: the
// points of each station, as printed with three decimals, kept only as their
// "offset elevation" text; stations that print the same are one section, so
// that no two CrossSect elements carry the same station.
class LandXmlSections {
public:
    void add(const SectionPointText& point);
    std::size_t points() const { return points_; }

private:
    friend class LandXmlSectionsWriter;

    struct Section {
        std::string station;
        std::string pairs;
    };

    std::vector<Section> sections_;
    std::unordered_map<std::string, std::size_t> byStation_;
    double firstStation_ = 0.0;
    double lastStation_ = 0.0;
    std::size_t points_ = 0;
};

// Writes the sections as the LandXML document salida: the alignment named
// after salida's base name (its start and length from the first and last
// point read), the surface after surfaceName (a file name). One CrossSect per
// station, in the order the stations first come; offsets signed, three
// decimals. Fails with noData (salida not created) when there is no point,
// and with outputUnwritable.
Outcome writeLandXmlSections(const LandXmlSections& sections, const std::string& surfaceName,
                             const std::string& salida, const Clock& clock = localNow);

}  // namespace quelcnv
