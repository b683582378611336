// Importer of the CartoMAP profile file (lines "INICIO", "VERTICE" or
// "FINAL" followed by station, elevation and kv) into the VELM profile file.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Reads entrada and writes the VELM profile file salida. Fails with
// inputUnreadable when entrada cannot be opened or read, with noData
// (creating nothing) when it holds no vertex line, and with outputUnwritable
// when salida cannot be written.
Outcome convertCartomapProfileToVelm(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
