// Splitting a line into tokens with the rules of C's strtok, but re-entrant
// and without touching the line.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "common/numbers.h"

namespace quelcnv {

// Hands out the tokens of a text one by one:
// - leading separators are skipped, so runs of separators count as one;
// - a token ends at the next separator, which is consumed with it;
// - every call may name another set of separators (as strtok allows);
// - once no token is left, every later call finds none.
// The text must outlive the tokenizer; the tokens point into it.
class Tokenizer {
public:
    explicit Tokenizer(std::string_view text) : text_(text) {}

    std::optional<std::string_view> next(std::string_view separators);
    // The text after the last token and the separator that ended it, unsplit.
    std::string_view rest() const { return text_.substr(position_); }

private:
    std::string_view text_;
    std::size_t position_ = 0;
};

// Separator sets used across the converters.
inline constexpr std::string_view blanksAndTabs = " \t";
inline constexpr std::string_view blanksTabsAndNewlines = " \t\n";

// The first count tokens of a text (fewer when it has fewer).
std::vector<std::string_view> leadingFields(std::string_view text, std::string_view separators,
                                            std::size_t count);

// A line whose first character is "#": a comment in many of the formats.
bool isCommentLine(std::string_view line);

// The next count tokens, or nothing when one is missing.
template <std::size_t count>
std::optional<std::array<std::string_view, count>> nextTokens(Tokenizer& tokens,
                                                              std::string_view separators) {
    std::array<std::string_view, count> fields;
    for (std::string_view& field : fields) {
        auto token = tokens.next(separators);
        if (!token) return std::nullopt;
        field = *token;
    }
    return fields;
}

// The next count tokens read as numbers (text that is no number reads 0), or
// nothing when a token is missing.
template <std::size_t count>
std::optional<std::array<double, count>> nextNumbers(Tokenizer& tokens,
                                                     std::string_view separators) {
    auto fields = nextTokens<count>(tokens, separators);
    if (!fields) return std::nullopt;
    std::array<double, count> values;
    for (std::size_t i = 0; i < count; ++i) values[i] = parseNumber((*fields)[i]);
    return values;
}

}  // namespace quelcnv
