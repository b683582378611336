// Importer of the HTRAZADO alignment file into the RUXO alignment file. This
// version reads the file but converts nothing: the RUXO file it writes holds
// no record.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Reads entrada to its end and writes salida as an empty RUXO alignment file.
// Fails with inputUnreadable, leaving salida untouched, when entrada cannot be
// opened or read, and with outputUnwritable when salida cannot be written.
Outcome importHtrazadoAlignment(const std::string& entrada, const std::string& salida);

}  // namespace quelcnv
