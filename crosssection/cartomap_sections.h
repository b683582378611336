// Importer of CartoMAP cross-section listings into the RUXO cross-section
// file, in either of its two layouts: "PK" headers with offset, elevation
// lines, or (when the first line holds "Distancia") kilometre+metre station
// headers with five-column point lines ending in a code.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Writes salida directly, sorted by station and offset. Fails, writing
// nothing, when entrada cannot be opened.
Outcome importCartomapSections(const std::string& entrada, const std::string& salida);

// A station written as kilometres "+" metres ("1+234.5" is 1234.5); without
// "+", the number is taken as kilometres (so a title word reads as 0).
double cartomapStation(std::string_view text);

}  // namespace quelcnv
