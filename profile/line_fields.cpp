#include "profile/line_fields.h"

#include "common/tokenizer.h"

namespace quelcnv {

bool isCommentLine(std::string_view line) { return !line.empty() && line.front() == '#'; }

std::vector<std::string_view> leadingFields(std::string_view line, std::string_view separators,
                                            std::size_t count) {
    std::vector<std::string_view> fields;
    Tokenizer tokens(line);
    while (fields.size() < count) {
        auto token = tokens.next(separators);
        if (!token) break;
        fields.push_back(*token);
    }
    return fields;
}

}  // namespace quelcnv
