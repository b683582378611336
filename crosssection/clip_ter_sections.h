// Importer of CLIP TER cross-section files into the RUXO cross-section file.
// A section is a pair of fixed-column lines: the distance line (station in
// columns 12-20, offsets) and the elevation line right after it (elevation
// at the alignment in columns 13-20, elevations), with ten points in
// 8-character fields starting at the same columns in both.
#pragma once

#include <string>

#include "common/outcome.h"

namespace quelcnv {

Outcome importClipTerSections(const std::string& entrada, const std::string& ruxoPath);

}  // namespace quelcnv
