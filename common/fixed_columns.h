// Cutting fixed columns out of a line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quelcnv {

// The text of a line from the 1-based column on, cut after count characters
// (the rest of the line when it is shorter). No result when count is below 1
// or column below 1; a column past the end of the line gives an empty text.
std::optional<std::string> midText(std::string_view line, int column, int count);

}  // namespace quelcnv
