#include "common/line_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

using test::writeBytes;

class LineReaderTest : public test::FolderTest {
protected:
    // Every read of the file, with its status, until a read delivers nothing.
    std::vector<std::pair<std::string, ReadStatus>> readAll(std::string_view bytes) {
        writeBytes(file("input.txt"), bytes);
        LineReader reader;
        EXPECT_TRUE(reader.open(file("input.txt")));
        std::vector<std::pair<std::string, ReadStatus>> reads;
        std::string text;
        for (ReadStatus status; (status = reader.read(text)) != ReadStatus::nothing;) {
            reads.emplace_back(text, status);
        }
        return reads;
    }

    using Reads = std::vector<std::pair<std::string, ReadStatus>>;
};

constexpr ReadStatus line = ReadStatus::line;
constexpr ReadStatus lastLine = ReadStatus::lastLine;

TEST_F(LineReaderTest, ReadStopsAfterTheLineFeedWithoutMeetingTheEnd) {
    EXPECT_EQ(readAll("a\nbc\n"), (Reads{{"a\n", line}, {"bc\n", line}}));
}

TEST_F(LineReaderTest, LineOf300CharactersComesInTwoReads) {
    std::string longLine(300, 'x');
    EXPECT_EQ(readAll(longLine + "\n"),
              (Reads{{std::string(255, 'x'), line}, {std::string(45, 'x') + "\n", line}}));
}

TEST_F(LineReaderTest, LineOf255CharactersLeavesItsLineFeedForTheNextRead) {
    std::string full(255, 'y');
    EXPECT_EQ(readAll(full + "\n"), (Reads{{full, line}, {"\n", line}}));
    // 254 characters and the line feed fill one read exactly.
    EXPECT_EQ(readAll(std::string(254, 'y') + "\n"), (Reads{{std::string(254, 'y') + "\n", line}}));
}

TEST_F(LineReaderTest, UnterminatedLastLineMeetsTheEnd) {
    EXPECT_EQ(readAll("a\nlast"), (Reads{{"a\n", line}, {"last", lastLine}}));
    // A last line of exactly 255 characters fills the read before the end is met.
    std::string full(255, 'z');
    EXPECT_EQ(readAll("a\n" + full), (Reads{{"a\n", line}, {full, line}}));
}

TEST_F(LineReaderTest, CarriageReturnLineFeedReadsAsLineFeed) {
    EXPECT_EQ(readAll("a\r\nb\r\n"), (Reads{{"a\n", line}, {"b\n", line}}));
    EXPECT_EQ(readAll("lone\rcr\n"), (Reads{{"lone\rcr\n", line}}));
    EXPECT_EQ(readAll("end\r"), (Reads{{"end\r", lastLine}}));
    // The pair counts as one character of the 255.
    std::string body(254, 'w');
    EXPECT_EQ(readAll(body + "\r\n"), (Reads{{body + "\n", line}}));
}

TEST_F(LineReaderTest, CtrlZEndsTheFile) {
    EXPECT_EQ(readAll("a\nb\x1A"
                      "c\nd\n"),
              (Reads{{"a\n", line}, {"b", lastLine}}));
    EXPECT_EQ(readAll("a\n\x1A"
                      "b\n"),
              (Reads{{"a\n", line}}));
}

TEST_F(LineReaderTest, TextEndsAtNulByte) {
    EXPECT_EQ(readAll(std::string("ab\0cd\nef\n", 9)), (Reads{{"ab", line}, {"ef\n", line}}));
}

TEST_F(LineReaderTest, ReadAtTheEndLeavesTheCallersTextUntouched) {
    writeBytes(file("input.txt"), "title\n");
    LineReader reader;
    ASSERT_TRUE(reader.open(file("input.txt")));
    std::string text;
    EXPECT_EQ(reader.read(text), line);
    EXPECT_FALSE(reader.atEnd());
    EXPECT_EQ(reader.read(text), ReadStatus::nothing);
    EXPECT_TRUE(reader.atEnd());
    EXPECT_EQ(text, "title\n");
}

TEST_F(LineReaderTest, PositionsAreByteOffsetsToReadALineAgain) {
    writeBytes(file("input.txt"), "ab\r\ncd\r\nef");
    LineReader reader;
    ASSERT_TRUE(reader.open(file("input.txt")));
    std::string text;
    reader.read(text);
    std::uint64_t second = reader.position();
    EXPECT_EQ(second, 4u);
    reader.read(text);
    EXPECT_EQ(reader.read(text), lastLine);
    ASSERT_TRUE(reader.seek(second));
    EXPECT_FALSE(reader.atEnd());
    EXPECT_EQ(reader.read(text), line);
    EXPECT_EQ(text, "cd\n");
}

TEST_F(LineReaderTest, BothEndOfFileRules) {
    writeBytes(file("input.txt"), "1\n2\n3");
    std::vector<std::string> lost, used;
    LineReader reader;
    ASSERT_TRUE(reader.open(file("input.txt")));
    for (std::string text; readLineBeforeEnd(reader, text);) lost.push_back(text);
    ASSERT_TRUE(reader.seek(0));
    for (std::string text; readLineThroughEnd(reader, text);) used.push_back(text);
    EXPECT_EQ(lost, (std::vector<std::string>{"1\n", "2\n"}));
    EXPECT_EQ(used, (std::vector<std::string>{"1\n", "2\n", "3"}));
}

TEST_F(LineReaderTest, MissingFileOrFolderDoesNotOpen) {
    LineReader reader;
    EXPECT_FALSE(reader.open(file("missing.txt")));
    EXPECT_FALSE(reader.open(dir_.path().string()));
    EXPECT_EQ(countLines(dir_.path().string()), 0);
}

TEST_F(LineReaderTest, CountLinesCountsReadsBeforeTheEndPlusOne) {
    struct Case {
        std::string bytes;
        int count;
    };
    const Case cases[] = {
        {"", 1},
        {"a\nb\nc\nd\n", 5},
        {"a\nb", 2},
        {"a\r\nb\r\n", 3},
        {std::string(300, 'x') + "\n", 3},
        {"a\n\x1A"
         "b\nc\n",
         2},
    };
    for (const Case& c : cases) {
        writeBytes(file("count.txt"), c.bytes);
        EXPECT_EQ(countLines(file("count.txt")), c.count) << '"' << c.bytes << '"';
    }
    EXPECT_EQ(countLines(file("missing.txt")), 0);
}

}  // namespace
}  // namespace quelcnv
