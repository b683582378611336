#include "common/tokenizer.h"

namespace quelcnv {

std::optional<std::string_view> Tokenizer::next(std::string_view separators) {
    std::size_t start = text_.find_first_not_of(separators, position_);
    if (start == std::string_view::npos) {
        position_ = text_.size();
        return std::nullopt;
    }
    std::size_t end = text_.find_first_of(separators, start);
    if (end == std::string_view::npos) {
        position_ = text_.size();
        return text_.substr(start);
    }
    position_ = end + 1;
    return text_.substr(start, end - start);
}

}  // namespace quelcnv
