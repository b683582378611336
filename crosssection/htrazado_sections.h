// Importer of HTRAZADO cross-section files into the RUXO cross-section file:
// a line "PK: station" starts a section, every other line is a point
// "offset, elevation".
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Line by line, memory does not grow with the input. A line that holds no
// pair still writes a point, with the values of the last pair read (0 before
// the first), as HTRAZADO files have always been read.
Outcome importHtrazadoSections(const std::string& entrada, const std::string& ruxoPath);

}  // namespace quelcnv
