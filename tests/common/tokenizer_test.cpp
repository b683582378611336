#include "common/tokenizer.h"

#include <gtest/gtest.h>

#include <cmath>

#include "common/numbers.h"

namespace quelcnv {
namespace {

TEST(Tokenizer, SplitsAsStrtokWithSeparatorsThatMayChange) {
    Tokenizer runs("  12\t\t34  56\n");
    EXPECT_EQ(runs.next(blanksTabsAndNewlines), "12");
    EXPECT_EQ(runs.next(blanksTabsAndNewlines), "34");
    EXPECT_EQ(runs.next(blanksTabsAndNewlines), "56");
    EXPECT_EQ(runs.next(blanksTabsAndNewlines), std::nullopt);
    EXPECT_EQ(runs.next(","), std::nullopt);  // nothing left, whatever the separators

    // The blank that ends a token is consumed; the next one belongs to the
    // following token, split at commas only.
    Tokenizer date("DATE  16/11/07,10:20, more\n");
    EXPECT_EQ(date.next(blanksAndTabs), "DATE");
    EXPECT_EQ(date.next(","), " 16/11/07");
    EXPECT_EQ(date.rest(), "10:20, more\n");
    EXPECT_EQ(date.next(""), "10:20, more\n");  // no separators: the rest as one token
}

// A number read as its token is found is the token read as a number, and the
// tokenizer goes on from the same place: whatever follows the number, and
// whatever the separators (some of which a number could hold).
TEST(Tokenizer, NumbersReadInOnePassAsTokenByToken) {
    const char* texts[] = {"12.5 -3 +.5 5. .",
                           "1e3 2E-2 7e 12abc 3,4",
                           "  0.001\t-0.000\n",
                           "1-2-3 4.5.6",
                           "\v5 \t6",
                           "123456789012345678 1.25",
                           "-,+,,9"};
    const Separators separators[] = {blanksAndTabs, blanksTabsAndNewlines, ",", " -", ".e", "\t"};
    for (const char* text : texts) {
        for (const Separators& separator : separators) {
            Tokenizer fused(text), plain(text);
            double value = 0.0;
            while (fused.nextNumber(separator, value)) {
                std::optional<std::string_view> token = plain.next(separator);
                ASSERT_TRUE(token) << text;
                double expected = parseNumber(*token);
                EXPECT_EQ(value, expected) << text << " [" << *token << "]";
                EXPECT_EQ(std::signbit(value), std::signbit(expected)) << text;  // "-0.000"
                EXPECT_EQ(fused.rest(), plain.rest()) << text;
            }
            EXPECT_EQ(plain.next(separator), std::nullopt) << text;
        }
    }
}

}  // namespace
}  // namespace quelcnv
