// The job, date and time taken from NEVO-800 robotic readings, and the blank
// shifter they pass through.
#include "fielddata/robotic_header.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

class RoboticHeaderTest : public test::FolderTest {
protected:
    std::string header(std::string_view readings) {
        test::writeBytes(file("lecturas.txt"), readings);
        EXPECT_TRUE(writeRoboticHeader(file("lecturas.txt"), file("cabecera.txt")).ok())
            << readings;
        return test::readBytes(file("cabecera.txt"));
    }
};

TEST(RoboticHeaderBlankShifter, MovesLeadingBlanksToTheEndKeepingTheLength) {
    const std::pair<std::string, std::string> cases[] = {
        {" 10:20", "10:20 "},     {"   a b ", "a b    "},  // blanks at the end stay
        {" 10:20\n", "10:20\n "},                          // after the line break
        {"\t10:20", "\t10:20"},                            // tabs are no blanks
        {"10:20", "10:20"},       {"   ", "   "},         {"", ""},
    };
    for (auto [text, shifted] : cases) {
        std::string value = text;
        shiftLeadingBlanks(value);
        EXPECT_EQ(value, shifted) << '"' << text << '"';
    }
}

// tests/data/fielddata/robotic/readings.txt: records of other kinds around
// the JOB and DATE records, whose time runs to the end of its line.
TEST_F(RoboticHeaderTest, WritesJobDateAndTime) {
    EXPECT_EQ(header(test::readBytes(test::testData("fielddata/robotic/readings.txt"))),
              test::withPlatformNewlines("OBRA_NORTE\n16/11/07\n10:20:35\n\n"));
}

TEST_F(RoboticHeaderTest, RecordsAndTheirPieces) {
    const std::pair<const char*, const char*> cases[] = {
        // record names in any letter case, but whole
        {"job X,Norte.job\ndate 16/11/07,10:20\n", "Norte\n16/11/07\n10:20\n\n"},
        {"Job X,Norte.job\nDaTe 16/11/07,10:20\n", "Norte\n16/11/07\n10:20\n\n"},
        {"JOBS X,Norte.job\nDATES 16/11/07,10:20\nDATE,16/11/07,10:20\n", "\n\n\n"},
        // one blank ends the name; a second stays with the date and moves to its end
        {"DATE  16/11/07,10:20\n", "\n16/11/07 \n10:20\n\n"},
        {"DATE\t 16/11/07, 10:20\n", "\n16/11/07 \n10:20\n \n"},
        // a job name without a full stop runs to the end of the line
        {"JOB X,Norte\n", "Norte\n\n\n\n"},
        {"JOB X,..Norte.a.b\n", "Norte\n\n\n"},
        // missing pieces leave the values as they were
        {"JOB X,Norte.job\nJOB X\nJOB\nDATE 16/11/07,10:20\nDATE 17/11/07\n",
         "Norte\n17/11/07\n\n10:20\n\n"},
        // later records overwrite earlier ones
        {"JOB X,Uno.job\nJOB Y,Dos.job\n", "Dos\n\n\n"},
        // blank lines and other records are passed over
        {"\n   \nPOINT 1,2,3\n", "\n\n\n"},
    };
    for (auto [readings, written] : cases)
        EXPECT_EQ(header(readings), test::withPlatformNewlines(written)) << readings;
}

TEST_F(RoboticHeaderTest, LastRecordWithoutLineBreakIsPassedOver) {
    EXPECT_EQ(header("JOB X,Norte.job\nDATE 16/11/07,10:20"),
              test::withPlatformNewlines("Norte\n\n\n"));
}

TEST_F(RoboticHeaderTest, EntryPointResults) {
    const std::string in = file("lecturas.txt"), out = file("cabecera.txt");
    test::writeBytes(in, "JOB X,Norte.job\n");
    EXPECT_EQ(MyDll_procesaCabecera(file("missing.txt").c_str(), out.c_str()), 0);
    EXPECT_EQ(MyDll_procesaCabecera(in.c_str(), dir_.string().c_str()), 0);
    EXPECT_EQ(MyDll_procesaCabecera(in.c_str(), nullptr), 0);
    EXPECT_FALSE(fs::exists(out));
    EXPECT_EQ(MyDll_procesaCabecera(in.c_str(), out.c_str()), 1);
    EXPECT_EQ(test::readBytes(out), test::withPlatformNewlines("Norte\n\n\n"));
}

// Processing robotic readings into a report is not provided: it reads and
// writes nothing and returns 0.
TEST_F(RoboticHeaderTest, RoboticProcessingIsNotProvided) {
    test::writeBytes(file("lecturas.txt"), "JOB X,Norte.job\n");
    const std::string in = file("lecturas.txt"), out = file("informe.txt");
    EXPECT_EQ(
        MyDll_procesaRobotizada(in.c_str(), in.c_str(), out.c_str(), "a", "b", "c", "d", "e", "f"),
        0);
    EXPECT_FALSE(fs::exists(out));
}

}  // namespace
}  // namespace quelcnv
