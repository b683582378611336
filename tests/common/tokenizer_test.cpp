#include "common/tokenizer.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quelcnv {
namespace {

std::vector<std::string> allTokens(std::string_view text, std::string_view separators) {
    Tokenizer tokens(text);
    std::vector<std::string> out;
    while (auto token = tokens.next(separators)) out.emplace_back(*token);
    return out;
}

TEST(Tokenizer, RunsOfSeparatorsCountAsOne) {
    EXPECT_EQ(allTokens("  12\t\t34  56\n", blanksTabsAndNewlines),
              (std::vector<std::string>{"12", "34", "56"}));
    EXPECT_EQ(allTokens("1,,2 ,3", " ,"), (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_TRUE(allTokens(" \t\n", blanksTabsAndNewlines).empty());
    EXPECT_TRUE(allTokens("", blanksTabsAndNewlines).empty());
}

TEST(Tokenizer, SeparatorsMayChangeFromOneTokenToTheNext) {
    // The blank that ends the first token is consumed with it; the second
    // blank belongs to the next token, split at commas only.
    Tokenizer tokens("DATE  16/11/07,10:20\n");
    EXPECT_EQ(tokens.next(blanksAndTabs), "DATE");
    EXPECT_EQ(tokens.next(","), " 16/11/07");
    EXPECT_EQ(tokens.rest(), "10:20\n");
}

TEST(Tokenizer, RestOfTheLineIsAvailable) {
    Tokenizer tokens("100,-5.5,412.25,two words, and more\n");
    tokens.next(",");
    tokens.next(",");
    tokens.next(",");
    EXPECT_EQ(tokens.rest(), "two words, and more\n");
    // An empty separator set hands out the rest as one token.
    EXPECT_EQ(tokens.next(""), "two words, and more\n");
    EXPECT_EQ(tokens.next(""), std::nullopt);
}

TEST(Tokenizer, NoTokenIsFoundOnceTheTextIsUsedUp) {
    Tokenizer tokens("a  ");
    EXPECT_EQ(tokens.next(" "), "a");
    EXPECT_EQ(tokens.next(" "), std::nullopt);
    EXPECT_EQ(tokens.next(","), std::nullopt);
    EXPECT_EQ(tokens.rest(), "");
}

}  // namespace
}  // namespace quelcnv
