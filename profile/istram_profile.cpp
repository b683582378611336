#include "profile/istram_profile.h"

#include <cmath>
#include <span>
#include <string_view>

#include "common/numbers.h"
#include "profile/nevo_profile.h"
#include "profile/vertex_lines.h"

namespace quelcnv {

namespace {

// The curve length of an inner vertex is |change of grade x kv|, the grades
// being those read (no shift, unlike the ISPOL listing). Half of it is kept
// as the tangent, which the NEVO writer doubles back exactly.
void setTangents(Profile& vertices) {
    for (std::size_t i = 1; i + 1 < vertices.size(); ++i) {
        ProfileVertex& vertex = vertices[i];
        double change = vertex.grade - vertices[i - 1].grade;
        vertex.tangent = std::fabs(change * vertex.kv) * 0.5;
    }
}

}  // namespace

ProfileRead readIstramProfile(const std::string& path) {
    ProfileRead read;
    read.outcome = readVertexLines(path, 8, listingVertex, read.vertices);
    if (read.outcome.ok()) setTangents(read.vertices);
    return read;
}

Outcome convertIstramProfileToNevo(const std::string& entrada, const std::string& salida) {
    ProfileRead read = readIstramProfile(entrada);
    if (!read.outcome.ok()) return read.outcome;
    return writeNevoProfile(read.vertices, salida);
}

}  // namespace quelcnv
