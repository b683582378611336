// What the field-data conversions do beyond the cases of
// tests/data/fielddata/cases.txt: their pure functions, the LEA code file,
// and numbers the C runtime prints in its own way.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "common/file_path.h"
#include "common/text_format.h"
#include "fielddata/point_files.h"
#include "fielddata/robotic_header.h"
#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

TEST(FieldDataFunctions, ShiftLeadingBlanksMovesThemToTheEndKeepingTheLength) {
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

TEST(FieldDataFunctions, CodeFileBesideTheObservationFile) {
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"obs/job.txt", "obs/job.cod"},
        {"obs/job", "obs/job.cod"},
        {"obs/job.", "obs/job.cod"},
        {"obs/job.txt.bak", "obs/job.txt.cod"},
        {"obs.v2/job", "obs.v2/job.cod"},  // a dot in a folder is no extension
        {"obs.v2/", "obs.v2/.cod"},
        {"job.txt", "job.cod"},
#ifdef _WIN32
        {"C:\\obs\\job.txt", "C:\\obs\\job.cod"},
        {"C:\\obs.v2\\job", "C:\\obs.v2\\job.cod"},
        {"C:job.txt", "C:job.cod"},
        {"C:\\obs.v2/job", "C:\\obs.v2/job.cod"},
#else
        {"/obs/job.txt", "/obs/job.cod"},
        {"/obs.v2\\job", "/obs.cod"},  // a backslash is part of a Linux name
#endif
    };
    // clang-format on
    for (auto [observations, codes] : cases)
        EXPECT_EQ(replaceExtension(observations, "cod"), codes) << observations;
}

class FieldDataTest : public test::FolderTest {
protected:
    std::string data(const char* name) { return test::testData(name).string(); }
};

// A zenith angle of 0 makes the slope distance 0 / 0, not a number, and the
// observation stays; 200 grads in doubles is not quite pi, so its sine is
// tiny, not zero. Both worked out at run time, as the converter works them
// out (the runtime's sine near pi may differ from the compiler's), and
// printed as the library prints them.
TEST_F(FieldDataTest, SlopeDistanceAtZeroAndTwoHundredGrads) {
    volatile double zero = 0.0, straight = 200 * 0.015707963267948967;
    const std::pair<const char*, double> cases[] = {{"0", zero / zero},
                                                    {"200", 50.0 / std::sin(straight)}};
    for (auto [vertical, distance] : cases) {
        test::writeBytes(file("obra.lea"),
                         "S E1 1.5\nP 7 10 " + std::string(vertical) + " 50 1.3\n");
        ASSERT_EQ(MyDll_topoLea2Medrix(file("obra.lea").c_str(), file("obra.txt").c_str()), 1);
        EXPECT_EQ(test::readBytes(file("obra.txt")),
                  test::withPlatformNewlines(
                      formatText("   E1     7  10.0000%9.4lf%10.3lf   1.300   1.500\n"_fmt,
                                 test::cStrtod(vertical), distance)))
            << vertical;
    }
}

// A LEA survey without observations writes no code file either; a code file
// that cannot be written is left out, and the conversion is done.
TEST_F(FieldDataTest, LeaCodeFile) {
    const std::string out = file("obra.txt");
    EXPECT_EQ(
        MyDll_topoLea2Medrix(data("fielddata/medrix/no_observations.lea").c_str(), out.c_str()), 0);
    EXPECT_FALSE(fs::exists(file("obra.cod")));
    fs::create_directory(file("obra.cod"));
    EXPECT_EQ(MyDll_topoLea2Medrix(data("fielddata/medrix/survey.lea").c_str(), out.c_str()), 1);
    EXPECT_TRUE(fs::is_directory(file("obra.cod")));
    EXPECT_EQ(test::readBytes(out),
              test::withPlatformNewlines(test::readBytes(data("fielddata/medrix/survey.txt"))));
}

// The point files as the drawings read them: the plain list by the rules the
// conversion to NEVO points reads it with, the NEVO file to its last line.
TEST_F(FieldDataTest, PointFilesAreReadAsTheConversionsReadThem) {
    test::writeBytes(file("lista.txt"),
                     "7 100.5 200.25 3.1 EST1 otra\n\nP12\t1 2 3\n5 1 2\n9 1 1 1");
    test::writeBytes(file("nevo.txt"), "7,100.500,200.250,3.100,EST1\n5,1,2\n8,1,2,-2.5");
    std::vector<NamedPoint> list = readPointList(file("lista.txt")).value();
    ASSERT_EQ(list.size(), 2u);  // a line of three fields is none; the last line is lost
    EXPECT_EQ(list[0].name, "7");
    EXPECT_EQ(list[0].x, 100.5);
    EXPECT_EQ(list[0].y, 200.25);
    EXPECT_EQ(list[0].z, 3.1);
    EXPECT_EQ(list[0].code, "EST1");
    EXPECT_EQ(list[1].name, "P12");
    EXPECT_EQ(list[1].code, "");
    std::vector<NamedPoint> nevo = readNevoPoints(file("nevo.txt")).value();
    ASSERT_EQ(nevo.size(), 2u);  // the last line is read
    EXPECT_EQ(nevo[0].code, "EST1");
    EXPECT_EQ(nevo[1].name, "8");
    EXPECT_EQ(nevo[1].z, -2.5);
    EXPECT_FALSE(readPointList(file("falta.txt")));
}

}  // namespace
}  // namespace quelcnv
