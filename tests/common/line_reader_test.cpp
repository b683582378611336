#include "common/line_reader.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

using Reads = std::vector<std::pair<std::string, ReadStatus>>;
constexpr ReadStatus line = ReadStatus::line, last = ReadStatus::lastLine;

class LineReaderTest : public test::FolderTest {
protected:
    // Every read of a file holding these bytes, until a read delivers nothing.
    Reads readAll(std::string_view bytes) {
        test::writeBytes(file("in.txt"), bytes);
        LineReader reader;
        EXPECT_TRUE(reader.open(file("in.txt")));
        Reads reads;
        for (std::string text; reader.read(text) != ReadStatus::nothing;) {
            reads.emplace_back(text, reader.atEnd() ? last : line);
        }
        return reads;
    }
};

TEST_F(LineReaderTest, ReadsAsA256ByteFgetsInTextMode) {
    std::string x255(255, 'x'), x254(254, 'x');
    const std::pair<std::string, Reads> cases[] = {
        {"a\nbc\n", {{"a\n", line}, {"bc\n", line}}},
        {std::string(300, 'x') + "\n", {{x255, line}, {std::string(45, 'x') + "\n", line}}},
        {x255 + "\n", {{x255, line}, {"\n", line}}},    // the line feed waits for the next read
        {x254 + "\r\n", {{x254 + "\n", line}}},         // CR LF is one character of the 255
        {"a\nlast", {{"a\n", line}, {"last", last}}},   // an unterminated line meets the end
        {"a\n" + x255, {{"a\n", line}, {x255, line}}},  // ... unless it fills the read
        {"a\r\nlone\rcr\nend\r", {{"a\n", line}, {"lone\rcr\n", line}, {"end\r", last}}},
        {"a\nb\x1A"
         "c\nd\n",
         {{"a\n", line}, {"b", last}}},                                    // Ctrl-Z ends the file
        {std::string("ab\0cd\nef\n", 9), {{"ab", line}, {"ef\n", line}}},  // text ends at NUL
    };
    for (const auto& [bytes, reads] : cases) EXPECT_EQ(readAll(bytes), reads) << bytes;
}

TEST_F(LineReaderTest, EmptyReadLeavesTextAndSeekReadsALineAgain) {
    test::writeBytes(file("in.txt"), "ab\r\ncd\r\nef");
    LineReader reader;
    ASSERT_TRUE(reader.open(file("in.txt")));
    std::string text;
    reader.read(text);
    std::uint64_t second = reader.position();
    EXPECT_EQ(second, 4u);  // byte offsets: CR LF counts two
    while (reader.read(text) != ReadStatus::nothing) {
    }
    EXPECT_EQ(text, "ef");
    ASSERT_TRUE(reader.seek(second));
    EXPECT_FALSE(reader.atEnd());
    EXPECT_EQ(reader.read(text), line);
    EXPECT_EQ(text, "cd\n");
}

// The line a read started in: a long line read in pieces is one line, and
// going back to the last read's start reads the same line again.
TEST_F(LineReaderTest, LineNumbersOfReads) {
    test::writeBytes(file("in.txt"), "a\n" + std::string(300, 'x') + "\nb\n");
    LineReader reader;
    ASSERT_TRUE(reader.open(file("in.txt")));
    std::string text;
    std::vector<long> numbers;
    std::uint64_t lastStart = 0;
    for (std::uint64_t start = reader.position(); reader.read(text) != ReadStatus::nothing;
         start = reader.position()) {
        numbers.push_back(reader.lineNumber());
        lastStart = start;
    }
    EXPECT_EQ(numbers, (std::vector<long>{1, 2, 2, 3}));
    ASSERT_TRUE(reader.seek(lastStart));
    reader.read(text);
    EXPECT_EQ(reader.lineNumber(), 3);
    ASSERT_TRUE(reader.seek(0));
    reader.read(text);
    EXPECT_EQ(reader.lineNumber(), 0);  // unknown after a seek elsewhere
}

TEST_F(LineReaderTest, EndOfFileRulesAndLineCount) {
    test::writeBytes(file("in.txt"), "1\n2\n3");
    std::vector<std::string> lost, used;
    LineReader reader;
    ASSERT_TRUE(reader.open(file("in.txt")));
    for (std::string text; readLineBeforeEnd(reader, text);) lost.push_back(text);
    reader.seek(0);
    for (std::string text; readLineThroughEnd(reader, text);) used.push_back(text);
    EXPECT_EQ(lost, (std::vector<std::string>{"1\n", "2\n"}));
    EXPECT_EQ(used, (std::vector<std::string>{"1\n", "2\n", "3"}));

    const std::pair<std::string, int> counts[] = {
        {"", 1}, {"a\nb\nc\nd\n", 5}, {"a\nb", 2}, {std::string(300, 'x') + "\n", 3}};
    for (const auto& [bytes, count] : counts) {
        test::writeBytes(file("count.txt"), bytes);
        EXPECT_EQ(countLines(file("count.txt")), count) << bytes;
    }
    EXPECT_EQ(countLines(file("missing.txt")), 0);
    EXPECT_EQ(countLines(dir_.string()), 0);  // a folder is no file to read
}

// The rules done a byte at a time, as the C runtime's text mode reads: the
// reads of a whole file, for comparison with the block reader.
Reads bytewiseReads(std::string_view bytes) {
    std::size_t ctrlZ = bytes.find('\x1A');
    if (ctrlZ != std::string_view::npos) bytes = bytes.substr(0, ctrlZ);
    Reads reads;
    std::size_t i = 0;
    while (true) {
        std::string piece;
        bool ended = false;
        while (piece.size() < LineReader::maxLineLength && !ended && i < bytes.size()) {
            char c = bytes[i++];
            if (c == '\r' && i < bytes.size() && bytes[i] == '\n') c = bytes[i++];
            piece += c;
            ended = c == '\n';
        }
        bool atEnd = !ended && piece.size() < LineReader::maxLineLength;
        if (piece.empty() && atEnd) return reads;
        reads.emplace_back(piece.substr(0, piece.find('\0')), atEnd ? last : line);
        if (atEnd) return reads;
    }
}

// Lines are handed out from the block where they can be, and gathered where
// they cross a block's end or hold CR, Ctrl-Z or NUL: the same reads as the
// rules done byte by byte, on files of several blocks.
TEST_F(LineReaderTest, BlocksReadAsBytesWould) {
    std::mt19937 random(20261123);
    const char alphabet[] = "abc  \n\n\n\r\r\n";
    for (int round = 0; round < 12; ++round) {
        std::string bytes;
        std::size_t size = 150000 + random() % 100000;
        while (bytes.size() < size) {
            std::size_t length = random() % 8 == 0 ? random() % 600 : random() % 40;
            for (std::size_t k = 0; k < length; ++k)
                bytes += alphabet[random() % (sizeof alphabet - 1)];
            bytes += random() % 2 ? "\n" : "\r\n";
            if (random() % 5000 == 0) bytes += '\0';
        }
        if (round % 3 == 0) bytes.insert(bytes.size() - random() % 1000, 1, '\x1A');
        ASSERT_EQ(readAll(bytes), bytewiseReads(bytes)) << round;
    }
}

}  // namespace
}  // namespace quelcnv
