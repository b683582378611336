// Plane geometry of alignments: azimuths in grads (400 to the full circle,
// measured from the y axis towards the x axis), points along a direction or
// on an arc, the sweep test that decides when an arc is split, and the
// meeting point of two tangents. Clothoids are never evaluated point by point.
#pragma once

#include <optional>
#include <span>

#include "alignment/alignment_record.h"
#include "common/plane.h"

namespace quelcnv {

inline constexpr double gradsToRadians = 0.015707963267948967;      // pi / 200
inline constexpr double halfGradsToRadians = 0.007853981633974483;  // pi / 400
inline constexpr double radiansToGrads = 63.66197723675814;         // 200 / pi

// The angle brought into [0, 400). A result above 399.99995 is 0: an azimuth
// a hair below a full turn is written as 0, as the collectors expect it.
double normalizeGrads(double angle);

// The point at that distance from base along the azimuth.
PlanePoint pointAlong(PlanePoint base, double distance, double azimuth);

// The same with headings in radians, as the plan geometry evaluates them:
// the heading from one point to another, and the point at a distance along
// a heading.
double headingBetween(PlanePoint from, PlanePoint to);
PlanePoint pointAtHeading(PlanePoint base, double distance, double heading);

struct ArcPoint {
    PlanePoint point;
    double azimuth = 0.0;
    double radius = 0.0;
};

// The point of an arc record at a station: a positive radius turns towards
// growing azimuths, a negative one towards falling ones.
ArcPoint pointOnArc(const AlignmentRecord& arc, double station);

// Whether an arc turns through 200 grads or more before the next record,
// judged from the two azimuths. False for anything but an arc.
bool arcSweepsHalfCircle(const AlignmentRecord& arc, const AlignmentRecord& next);

// Where the line through a1 and a2 meets the line through b1 and b2. Ends
// that are the same point meet there; a vertical line gets the fixed finite
// slope of lineThrough. No result for lines whose slopes differ by less than
// 0.0001 (two vertical lines included).
std::optional<PlanePoint> lineIntersection(PlanePoint a1, PlanePoint a2, PlanePoint b1,
                                           PlanePoint b2);

// Both coordinates differ by less than 0.0001.
bool samePoint(PlanePoint a, PlanePoint b);

// 0 for stations closer than 0.001, else -1 or 1 by station order.
int compareStations(const AlignmentRecord& a, const AlignmentRecord& b);

// The first k with station(k) <= station <= station(k + 1), or -1.
int findElement(std::span<const AlignmentRecord> records, double station);

}  // namespace quelcnv
