#include "alignment/istram_alignment.h"

#include <gtest/gtest.h>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

class IstramAlignmentTest : public test::FolderTest {
protected:
    std::string convert(std::string_view listing) {
        test::writeBytes(file("eje.txt"), listing);
        EXPECT_TRUE(importIstramAlignment(file("eje.txt"), file("eje.ruxo")).ok());
        return test::readBytes(file("eje.ruxo"));
    }
};

// A table line cut to a width: "RECTA" in columns 4-8, station 1 in columns
// 23-34, azimuth 9 in columns 88-99.
std::string tableLine(std::size_t width) {
    std::string line(99, ' ');
    line.replace(3, 5, "RECTA");
    line.replace(29, 5, "1.000");
    line.replace(94, 5, "9.000");
    line.resize(width, ' ');
    return line;
}

// tests/data/alignment/istram/eje.txt: headers, a table with a closing point,
// a zero-length arc, clothoids with positive and negative parameters, a
// table line of 99 characters, and a second table with the word in columns
// 7-11 whose closing line has no line break.
TEST_F(IstramAlignmentTest, ConvertsEveryTableOfTheListing) {
    std::string listing = test::readBytes(test::testData("alignment/istram/eje.txt"));
    EXPECT_EQ(convert(listing), test::withPlatformNewlines(
                                    test::readBytes(test::testData("alignment/istram/eje.ruxo"))));
}

// Widths count the line feed; a read of more than 255 characters goes on in
// the next read, which here is too short and ends the table.
TEST_F(IstramAlignmentTest, LinesNarrowerThanOneHundredAreNoTableLines) {
    const std::string record = "1.000 0.000 0.000 9.000 0.000 0.000\n";
    std::string closing = tableLine(99).replace(3, 5, "     ") + "\n";  // no element word
    const std::pair<std::string, std::string> cases[] = {
        {tableLine(98) + "\n", ""},
        {tableLine(99) + "\n", record},
        {tableLine(99), ""},  // an unterminated last line is read, but too short
        {tableLine(100), record},
        {tableLine(99) + "\n" + closing, record + record},
        {tableLine(99) + std::string(200, ' ') + "\n" + closing, record},
    };
    for (const auto& [listing, expected] : cases)
        EXPECT_EQ(convert(listing), test::withPlatformNewlines(expected)) << listing;
}

TEST_F(IstramAlignmentTest, MissingInputLeavesOutputUntouched) {
    test::writeBytes(file("eje.ruxo"), "old");
    EXPECT_EQ(importIstramAlignment(file("missing.txt"), file("eje.ruxo")).failure,
              Failure::inputUnreadable);
    EXPECT_EQ(test::readBytes(file("eje.ruxo")), "old");
}

}  // namespace
}  // namespace quelcnv
