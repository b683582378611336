#include "alignment/ruxo_alignment_file.h"

#include <gtest/gtest.h>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

class RuxoAlignmentFileTest : public test::FolderTest {};

// tests/data/alignment/ruxo/eje.ruxo mixes both spellings, CR LF, an empty
// line, a line of five numbers, comments and an unterminated last line.
TEST_F(RuxoAlignmentFileTest, ReadsBothSpellingsAndRewritesWithThreeDecimals) {
    const std::pair<CommentLines, const char*> variants[] = {
        {CommentLines::skipped, "alignment/ruxo/eje.comments_skipped"},
        // six words make an all-zero straight, a shorter comment is dropped
        {CommentLines::readAsNumbers, "alignment/ruxo/eje.comments_read"},
    };
    for (auto [comments, expected] : variants) {
        AlignmentFile read =
            readAlignmentFile(test::testData("alignment/ruxo/eje.ruxo").string(), comments);
        ASSERT_TRUE(read.outcome.ok());
        EXPECT_EQ(read.capacity, 3u * 9u);  // three times the line count
        ASSERT_TRUE(writeAlignmentFile(read.records, file("out.ruxo")).ok());
        EXPECT_EQ(test::readBytes(file("out.ruxo")),
                  test::withPlatformNewlines(test::readBytes(test::testData(expected))));
    }
}

TEST_F(RuxoAlignmentFileTest, TypeFollowsFromColumnFiveThenColumnSix) {
    test::writeBytes(file("eje.ruxo"), "0 0 0 0 0 0\n10 1 2 50 0 -250\n20 3 4 60 -80 300\n");
    AlignmentFile read = readAlignmentFile(file("eje.ruxo"), CommentLines::skipped);
    ASSERT_EQ(read.records.size(), 3u);
    EXPECT_EQ(read.records[0].type, straightElement);
    EXPECT_EQ(read.records[1].type, arcElement);
    EXPECT_EQ(read.records[2].type, clothoidElement);
    EXPECT_EQ(read.records[2].parameter, -80.0);
    EXPECT_EQ(read.records[2].radius, 300.0);
}

TEST_F(RuxoAlignmentFileTest, FailuresCreateNoOutput) {
    EXPECT_EQ(readAlignmentFile(file("missing.ruxo"), CommentLines::skipped).outcome.failure,
              Failure::inputUnreadable);
    for (const char* text : {"", "1 2 3 4 5 6", "\n* comment\n1 2 3 4 5\n"}) {
        test::writeBytes(file("eje.ruxo"), text);
        EXPECT_EQ(readAlignmentFile(file("eje.ruxo"), CommentLines::skipped).outcome.failure,
                  Failure::noData)
            << text;
    }
    EXPECT_EQ(writeAlignmentFile({AlignmentRecord()}, file("missing/out.ruxo")).failure,
              Failure::outputUnwritable);
}

}  // namespace
}  // namespace quelcnv
