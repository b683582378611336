// Reading a NEVO alignment file back into plan geometry: the element form
// ("START", then "STRAIGHT", "SPIRAL", "ARC" lines) and the intersection-point
// form ("START", then "PT" lines, each curve fitted between its tangents).
#pragma once

#include <string>
#include <vector>

#include "alignment/plan_geometry.h"

namespace quelcnv {

// The alignment of a NEVO alignment file, in either form; empty when it is
// neither, or cannot be read.
std::vector<PlanElement> readNevoAlignment(const std::string& path);

}  // namespace quelcnv
