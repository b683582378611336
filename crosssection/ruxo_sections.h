// The two line layouts of cross-section points: the RUXO file (blank or tab
// separated, written by the importers) and the NEVO file (comma separated).
// One point per line; a section is the run of lines sharing one station.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// RUXO to NEVO: "%0.3lf,%0.3lf,%0.3lf" and ",code" when the line has a code
// word. A line with fewer than three fields gives nothing, and a last line
// without a line break is never converted, on purpose. Line by line: memory
// does not grow with the input.
Outcome ruxoSectionsToNevo(const std::string& entrada, const std::string& salida);

// Comma-separated points to fixed-width lines "%8.3lf %8.3lf %8.3lf %s", the
// code being everything after the third comma but its last character (the
// line break; on a last line without one, the code's own last character).
Outcome commaSectionsToFixedWidth(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
