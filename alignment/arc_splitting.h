// Splitting the arcs of an alignment that turn through half a circle or
// more, which the NEVO forms cannot carry in one element.
#pragma once

#include <cstddef>
#include <vector>

#include "alignment/alignment_record.h"

namespace quelcnv {

// Splits every arc that turns through 200 grads or more at its middle station
// until none is left, keeping the records sorted by station; capacity bounds
// the number of records.
void splitLongArcs(std::vector<AlignmentRecord>& records, std::size_t capacity);

}  // namespace quelcnv
