// The event reader over expat (every platform but Windows).
#pragma once

#include <cstddef>
#include <string>

#include "landxml/sax_reader.h"

namespace quelcnv {

// runSaxParse, feeding expat the file in chunks of chunkSize bytes (0: the
// usual size). The handler must see the same events whatever the size.
SaxResult parseWithExpat(SaxHandler& handler, const std::string& path, std::size_t chunkSize);

}  // namespace quelcnv
