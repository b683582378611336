// A NEVO observation list re-columned into the Medrix observation layout.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Reads entrada (station, point, horizontal and vertical angle, slope
// distance, the two heights and an optional code per line) and writes one
// Medrix line per complete line to salida. Fails with inputUnreadable
// (writing nothing) when entrada cannot be opened or read, with
// outputUnwritable when salida cannot be written.
Outcome convertNevoToMedrix(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
