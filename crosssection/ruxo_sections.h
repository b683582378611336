// The two line layouts of cross-section points: the RUXO file (blank or tab
// separated, written by the importers) and the NEVO file (comma separated).
// One point per line; a section is the run of lines sharing one station.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "common/outcome.h"
#include "crosssection/section_point.h"

namespace quelcnv {

// RUXO to NEVO: "%0.3lf,%0.3lf,%0.3lf" and ",code" when the line has a code
// word. A line with fewer than three fields gives nothing, and a last line
// without a line break is never converted, as the NEVO files made from RUXO
// files have always left it out. Line by line: memory
// does not grow with the input.
Outcome convertRuxoSectionsToNevo(const std::string& entrada, const std::string& salida);

// Comma-separated points to fixed-width lines "%8.3lf %8.3lf %8.3lf %s", the
// code being everything after the third comma but its last character (the
// line break; on a last line without one, the code's own last character).
Outcome convertCommaSectionsToFixedWidth(const std::string& entrada, const std::string& salida);

// The point of a RUXO line: station, offset and elevation, then the code
// word if there is one, separated by blanks, tabs or line breaks. Nothing for
// a line with fewer than three fields.
std::optional<SectionPointText> ruxoSectionPoint(std::string_view line);

// The point of a comma-separated line, its code being everything after the
// third comma but its last character. Nothing for fewer than three fields.
std::optional<SectionPointText> commaSectionPoint(std::string_view line);

// Each point of a RUXO cross-section file handed to `each` as it is read, by
// the rules of convertRuxoSectionsToNevo; fails with inputUnreadable.
using EachPoint = std::function<void(const SectionPointText&)>;
Outcome readRuxoSections(const std::string& path, const EachPoint& each);

// The same for a comma-separated file, by the rules of
// convertCommaSectionsToFixedWidth.
Outcome readCommaSections(const std::string& path, const EachPoint& each);

}  // namespace quelcnv
