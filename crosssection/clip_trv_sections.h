// Importer of CLIP TRV cross-section files into the RUXO cross-section file:
// an optional "*TRV" header of two lines, then sections of a header
// "station , count" and that many point lines "offset,elevation[,code]".
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Fails with rejected when a line before the first section starts with "*"
// but not with "*TRV".
Outcome importClipTrvSections(const std::string& entrada, const std::string& ruxoPath);

}  // namespace quelcnv
