#include "alignment/alignment_record.h"

namespace quelcnv {

std::int32_t elementTypeOf(double parameter, double radius) {
    if (parameter != 0.0) return clothoidElement;
    if (radius != 0.0) return arcElement;
    return straightElement;
}

}  // namespace quelcnv
