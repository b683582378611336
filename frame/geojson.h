// A model in plan as GeoJSON: alignments as sampled LineStrings, points as
// Points, in the file's plane coordinates as they stand.
#pragma once

#include <optional>
#include <string>

#include "frame/file_models.h"

namespace quelcnv {

// The FeatureCollection of a model of alignments or points (UTF-8), each
// alignment sampled at most `spacing` apart along its curves; nothing for a
// model of another kind.
std::optional<std::string> modelGeoJson(const FileModel& model, double spacing);

// UTF-8 text as a JSON string, quoted, with quotes, backslashes and control
// characters escaped.
std::string jsonString(std::string_view utf8);

}  // namespace quelcnv
