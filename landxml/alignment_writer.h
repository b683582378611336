// Alignments written as LandXML: a RUXO alignment file's key points as the
// Line, Curve and Spiral elements of one Alignment, named after the output
// file.
#pragma once

#include <string>

#include "common/outcome.h"
#include "landxml/landxml_document.h"

namespace quelcnv {

// Writes the RUXO alignment file entrada as the LandXML document salida.
// Fails with the reading's failure (salida not created) when entrada cannot
// be read or holds no record, and with outputUnwritable.
Outcome convertRuxoAlignmentToLandXml(const std::string& entrada, const std::string& salida,
                                      const Clock& clock = localNow);

// The tangent lengths of a clothoid of that length and parameter whose
// curved end has that radius (signed), from the series the documents have
// always been written with.
struct ClothoidTangents {
    double tanLong = 0.0;
    double tanShort = 0.0;
};
ClothoidTangents clothoidTangents(double length, double parameter, double curvedRadius);

}  // namespace quelcnv
