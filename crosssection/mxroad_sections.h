// Importer of MXROAD cross-section files into the RUXO cross-section file:
// a title line, then sections of a header (station, point count) followed
// by pairs offset, elevation, one or several to a line. Every point gets the
// code "MOS".
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Fails, writing nothing, when entrada cannot be opened or is empty, when a
// line leaves an offset without its elevation, when the points outgrow the
// table of seven per line of the file, and when the file ends before a
// section has all its points.
Outcome importMxroadSections(const std::string& entrada, const std::string& ruxoPath);

}  // namespace quelcnv
