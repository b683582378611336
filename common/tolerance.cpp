#include "common/tolerance.h"

namespace quelcnv {

int signWithTolerance(double value) {
    if (value < -pointTolerance) return -1;
    if (value > pointTolerance) return 1;
    return 0;
}

OrderedPair orderPair(double a, double b) {
    if (b < a) return {b, a};
    return {a, b};
}

bool isBetween(double a, double v, double b, double tolerance) {
    OrderedPair range = orderPair(a, b);
    return range.low - tolerance <= v && v <= range.high + tolerance;
}

}  // namespace quelcnv
