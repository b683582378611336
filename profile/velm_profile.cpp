#include "profile/velm_profile.h"

#include <optional>
#include <span>
#include <string_view>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"
#include "profile/ispol_profile.h"
#include "profile/nevo_profile.h"
#include "profile/vertex_lines.h"

namespace quelcnv {

namespace {

enum class Layout { fiveColumns, ispolListing };

// The first line decides: "#" starts an ISPOL listing. An empty file reads
// as five columns (and holds no vertex). Nothing when it cannot be opened.
std::optional<Layout> layoutOf(const std::string& path) {
    LineReader reader;
    if (!reader.open(path)) return std::nullopt;
    std::string firstLine;
    reader.read(firstLine);
    return isCommentLine(firstLine) ? Layout::ispolListing : Layout::fiveColumns;
}

// Station, elevation, kv, tangent and external; only station, elevation and
// tangent reach the NEVO file.
ProfileVertex vertexOfColumns(std::span<const std::string_view> fields) {
    ProfileVertex vertex;
    vertex.station = parseNumber(fields[0]);
    vertex.elevation = parseNumber(fields[1]);
    vertex.kv = parseNumber(fields[2]);
    vertex.tangent = parseNumber(fields[3]);
    vertex.external = parseNumber(fields[4]);
    return vertex;
}

}  // namespace

ProfileRead readVelmProfile(const std::string& path) {
    std::optional<Layout> layout = layoutOf(path);
    if (!layout) return {Outcome::failed(Failure::inputUnreadable), {}};
    if (*layout == Layout::ispolListing) return readIspolProfile(path);
    ProfileRead read;
    read.outcome = readVertexLines(path, 5, vertexOfColumns, read.vertices);
    return read;
}

Outcome convertVelmProfileToNevo(const std::string& entrada, const std::string& salida) {
    ProfileRead read = readVelmProfile(entrada);
    if (!read.outcome.ok()) return read.outcome;
    return writeNevoProfile(read.vertices, salida);
}

Outcome writeVelmProfile(const Profile& vertices, const std::string& salida) {
    OutputFile out;
    if (!out.open(salida)) return Outcome::failed(Failure::outputUnwritable);
    for (const ProfileVertex& vertex : vertices) {
        out.print("%10.3lf %8.3lf %9.3lf %8.3lf %8.3lf\n"_fmt, vertex.station, vertex.elevation,
                  vertex.kv, vertex.tangent, vertex.external);
    }
    return withCount(out.complete(), &Written::vertices, vertices.size());
}

}  // namespace quelcnv
