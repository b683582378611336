// What the command adds to the LandXML conversions: an alignment chosen by
// its name, and the document's names and units from the library's
// recogniser.
#pragma once

#include <optional>
#include <string>

#include "frame/recognition.h"

namespace quelcnv::cli {

// The names the three selection lists would offer; nothing when the file
// cannot be read or is no LandXML document.
std::optional<LandXmlContents> readContents(const std::string& path);

// The alignment's index for a name (in the library's code page) given in
// place of selec; nothing when the document has no alignment of that name.
std::optional<int> alignmentIndex(const std::string& path, const std::string& name);

}  // namespace quelcnv::cli
