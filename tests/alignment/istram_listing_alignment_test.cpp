#include "alignment/istram_listing_alignment.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

class IstramListingAlignmentTest : public test::FolderTest {
protected:
    std::string convert(std::string_view listing) {
        test::writeBytes(file("eje.lis"), listing);
        EXPECT_TRUE(importIstramListingAlignment(file("eje.lis"), file("eje.ruxo")).ok());
        return test::readBytes(file("eje.ruxo"));
    }
};

// tests/data/alignment/istram_listing/eje.lis: a line numbered 2 before the
// first element, arcs and clothoids (skipped), a lower-case word, a line whose
// third character is "N", a line short of numbers, a word without number,
// and a total line that ends the table before one more straight.
TEST_F(IstramListingAlignmentTest, BringsOverTheStraightsOfTheTable) {
    std::string listing = test::readBytes(test::testData("alignment/istram_listing/eje.lis"));
    EXPECT_EQ(convert(listing), test::withPlatformNewlines(test::readBytes(
                                    test::testData("alignment/istram_listing/eje.ruxo"))));
}

TEST_F(IstramListingAlignmentTest, HeaderIsIgnoredAndLastLineIsUsed) {
    const std::pair<std::string, std::string> cases[] = {
        {"   1 RECTA 0 10 20 30 40\n", ""},
        {"0 0\n1\tRECTA\t0\t10\t20\t30\t40", "10.000 20.000 30.000 40.000 0.000 0.000\n"},
        {"0 0\n", ""},
        {"", ""},
    };
    for (const auto& [listing, expected] : cases)
        EXPECT_EQ(convert(listing), test::withPlatformNewlines(expected)) << listing;
}

TEST_F(IstramListingAlignmentTest, KeepsAtMostFiveHundredRecords) {
    std::string listing = "0 0\n";
    for (int i = 1; i <= 501; ++i)
        listing += std::to_string(i) + " RECTA 0 " + std::to_string(i) + " 0 0 0\n";
    std::string ruxo = convert(listing);
    std::string newline = test::withPlatformNewlines("\n");
    EXPECT_EQ(std::count(ruxo.begin(), ruxo.end(), '\n'), 500);
    EXPECT_TRUE(ruxo.ends_with(newline + "500.000 0.000 0.000 0.000 0.000 0.000" + newline));
}

TEST_F(IstramListingAlignmentTest, MissingInputLeavesOutputUntouched) {
    test::writeBytes(file("eje.ruxo"), "old");
    EXPECT_EQ(importIstramListingAlignment(file("missing.lis"), file("eje.ruxo")).failure,
              Failure::inputUnreadable);
    EXPECT_EQ(test::readBytes(file("eje.ruxo")), "old");
}

}  // namespace
}  // namespace quelcnv
