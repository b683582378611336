// An alignment in plan as geometry: elements whose curvature runs linearly
// along them (straights, arcs, clothoids), evaluated at any station and
// offset. Clothoids are integrated exactly to well below a micrometre (a
// Gauss-Legendre rule on short panels), never by coarse steps. The
// converters' own quirky evaluations (the clothoid series with its
// deliberate divisor, the radial end azimuth) stay with the converters.
#pragma once

#include <optional>
#include <vector>

#include "alignment/alignment_record.h"
#include "common/plane.h"

namespace quelcnv {

// One element: it starts at `start` heading `azimuth` (radians, from the y
// axis towards the x axis) and its curvature goes linearly from k0 to k1
// over its length. A positive curvature turns towards growing azimuths.
struct PlanElement {
    ElementKind kind = ElementKind::straight;
    double station = 0.0;
    PlanePoint start;
    double azimuth = 0.0;
    double k0 = 0.0;
    double k1 = 0.0;
    double length = 0.0;

    // The curvature at distance s from the start.
    double curvatureAt(double s) const;
    // The heading at distance s from the start, radians.
    double headingAt(double s) const;
};

struct PlanPose {
    PlanePoint point;
    double azimuth = 0.0;  // radians
    double curvature = 0.0;
};

// The point, heading and curvature at distance s from the element's start.
PlanPose poseAt(const PlanElement& element, double s);

// The element's points every `spacing` metres or closer, at most 5000 of
// them (straights: both ends).
std::vector<PlanePoint> samplePoints(const PlanElement& element, double spacing = 1.0);

// The pose at a station of the alignment, moved `offset` across it
// (positive to the right of the direction of travel); nothing outside it.
// At a station shared by two elements, the later one gives the pose.
std::optional<PlanPose> poseAtStation(const std::vector<PlanElement>& elements, double station,
                                      double offset = 0.0);

// Elements between consecutive RUXO records. A clothoid's curvature starts
// where the element before it ended and ends at 1/radius (0 when its radius
// is 0: it runs out onto a straight).
std::vector<PlanElement> elementsFromRecords(const std::vector<AlignmentRecord>& records);

// The curvature of a signed radius; 0 for a radius of 0 (a straight).
double curvatureOf(double radius);

}  // namespace quelcnv
