#include "common/plane.h"

#include <cmath>

#include "common/tolerance.h"

namespace quelcnv {

LineEquation lineThrough(PlanePoint a, PlanePoint b) {
    double slope = verticalSlope;
    if (std::fabs(b.x - a.x) >= pointTolerance) slope = (b.y - a.y) / (b.x - a.x);
    return {slope, a.y - a.x * slope};
}

bool onLine(PlanePoint a, PlanePoint b, PlanePoint p) {
    if (std::fabs(a.x - b.x) >= stationTolerance) {
        LineEquation line = lineThrough(a, b);
        return std::fabs(line.slope * p.x + line.intercept - p.y) < pointTolerance;
    }
    return std::fabs(a.x - p.x) < stationTolerance;
}

bool onSegment(PlanePoint a, PlanePoint b, PlanePoint p) {
    return onLine(a, b, p) && isBetween(a.x, p.x, b.x, pointTolerance) &&
           isBetween(a.y, p.y, b.y, pointTolerance);
}

}  // namespace quelcnv
