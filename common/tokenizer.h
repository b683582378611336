// Splitting a line into tokens with the rules of C's strtok, but re-entrant
// and without touching the line.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "common/numbers.h"

namespace quelcnv {

// A set of separator characters, looked up in a table of 256 entries. A literal
// ("\t ,") makes one when the program is compiled.
class Separators {
public:
    consteval Separators(const char* chars) : Separators(std::string_view(chars)) {}
    constexpr explicit Separators(std::string_view chars) {
        for (char c : chars) table_[static_cast<unsigned char>(c)] = true;
        for (char c : std::string_view("+-.0123456789")) numeric_ = numeric_ || has(c);
    }
    constexpr bool has(char c) const { return table_[static_cast<unsigned char>(c)]; }
    // Whether a sign, a point or a digit separates: a simple number may then
    // run over the end of its token.
    constexpr bool cutsNumbers() const { return numeric_; }

private:
    std::array<bool, 256> table_{};
    bool numeric_ = false;
};

// Hands out the tokens of a text one by one:
// - leading separators are skipped, so runs of separators count as one;
// - a token ends at the next separator, which is consumed with it;
// - every call may name another set of separators (as strtok allows);
// - once no token is left, every later call finds none.
// The text must outlive the tokenizer; the tokens point into it.
class Tokenizer {
public:
    explicit Tokenizer(std::string_view text) : text_(text) {}

    std::optional<std::string_view> next(const Separators& separators);
    // The next token read as a number (text that is no number reads 0);
    // false when no token is left. The usual number is read as the token is
    // found, in one pass. (A flag and an out-parameter: an optional made
    // this hot path slower.)
    bool nextNumber(const Separators& separators, double& value);
    // The text after the last token and the separator that ended it, unsplit.
    std::string_view rest() const { return text_.substr(position_); }

private:
    std::string_view text_;
    std::size_t position_ = 0;
};

// Separator sets used across the converters.
inline constexpr Separators blanksAndTabs = " \t";
inline constexpr Separators blanksTabsAndNewlines = " \t\n";

// The first count tokens of a text (fewer when it has fewer).
std::vector<std::string_view> leadingFields(std::string_view text, const Separators& separators,
                                            std::size_t count);

// A line whose first character is "#": a comment in many of the formats.
bool isCommentLine(std::string_view line);

// The next count tokens, or nothing when one is missing.
template <std::size_t count>
std::optional<std::array<std::string_view, count>> nextTokens(Tokenizer& tokens,
                                                              const Separators& separators) {
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
                                                     const Separators& separators) {
    std::array<double, count> values;
    for (double& value : values)
        if (!tokens.nextNumber(separators, value)) return std::nullopt;
    return values;
}

}  // namespace quelcnv
