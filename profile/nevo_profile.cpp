#include "profile/nevo_profile.h"

#include "common/output_file.h"

namespace quelcnv {

Outcome writeNevoProfile(const Profile& vertices, const std::string& salida) {
    if (vertices.empty()) return Outcome::failed(Failure::noData);
    OutputFile out;
    if (!out.open(salida)) return Outcome::failed(Failure::outputUnwritable);
    const ProfileVertex& first = vertices.front();
    out.print("%0.3lf, %0.3lf, 0.000\n"_fmt, first.station, first.elevation);
    for (std::size_t i = 1; i + 1 < vertices.size(); ++i) {
        const ProfileVertex& inner = vertices[i];
        out.print("%0.3lf, %0.3lf, %0.3lf\n"_fmt, inner.station, inner.elevation,
                  2.0 * inner.tangent);
    }
    // No line break after the last vertex, deliberately: the profile files the
    // collectors load have always ended this way.
    const ProfileVertex& last = vertices.back();
    out.print("%0.3lf, %0.3lf, 0.000"_fmt, last.station, last.elevation);
    return withCount(out.complete(), &Written::vertices, vertices.size());
}

}  // namespace quelcnv
