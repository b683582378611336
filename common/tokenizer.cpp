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

std::vector<std::string_view> leadingFields(std::string_view text, std::string_view separators,
                                            std::size_t count) {
    std::vector<std::string_view> fields;
    Tokenizer tokens(text);
    while (fields.size() < count) {
        auto token = tokens.next(separators);
        if (!token) break;
        fields.push_back(*token);
    }
    return fields;
}

bool isCommentLine(std::string_view line) { return !line.empty() && line.front() == '#'; }

}  // namespace quelcnv
