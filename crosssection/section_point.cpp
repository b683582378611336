#include "crosssection/section_point.h"

#include <cmath>

#include "common/numbers.h"
#include "common/tolerance.h"

namespace quelcnv {

int compareByOffsetAndCode(const SectionPoint& a, const SectionPoint& b) {
    std::int32_t codeA = parseWhole(a.code), codeB = parseWhole(b.code);
    bool sameOffset = std::fabs(a.offset - b.offset) < stationTolerance;
    if (sameOffset && codeA == codeB) return 0;
    if (a.offset < b.offset) return -1;
    if (!sameOffset) return 1;
    return codeA <= codeB ? 1 : -1;
}

int compareByStationAndOffset(const SectionPointText& a, const SectionPointText& b) {
    bool sameStation = std::fabs(a.station - b.station) < stationTolerance;
    if (sameStation && std::fabs(a.offset - b.offset) < stationTolerance) return 0;
    if (a.station < b.station) return -1;
    if (!sameStation) return 1;
    return a.offset >= b.offset ? 1 : -1;
}

}  // namespace quelcnv
