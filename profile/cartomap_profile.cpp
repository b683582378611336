#include "profile/cartomap_profile.h"

#include <cmath>
#include <optional>
#include <string_view>

#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/tokenizer.h"
#include "profile/velm_profile.h"

namespace quelcnv {

namespace {

// Shorter lines never hold a vertex.
constexpr std::size_t shortestVertexLine = 10;

// The keyword names the first, an inner or the last vertex, but the
// vertices are taken in file order whatever it says.
bool isVertexKeyword(std::string_view word) {
    return word == "INICIO" || word == "VERTICE" || word == "FINAL";
}

// A keyword and three more words: station, elevation and kv.
std::optional<ProfileVertex> parseVertex(std::string_view line) {
    if (line.size() < shortestVertexLine) return std::nullopt;
    std::vector<std::string_view> words = leadingFields(line, blanksTabsAndNewlines, 4);
    if (words.size() < 4 || !isVertexKeyword(words[0])) return std::nullopt;
    ProfileVertex vertex;
    vertex.station = parseNumber(words[1]);
    vertex.elevation = parseNumber(words[2]);
    vertex.kv = parseNumber(words[3]);
    return vertex;
}

// The read that meets the end of the file is not used.
Outcome readVertices(const std::string& path, Profile& vertices) {
    LineReader reader;
    if (!reader.open(path)) return Outcome::failed(Failure::inputUnreadable);
    vertices.reserve(linesAhead(reader));
    std::string line;
    while (readLineBeforeEnd(reader, line)) {
        if (std::optional<ProfileVertex> vertex = parseVertex(line)) vertices.push_back(*vertex);
    }
    if (reader.readFailed()) return Outcome::failed(Failure::inputUnreadable);
    return Outcome::done();
}

// Every vertex but the first gets the curve of its kv and change of grade.
// The last one too, on purpose: its change is the incoming grade alone, so
// a "FINAL" line with a kv gets a tangent. kv is written as its absolute value.
void setCurves(Profile& vertices) {
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        ProfileVertex& vertex = vertices[i];
        double change = i == 0 ? 0.0 : changeOfGrade(vertices, i);
        vertex.tangent = std::fabs(change * vertex.kv * 0.5);
        vertex.external = std::fabs(change * vertex.tangent * 0.25);
    }
    for (ProfileVertex& vertex : vertices) vertex.kv = std::fabs(vertex.kv);
}

}  // namespace

Outcome convertCartomapProfileToVelm(const std::string& entrada, const std::string& salida) {
    Profile vertices;
    Outcome read = readVertices(entrada, vertices);
    if (!read.ok()) return read;
    if (vertices.empty()) return Outcome::failed(Failure::noData);
    setCurves(vertices);
    return writeVelmProfile(vertices, salida);
}

}  // namespace quelcnv
