#include "common/fixed_columns.h"

namespace quelcnv {

std::optional<std::string> midText(std::string_view line, int column, int count) {
    if (count < 1 || column < 1) return std::nullopt;
    std::size_t start = static_cast<std::size_t>(column - 1);
    if (start >= line.size()) return std::string();
    return std::string(line.substr(start, static_cast<std::size_t>(count)));
}

}  // namespace quelcnv
