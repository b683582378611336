#include "common/tokenizer.h"

namespace quelcnv {

std::optional<std::string_view> Tokenizer::next(const Separators& separators) {
    const char* begin = text_.data();
    const char* end = begin + text_.size();
    const char* start = begin + position_;
    while (start < end && separators.has(*start)) ++start;
    if (start == end) {
        position_ = text_.size();
        return std::nullopt;
    }
    const char* stop = start + 1;
    while (stop < end && !separators.has(*stop)) ++stop;
    position_ = static_cast<std::size_t>(stop - begin) + (stop < end ? 1 : 0);
    return std::string_view(start, static_cast<std::size_t>(stop - start));
}

bool Tokenizer::nextNumber(const Separators& separators, double& value) {
    std::size_t start = position_;
    while (start < text_.size() && separators.has(text_[start])) ++start;
    if (start < text_.size() && !separators.cutsNumbers()) {
        NumberScan simple = scanSimpleNumber(text_.substr(start));
        std::size_t stop = start + simple.length;
        // The number is the whole token when a separator or the end follows.
        if (simple.length > 0 && (stop == text_.size() || separators.has(text_[stop]))) {
            position_ = stop < text_.size() ? stop + 1 : stop;
            value = simple.value;
            return true;
        }
    }
    position_ = start;
    std::optional<std::string_view> token = next(separators);
    if (!token) return false;
    value = parseNumber(*token);
    return true;
}

std::vector<std::string_view> leadingFields(std::string_view text, const Separators& separators,
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
