// The selection list: the names a LandXML selection offers the host, one a
// line, in the scratch file "$$$$.EJE".
#pragma once

#include <string>
#include <vector>

#include "common/outcome.h"

namespace quelcnv {

// Writes each name with "%s\n". Fails with outputUnwritable.
Outcome writeSelectionList(const std::vector<std::string>& names, const std::string& path);

}  // namespace quelcnv
