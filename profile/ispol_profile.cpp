#include "profile/ispol_profile.h"

#include <cmath>
#include <optional>
#include <string_view>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/tokenizer.h"
#include "profile/nevo_profile.h"

namespace quelcnv {

namespace {

// Fields 1 station, 2 elevation, 3 to 6 not used, 7 grade in percent of the
// straight arriving at the vertex, 8 kv. Nothing when a field is missing.
std::optional<ProfileVertex> parseVertex(std::string_view line) {
    std::vector<std::string_view> fields = leadingFields(line, blanksTabsAndNewlines, 8);
    if (fields.size() < 8) return std::nullopt;
    return listingVertex(fields);
}

// Skips the header lines; the line after them is left in `line`.
void skipHeader(LineReader& reader, std::string& line) {
    while (reader.read(line) != ReadStatus::nothing && isCommentLine(line)) {
    }
}

// The vertex block: from the line after the header to the next comment line
// or the end of the file. A line is used only when its read did not meet the
// end of the file, so a last line without a line break is lost. A line with
// fewer than eight fields ends the block.
Profile readVertexBlock(LineReader& reader, std::size_t capacity) {
    Profile vertices;
    std::string line;
    skipHeader(reader, line);
    while (!reader.atEnd() && vertices.size() < capacity) {
        std::optional<ProfileVertex> vertex = parseVertex(line);
        if (!vertex) break;
        vertices.push_back(*vertex);
        reader.read(line);
        if (isCommentLine(line)) break;
    }
    return vertices;
}

// Each vertex takes the grade read on the next line, so that it holds the
// grade of the straight leaving it; the last one gets 0. Then the curve of
// every inner vertex follows from its kv and the change of grade.
void completeVertices(Profile& vertices) {
    for (std::size_t i = 0; i < vertices.size(); ++i)
        vertices[i].grade = i + 1 < vertices.size() ? vertices[i + 1].grade : 0.0;
    for (std::size_t i = 1; i + 1 < vertices.size(); ++i) {
        ProfileVertex& vertex = vertices[i];
        double change = vertex.grade - vertices[i - 1].grade;
        vertex.tangent = std::fabs(change * vertex.kv * 0.5);
        vertex.external = std::fabs(vertex.tangent * change * 0.25);
    }
}

}  // namespace

ProfileRead readIspolProfile(const std::string& path) {
    // The vertex table holds twice the line count, as the listing's readers size it.
    const std::size_t capacity = 2 * static_cast<std::size_t>(countLines(path));
    LineReader reader;
    if (!reader.open(path)) return {Outcome::failed(Failure::inputUnreadable), {}};
    Profile vertices = readVertexBlock(reader, capacity);
    if (reader.readFailed()) return {Outcome::failed(Failure::inputUnreadable), {}};
    completeVertices(vertices);
    return {Outcome::done(), std::move(vertices)};
}

Outcome convertIspolProfileToNevo(const std::string& entrada, const std::string& salida) {
    ProfileRead read = readIspolProfile(entrada);
    if (!read.outcome.ok()) return read.outcome;
    return writeNevoProfile(read.vertices, salida);
}

}  // namespace quelcnv
