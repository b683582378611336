// A vertical profile evaluated: the grade line between the vertices, with a
// symmetric parabola at each vertex that carries a curve.
#pragma once

#include <optional>
#include <vector>

#include "profile/profile_vertex.h"

namespace quelcnv {

// The parabola at one vertex: from the station `tangent` before it to the
// station `tangent` after, leaving the incoming grade for the outgoing one.
struct VerticalCurve {
    std::size_t vertex = 0;  // index of its vertex in the profile
    double startStation = 0.0;
    double startElevation = 0.0;
    double gradeIn = 0.0, gradeOut = 0.0;  // ratios
    double length = 0.0;                   // twice the tangent

    double endStation() const { return startStation + length; }
    double elevationAt(double station) const;
    double gradeAt(double station) const;
};

// The curves of a profile: one at each vertex between two others whose
// tangent is positive and finite, and whose grades are not vertical.
std::vector<VerticalCurve> verticalCurves(const Profile& vertices);

struct ProfilePoint {
    double elevation = 0.0;
    double grade = 0.0;  // ratio
};

// The elevation and grade at a station between the first vertex and the
// last; nothing outside them. Where curves overlap, the first one counts.
std::optional<ProfilePoint> profileAt(const Profile& vertices, double station);

}  // namespace quelcnv
