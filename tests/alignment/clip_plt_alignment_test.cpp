#include "alignment/clip_plt_alignment.h"

#include <gtest/gtest.h>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

class ClipPltAlignmentTest : public test::FolderTest {};

// tests/data/alignment/clip_plt/eje.plt: comments, lines of 6 and 8
// characters, commas, tabs and blanks, a line of seven numbers and one of
// five, and a last line without line break. Each key point takes the radius
// and parameter of the next; the end point has none.
TEST_F(ClipPltAlignmentTest, MovesCurveDataToWhereTheElementStarts) {
    ASSERT_TRUE(importClipPltAlignment(test::testData("alignment/clip_plt/eje.plt").string(),
                                       file("eje.ruxo"))
                    .ok());
    EXPECT_EQ(
        test::readBytes(file("eje.ruxo")),
        test::withPlatformNewlines(test::readBytes(test::testData("alignment/clip_plt/eje.ruxo"))));
}

TEST_F(ClipPltAlignmentTest, FileWithoutKeyPointsGivesEmptyOutput) {
    test::writeBytes(file("eje.plt"), "* CLIP PLT\n1 2 3 4 5\n0,0,0\n");
    ASSERT_TRUE(importClipPltAlignment(file("eje.plt"), file("eje.ruxo")).ok());
    EXPECT_EQ(test::readBytes(file("eje.ruxo")), "");
}

TEST_F(ClipPltAlignmentTest, FailuresOfInputAndOutput) {
    test::writeBytes(file("eje.ruxo"), "old");
    EXPECT_EQ(importClipPltAlignment(file("missing.plt"), file("eje.ruxo")).failure,
              Failure::inputUnreadable);
    EXPECT_EQ(test::readBytes(file("eje.ruxo")), "old");
    test::writeBytes(file("eje.plt"), "0 1000 2000 50 0 0\n");
    EXPECT_EQ(importClipPltAlignment(file("eje.plt"), file("missing/eje.ruxo")).failure,
              Failure::outputUnwritable);
}

}  // namespace
}  // namespace quelcnv
