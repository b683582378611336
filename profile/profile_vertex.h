// The vertex of a vertical profile and the change of grade at it, the one
// rule every profile converter computes its vertical curves with.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "common/outcome.h"

namespace quelcnv {

// One vertex of the grade line. Lengths in metres; grades as ratios, so
// 2 % is 0.02. The first and the last vertex carry no curve.
struct ProfileVertex {
    double station = 0.0;
    double elevation = 0.0;
    double kv = 0.0;        // parabola parameter: curve length over the change of grade
    double tangent = 0.0;   // half the vertical-curve length
    double external = 0.0;  // sag of the curve at the vertex
    double grade = 0.0;     // grade of the straight leaving the vertex (listings only)
};

using Profile = std::vector<ProfileVertex>;

// The vertices a profile file holds, or why they could not be read.
struct ProfileRead {
    Outcome outcome;
    Profile vertices;
};

// The grade that a vertical straight stands for: two vertices at the same
// station with different elevations.
inline constexpr double verticalGrade = 100000000.0;

// The grade from vertex p to vertex q: rise over run. At exactly the same
// station, verticalGrade times the sign of the rise, a rise within 0.0001
// counting as none.
double gradeBetween(const ProfileVertex& p, const ProfileVertex& q);

// The change of grade at vertex i: outgoing minus incoming, each 0 where
// vertex i has no neighbour on that side.
double changeOfGrade(const Profile& vertices, std::size_t i);

// The vertex of an ISTRAM or ISPOL listing line from its fields: 1 station,
// 2 elevation, 3 to 6 not used, 7 grade in percent, 8 kv. At least eight
// fields.
ProfileVertex listingVertex(std::span<const std::string_view> fields);

}  // namespace quelcnv
