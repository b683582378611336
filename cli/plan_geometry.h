// An alignment in plan as the drawings need it: elements with their
// curvature at both ends, evaluated point by point (clothoids included),
// built from RUXO records or from the two NEVO forms.
#pragma once

#include <string>
#include <vector>

#include "alignment/alignment_record.h"
#include "common/plane.h"

namespace quelcnv::cli {

enum class ElementKind { straight, arc, clothoid };

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
};

struct PlanPose {
    PlanePoint point;
    double azimuth = 0.0;  // radians
};

// The point and heading at distance s from the element's start, integrated
// along the element (Simpson's rule on steps of at most half a metre).
PlanPose poseAt(const PlanElement& element, double s);

// The element's points every `spacing` metres or closer, at most 5000 of
// them (straights: both ends).
std::vector<PlanePoint> samplePoints(const PlanElement& element, double spacing = 1.0);

// The pose at a station of the alignment; false outside it.
bool poseAtStation(const std::vector<PlanElement>& elements, double station, PlanPose& pose);

// Elements between consecutive RUXO records. A clothoid's curvature starts
// where the element before it ended and ends at 1/radius (0 when its radius
// is 0: it runs out onto a straight).
std::vector<PlanElement> elementsFromRecords(const std::vector<AlignmentRecord>& records);

// A NEVO alignment file, element form ("START", "STRAIGHT", "SPIRAL", "ARC")
// or intersection-point form ("START", "PT"); empty when it is neither.
std::vector<PlanElement> readNevoAlignment(const std::string& path);

}  // namespace quelcnv::cli
