#include "alignment/ispol_alignment.h"

#include <gtest/gtest.h>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

class IspolAlignmentTest : public test::FolderTest {
protected:
    std::string convert(std::string_view ispol) {
        test::writeBytes(file("eje.ispol"), ispol);
        EXPECT_TRUE(importIspolAlignment(file("eje.ispol"), file("eje.ruxo")).ok());
        return test::readBytes(file("eje.ruxo"));
    }
};

// tests/data/alignment/ispol/eje.ispol: comments around the start station,
// all seven codes (clothoids into a growing and a falling arc), a tab-separated
// line, and a comment that ends the data before one more element.
TEST_F(IspolAlignmentTest, ConvertsEveryElementCode) {
    std::string ispol = test::readBytes(test::testData("alignment/ispol/eje.ispol"));
    EXPECT_EQ(convert(ispol), test::withPlatformNewlines(
                                  test::readBytes(test::testData("alignment/ispol/eje.ruxo"))));
}

TEST_F(IspolAlignmentTest, WhereTheElementsEnd) {
    const std::string first = "100.000 0.000 0.000 10.000 0.000 0.000\n";
    const std::pair<std::string, std::string> cases[] = {
        // an incomplete line ends the elements
        {"100\n1 50 0 0 0 0 10 0\n1 50 0 0\n1 50 1 1 0 0 10 0\n", first},
        // an element line without a line break at the end of the file is lost
        {"100\n1 50 0 0 0 0 10 0\n1 50 1 1 0 0 -10 0", first},
        {"100\n1 50 0 0 0 0 10 0", ""},
        {"100\n1 50 0 0 0 0 10 0\n1 50 1 1 0 0 -10 0\n",
         first + "150.000 1.000 1.000 10.000 0.000 0.000\n"},
        // a clothoid into a curve with no element after it keeps radius 0
        {"0\n2 10 0 0 0 0 0 300\n4 20 1 1 0 0 0 80\n",
         "0.000 0.000 0.000 0.000 0.000 300.000\n10.000 1.000 1.000 0.000 80.000 0.000\n"},
        {"# only\n# comments\n", ""},
        {"100\n", ""},
    };
    for (const auto& [ispol, expected] : cases)
        EXPECT_EQ(convert(ispol), test::withPlatformNewlines(expected)) << ispol;
}

TEST_F(IspolAlignmentTest, MissingInputLeavesOutputUntouched) {
    test::writeBytes(file("eje.ruxo"), "old");
    EXPECT_EQ(importIspolAlignment(file("missing.ispol"), file("eje.ruxo")).failure,
              Failure::inputUnreadable);
    EXPECT_EQ(test::readBytes(file("eje.ruxo")), "old");
}

}  // namespace
}  // namespace quelcnv
