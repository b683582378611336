#include "common/tokenizer.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quelcnv
