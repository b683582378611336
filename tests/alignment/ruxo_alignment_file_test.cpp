#include "alignment/ruxo_alignment_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

using test::readBytes;
using test::writeBytes;

class RuxoAlignmentFileTest : public test::FolderTest {
protected:
    AlignmentFile readText(std::string_view text, CommentLines comments = CommentLines::skipped) {
        writeBytes(file("eje.ruxo"), text);
        return readAlignmentFile(file("eje.ruxo"), comments);
    }
};

TEST_F(RuxoAlignmentFileTest, TypeFollowsFromParameterAndRadius) {
    AlignmentFile read = readText(
        "0 0 0 0 0 0\n"
        "10 1 2 50 0 -250\n"
        "20 3 4 60 120 0\n"
        "30 5 6 70 -80 300\n"
        "40 7 8 80 0 0\n");
    ASSERT_TRUE(read.outcome.ok());
    ASSERT_EQ(read.records.size(), 5u);
    EXPECT_EQ(read.records[0].type, straightElement);
    EXPECT_EQ(read.records[1].type, arcElement);
    EXPECT_EQ(read.records[1].radius, -250.0);
    EXPECT_EQ(read.records[2].type, clothoidElement);
    EXPECT_EQ(read.records[3].type, clothoidElement);
    // Column 5 is the parameter, column 6 the radius.
    EXPECT_EQ(read.records[3].parameter, -80.0);
    EXPECT_EQ(read.records[3].radius, 300.0);
    EXPECT_EQ(read.records[4].station, 40.0);
    EXPECT_EQ(read.records[4].x, 7.0);
    EXPECT_EQ(read.records[4].y, 8.0);
    EXPECT_EQ(read.records[4].azimuth, 80.0);
    EXPECT_EQ(read.records[4].aux, 0.0);
    EXPECT_EQ(read.records[4].length, 0.0);
}

TEST_F(RuxoAlignmentFileTest, LineWithFiveNumbersIsSkipped) {
    AlignmentFile read = readText("1 2 3 4 5 6\n1 2 3 4 5\n7 8 9 10 11 12\n");
    ASSERT_EQ(read.records.size(), 2u);
    EXPECT_EQ(read.records[0].station, 1.0);
    EXPECT_EQ(read.records[1].station, 7.0);
}

TEST_F(RuxoAlignmentFileTest, UnterminatedLastLineIsLost) {
    AlignmentFile read = readText("1 2 3 4 5 6\n7 8 9 10 11 12");
    ASSERT_EQ(read.records.size(), 1u);
    EXPECT_EQ(read.records[0].station, 1.0);
    AlignmentFile only = readText("1 2 3 4 5 6");
    EXPECT_EQ(only.outcome.failure, Failure::noData);
    EXPECT_TRUE(only.records.empty());
}

TEST_F(RuxoAlignmentFileTest, CommentLinesDependOnTheReader) {
    const char* text = "* eje de prueba con seis palabras\n*corto\n100 1 2 3 0 0\n";
    AlignmentFile skipped = readText(text, CommentLines::skipped);
    ASSERT_EQ(skipped.records.size(), 1u);
    EXPECT_EQ(skipped.records[0].station, 100.0);
    // The element writer's reader parses the comment as numbers: six words
    // make an all-zero straight, a shorter comment is dropped.
    AlignmentFile asNumbers = readText(text, CommentLines::readAsNumbers);
    ASSERT_EQ(asNumbers.records.size(), 2u);
    EXPECT_EQ(asNumbers.records[0].station, 0.0);
    EXPECT_EQ(asNumbers.records[0].type, straightElement);
    EXPECT_EQ(asNumbers.records[1].station, 100.0);
}

TEST_F(RuxoAlignmentFileTest, CapacityIsThreeTimesTheLineCount) {
    AlignmentFile read = readText("1 2 3 4 5 6\n7 8 9 10 11 12\n");
    EXPECT_EQ(read.capacity, 9u);
}

TEST_F(RuxoAlignmentFileTest, UnreadableOrEmptyFileFails) {
    EXPECT_EQ(readAlignmentFile(file("missing.ruxo"), CommentLines::skipped).outcome.failure,
              Failure::inputUnreadable);
    EXPECT_EQ(readText("").outcome.failure, Failure::noData);
    EXPECT_EQ(readText("\n\n* comment\n").outcome.failure, Failure::noData);
}

TEST_F(RuxoAlignmentFileTest, CrLfFileReadsLikeLfFile) {
    AlignmentFile lf = readText("1 2 3 4 5 6\n7 8 9 10 11 12\n");
    AlignmentFile crlf = readText("1 2 3 4 5 6\r\n7 8 9 10 11 12\r\n");
    ASSERT_EQ(crlf.records.size(), lf.records.size());
    EXPECT_EQ(crlf.records[1].radius, lf.records[1].radius);
}

TEST_F(RuxoAlignmentFileTest, BothSpellingsRewriteWithThreeDecimals) {
    AlignmentFile read = readAlignmentFile(
        test::testData("alignment/ruxo/mixed_spellings.ruxo").string(), CommentLines::skipped);
    ASSERT_TRUE(read.outcome.ok());
    ASSERT_TRUE(writeAlignmentFile(read.records, file("out.ruxo")).ok());
    std::string expected = readBytes(test::testData("alignment/ruxo/mixed_spellings.expected"));
    EXPECT_TRUE(test::sameBytes(readBytes(file("out.ruxo")), test::withPlatformNewlines(expected)));
}

TEST_F(RuxoAlignmentFileTest, WriterFailsWithoutCreatingWhenTheOutputCannotBeOpened) {
    std::vector<AlignmentRecord> records(1);
    EXPECT_EQ(writeAlignmentFile(records, file("missing/out.ruxo")).failure,
              Failure::outputUnwritable);
    EXPECT_FALSE(std::filesystem::exists(file("missing")));
}

TEST_F(RuxoAlignmentFileTest, WriterWritesEveryRecordEvenNone) {
    ASSERT_TRUE(writeAlignmentFile({}, file("empty.ruxo")).ok());
    EXPECT_EQ(readBytes(file("empty.ruxo")), "");
    AlignmentRecord record;
    record.station = -0.0004;
    record.parameter = 1.0005;
    record.radius = 2.5;
    ASSERT_TRUE(writeAlignmentFile({record}, file("one.ruxo")).ok());
    EXPECT_EQ(readBytes(file("one.ruxo")),
              test::withPlatformNewlines("-0.000 0.000 0.000 0.000 1.000 2.500\n"));
}

}  // namespace
}  // namespace quelcnv
