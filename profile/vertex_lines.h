// Reading the vertex lines of a profile file with a fixed number of fields
// per vertex (the five-column VELM file, the ISTRAM listing).
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "common/outcome.h"
#include "profile/profile_vertex.h"

namespace quelcnv {

// Makes a vertex of the first fields of a line.
using VertexOfFields = ProfileVertex (*)(std::span<const std::string_view> fields);

// Appends a vertex for every line of the file that has at least fieldCount
// fields separated by blanks, tabs or line feeds; empty lines and comment
// lines ("#") are skipped. The read that meets the end of the file is not
// used: a last line without a line break is lost. The vertices are bounded
// by the file's line count, taken before reading: a vertex past it fails the
// reading with `rejected` (the file grew meanwhile). Fails with
// inputUnreadable when the file cannot be opened or read.
Outcome readVertexLines(const std::string& path, std::size_t fieldCount, VertexOfFields vertexOf,
                        Profile& vertices);

}  // namespace quelcnv
