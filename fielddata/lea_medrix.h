// A LEA survey file (stations and the points observed from them) written as
// a Medrix observation file and its code file.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Reads entrada and writes the observations to salida and the point codes to
// the same path with the extension "cod". Fails with inputUnreadable when
// entrada cannot be opened or read, with noData (writing nothing) when it
// holds no observation from a station, and with outputUnwritable when salida
// cannot be written. A code file that cannot be written is left out and the
// conversion is still done.
Outcome convertLeaToMedrix(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
