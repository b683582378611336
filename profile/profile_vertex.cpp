#include "profile/profile_vertex.h"

#include "common/numbers.h"
#include "common/tolerance.h"

namespace quelcnv {

double gradeBetween(const ProfileVertex& p, const ProfileVertex& q) {
    double dx = q.station - p.station;
    double dy = q.elevation - p.elevation;
    if (dx != 0.0) return dy / dx;
    return verticalGrade * signWithTolerance(dy);
}

double changeOfGrade(const Profile& vertices, std::size_t i) {
    double incoming = i > 0 ? gradeBetween(vertices[i - 1], vertices[i]) : 0.0;
    // The outgoing grade is taken from the next vertex back to this one, on
    // purpose: the quotient is the same, but at equal stations the sign of the
    // vertical grade follows this vertex's elevation minus the next one's, and
    // the curves written at such vertices depend on it.
    double outgoing = i + 1 < vertices.size() ? gradeBetween(vertices[i + 1], vertices[i]) : 0.0;
    return outgoing - incoming;
}

ProfileVertex listingVertex(std::span<const std::string_view> fields) {
    ProfileVertex vertex;
    vertex.station = parseNumber(fields[0]);
    vertex.elevation = parseNumber(fields[1]);
    vertex.grade = parseNumber(fields[6]) / 100.0;
    vertex.kv = parseNumber(fields[7]);
    return vertex;
}

}  // namespace quelcnv
