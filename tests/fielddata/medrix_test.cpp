// Medrix observation files from LEA surveys and from NEVO observation lists,
// and the path of the code file.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "common/file_path.h"
#include "common/text_format.h"
#include "fielddata/lea_medrix.h"
#include "fielddata/nevo_medrix.h"
#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

class MedrixTest : public test::FolderTest {
protected:
    // The observation file and the code file written from a LEA survey.
    std::pair<std::string, std::string> fromLea(std::string_view lea) {
        test::writeBytes(file("obra.lea"), lea);
        EXPECT_TRUE(writeLeaMedrix(file("obra.lea"), file("obra.txt")).ok()) << lea;
        return {test::readBytes(file("obra.txt")), test::readBytes(file("obra.cod"))};
    }

    std::string fromNevo(std::string_view list) {
        test::writeBytes(file("lecturas.txt"), list);
        EXPECT_TRUE(writeNevoMedrix(file("lecturas.txt"), file("obra.med")).ok()) << list;
        return test::readBytes(file("obra.med"));
    }
};

// tests/data/fielddata/medrix/survey.lea: two stations, observations of both
// kinds with and without codes, tabs, a line of another kind, a station line
// without a height (it renames the station), a short observation line, and
// a last observation without a line break (used).
TEST_F(MedrixTest, WritesTheObservationAndCodeFilesOfALeaSurvey) {
    auto [observations, codes] =
        fromLea(test::readBytes(test::testData("fielddata/medrix/survey.lea")));
    EXPECT_EQ(observations, test::withPlatformNewlines(
                                test::readBytes(test::testData("fielddata/medrix/survey.txt"))));
    EXPECT_EQ(codes, test::withPlatformNewlines(
                         test::readBytes(test::testData("fielddata/medrix/survey.cod"))));
}

TEST_F(MedrixTest, SlopeDistanceFromTheZenithAngle) {
    // 0 / 0 and the sine worked out at run time, as the converter works them
    // out: the runtime's sine near pi may differ in its last bits from the
    // compiler's.
    volatile double zero = 0.0, straight = 200 * 0.015707963267948967;
    const std::pair<const char*, std::string> cases[] = {
        {"100", "    50.000   1.300   1.500"},
        {"50", "    70.711   1.300   1.500"},
        {"150", "    70.711   1.300   1.500"},
        {"-100", "   -50.000   1.300   1.500"},
        // a sine of zero: not a number, and the observation stays
        {"0", formatText("%10.3lf", zero / zero) + "   1.300   1.500"},
        // 200 grads in doubles is not quite pi: a tiny sine, not zero
        {"200", formatText("%10.3lf", 50.0 / std::sin(straight)) + "   1.300   1.500"},
    };
    for (const auto& [vertical, rest] : cases) {
        std::string lea = "S E1 1.5\nP 7 10 ";
        lea += vertical;
        lea += " 50 1.3\n";
        std::string expected = formatText("   E1     7  10.0000%9.4lf", test::cStrtod(vertical));
        expected += rest;
        EXPECT_EQ(fromLea(lea).first, test::withPlatformNewlines(expected + "\n")) << vertical;
    }
}

TEST_F(MedrixTest, LeaObservationsNeedACompleteStationBefore) {
    const std::pair<const char*, const char*> cases[] = {
        // observations before the first station line are passed over
        {"P 1 0 100 10 0\nS A 1.5\nE 2 0 100 10 0\n",
         "    A     2   0.0000 100.0000    10.000   0.000   1.500\n"},
        // a station line without a height only renames a complete station;
        // the name ends at a blank or tab, so it keeps the line break
        {"S A 1.5\nS B\nP 3 0 100 10 0\n",
         "   B\n     3   0.0000 100.0000    10.000   0.000   1.500\n"},
        // a blank after the name makes an empty height: a station of height 0
        {"S A \nP 3 0 100 10 0 X\n", "    A     3   0.0000 100.0000    10.000   0.000   0.000\n"},
        // long names widen the line; tabs separate too; other kinds are ignored
        {"S\tSTATION7\t1.5\nX 1 2 3 4 5\np 1 2 3 4 5\nE\tPOINT123\t1\t100\t2\t0.1\n",
         "STATION7POINT123   1.0000 100.0000     2.000   0.100   1.500\n"},
    };
    for (auto [lea, observations] : cases)
        EXPECT_EQ(fromLea(lea).first, test::withPlatformNewlines(observations)) << lea;
}

TEST_F(MedrixTest, LeaWithoutObservationsWritesNothing) {
    for (const char* lea :
         {"", "P 1 0 100 10 0\nS A 1.5\n", "S A\nP 1 0 100 10 0\n", "S A 1.5\nP 1 0 100 10\n"}) {
        test::writeBytes(file("obra.lea"), lea);
        EXPECT_EQ(writeLeaMedrix(file("obra.lea"), file("obra.txt")).failure, Failure::noData)
            << lea;
        EXPECT_FALSE(fs::exists(file("obra.txt")));
        EXPECT_FALSE(fs::exists(file("obra.cod")));
    }
}

TEST_F(MedrixTest, CodeFileBesideTheObservationFile) {
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

TEST_F(MedrixTest, NevoObservationsReColumned) {
    // clang-format off
    const std::pair<const char*, const char*> cases[] = {
        {"E1 P1 123.45678 99.5 25.1234 1.5 1.6 PK12\n",
         "       E1       P1   123.4568   99.5000    25.123  1.500  1.600   PK12\n"},
        // the bare word ruxo in any letter case is no code
        {"E1,P2,1,2,3,4,5,ruxo\nE1,P3,1,2,3,4,5,RUXO\nE1\tP4\t1\t2\t3\t4\t5\tRuXo\n",
         "       E1       P2     1.0000    2.0000     3.000  4.000  5.000       \n"
         "       E1       P3     1.0000    2.0000     3.000  4.000  5.000       \n"
         "       E1       P4     1.0000    2.0000     3.000  4.000  5.000       \n"},
        {"E1 P5 1 2 3 4 5 ruxo12\nE1 P6 1 2 3 4 5\n",
         "       E1       P5     1.0000    2.0000     3.000  4.000  5.000 ruxo12\n"
         "       E1       P6     1.0000    2.0000     3.000  4.000  5.000       \n"},
        // runs of separators are one; fewer than seven fields: dropped
        {" ,E1 ,, P7\t1 2 3 4 5 LONGCODE9 more\nE1 P8 1 2 3 4\n\n",
         "       E1       P7     1.0000    2.0000     3.000  4.000  5.000LONGCODE9\n"},
    };
    // clang-format on
    for (auto [list, medrix] : cases)
        EXPECT_EQ(fromNevo(list), test::withPlatformNewlines(medrix)) << list;
}

TEST_F(MedrixTest, NevoLastLineWithoutLineBreakIsLost) {
    EXPECT_EQ(fromNevo("E1 P1 1 2 3 4 5 A\nE1 P2 1 2 3 4 5 B"),
              test::withPlatformNewlines(
                  "       E1       P1     1.0000    2.0000     3.000  4.000  5.000      A\n"));
}

TEST_F(MedrixTest, EntryPointResults) {
    const std::string lea = file("obra.lea"), out = file("obra.txt");
    test::writeBytes(lea, "S A 1.5\nP 1 0 100 10 0 C\n");
    for (auto convert : {MyDll_topoLea2Medrix, MyDll_lectnevo2medrix}) {
        EXPECT_EQ(convert(file("missing.lea").c_str(), out.c_str()), 0);
        EXPECT_EQ(convert(lea.c_str(), dir_.string().c_str()), 0);
        EXPECT_EQ(convert(nullptr, out.c_str()), 0);
        EXPECT_EQ(convert(lea.c_str(), nullptr), 0);
        EXPECT_FALSE(fs::exists(out));
    }
    EXPECT_EQ(MyDll_lectnevo2medrix(lea.c_str(), out.c_str()), 1);
    EXPECT_EQ(MyDll_topoLea2Medrix(lea.c_str(), out.c_str()), 1);
    EXPECT_EQ(test::readBytes(file("obra.cod")), test::withPlatformNewlines("     1        C\n"));
    // A code file that cannot be written is left out; the conversion is done.
    fs::remove(file("obra.cod"));
    fs::create_directory(file("obra.cod"));
    EXPECT_EQ(MyDll_topoLea2Medrix(lea.c_str(), out.c_str()), 1);
    EXPECT_TRUE(fs::is_directory(file("obra.cod")));
    EXPECT_GT(fs::file_size(out), 0u);
}

}  // namespace
}  // namespace quelcnv
