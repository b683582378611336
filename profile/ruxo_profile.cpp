#include "profile/ruxo_profile.h"

#include <cmath>
#include <optional>
#include <string_view>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

// Station, elevation and curve length, the first three comma-separated parts
// (runs of commas count as one); further parts are not used.
std::optional<ProfileVertex> parseVertex(std::string_view line) {
    std::vector<std::string_view> fields = leadingFields(line, ",", 3);
    if (fields.size() < 3) return std::nullopt;
    ProfileVertex vertex;
    vertex.station = parseNumber(fields[0]);
    vertex.elevation = parseNumber(fields[1]);
    vertex.tangent = parseNumber(fields[2]) * 0.5;
    return vertex;
}

void writeEnd(OutputFile& out, const ProfileVertex& vertex) {
    out.print("%0.3lf\t%0.3lf\t0.000\t0.000\t0.000\n"_fmt, vertex.station, vertex.elevation);
}

// kv is the curve length over the change of grade: without a change it is
// infinite (or not a number with no curve either) and printed as the C
// runtime prints such values.
void writeInner(OutputFile& out, const Profile& vertices, std::size_t i) {
    const ProfileVertex& vertex = vertices[i];
    double change = changeOfGrade(vertices, i);
    double kv = std::fabs(2.0 * vertex.tangent / change);
    double external = std::fabs(change * vertex.tangent * 0.25);
    out.print("%0.3lf\t%0.3lf\t%0.3lf\t%0.3lf\t%0.3lf\n"_fmt, vertex.station, vertex.elevation, kv,
              vertex.tangent, external);
}

}  // namespace

ProfileRead readRuxoProfile(const std::string& path) {
    ProfileRead profile;
    LineReader reader;
    if (!reader.open(path)) {
        profile.outcome = Outcome::failed(Failure::inputUnreadable);
        return profile;
    }
    profile.vertices.reserve(linesAhead(reader));
    // Every read is converted, the one that meets the end of the file too.
    // A read that finds nothing left leaves the previous line in the buffer,
    // already cut at its first comma: it never gives a vertex, so it ends
    // the reading.
    std::string line;
    while (readLineThroughEnd(reader, line)) {
        if (std::optional<ProfileVertex> vertex = parseVertex(line))
            profile.vertices.push_back(*vertex);
    }
    if (reader.readFailed()) profile.outcome = Outcome::failed(Failure::inputUnreadable);
    return profile;
}

Outcome convertRuxoProfileToVertexFile(const std::string& entrada, const std::string& salida) {
    ProfileRead profile = readRuxoProfile(entrada);
    if (!profile.outcome.ok()) return profile.outcome;
    const Profile& vertices = profile.vertices;
    if (vertices.empty()) return Outcome::failed(Failure::noData);
    OutputFile out;
    if (!out.open(salida)) return Outcome::failed(Failure::outputUnwritable);
    writeEnd(out, vertices.front());
    for (std::size_t i = 1; i + 1 < vertices.size(); ++i) writeInner(out, vertices, i);
    writeEnd(out, vertices.back());
    return withCount(out.complete(), &Written::vertices, vertices.size());
}

}  // namespace quelcnv
