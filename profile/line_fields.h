// Taking the fields of a profile or superelevation line.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace quelcnv {

// A line whose first character is "#".
bool isCommentLine(std::string_view line);

// The first `count` tokens of a line (fewer when the line has fewer), split
// as strtok splits: runs of separators count as one, and no token is empty.
std::vector<std::string_view> leadingFields(std::string_view line, std::string_view separators,
                                            std::size_t count);

}  // namespace quelcnv
