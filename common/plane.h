// Points and straight lines in the plane, with the library's slope rule.
#pragma once

namespace quelcnv {

struct PlanePoint {
    double x = 0.0;
    double y = 0.0;
};

// A line as y = slope * x + intercept.
struct LineEquation {
    double slope;
    double intercept;
};

// The slope given to a vertical line: deliberately a finite value rather than
// a special case, since the positions written from intersections depend on it
// to the fourth decimal.
inline constexpr double verticalSlope = 9000000000.0;

// The line through a and b: slope (b.y - a.y) / (b.x - a.x) when the x values
// differ by 0.0001 or more, else the vertical slope; intercept a.y - a.x * slope.
LineEquation lineThrough(PlanePoint a, PlanePoint b);

// Whether p lies on the line through a and b. When a.x and b.x differ by 0.001
// or more, p must be within 0.0001 of the line's y at p.x; otherwise (a
// vertical line) p.x must be within 0.001 of a.x. The mix of tolerances is
// deliberate.
bool onLine(PlanePoint a, PlanePoint b, PlanePoint p);

// Whether p lies on the line through a and b and inside the segment's box,
// widened by 0.0001.
bool onSegment(PlanePoint a, PlanePoint b, PlanePoint p);

}  // namespace quelcnv
