// Importer of ISTRAM and ISPOL cross-section files into the RUXO
// cross-section file: a section record (first field 4, the fifth the
// station), a line of point counts, then the left and the right points as
// pairs distance, elevation.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

// Fails with inputUnreadable when entrada cannot be opened, and with rejected
// when a section's counts are negative or more than the file could hold, or
// its lines carry more pairs than twice its counts. A section whose counts
// are both zero adds nothing.
Outcome importIstramSections(const std::string& entrada, const std::string& ruxoPath);

}  // namespace quelcnv
