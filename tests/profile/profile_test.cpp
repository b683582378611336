// What the profile and superelevation conversions do beyond the cases of
// tests/data/profile/cases.txt: the grade rule and an infinite kv as the C
// runtime prints it. Arguments the host may pass (NULL, paths its buffers
// cannot hold, folders) are in tests/frame/hostile_inputs_test.cpp.
#include <gtest/gtest.h>

#include <cmath>

#include "profile/profile_vertex.h"
#include "profile/superelevation_file.h"
#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

ProfileVertex at(double station, double elevation) {
    ProfileVertex vertex;
    vertex.station = station;
    vertex.elevation = elevation;
    return vertex;
}

TEST(ProfileGrade, BetweenTwoVertices) {
    struct Case {
        ProfileVertex p, q;
        double grade;
    };
    const Case cases[] = {
        {at(0, 100), at(100, 102), 0.02},
        {at(200, 101), at(100, 102), -0.01},  // backwards: the same quotient
        {at(100, 102), at(100, 105), verticalGrade},
        {at(100, 105), at(100, 102), -verticalGrade},
        {at(100, 102), at(100, 102.00011), verticalGrade},
        // a rise within 0.0001, the bounds included, is none
        {at(100, 0), at(100, 0.0001), 0.0},
        {at(100, 0.0001), at(100, 0), 0.0},
        {at(100, 102), at(100, 102), 0.0},
        // only an exactly equal station is vertical
        {at(100, 102), at(100.0000001, 102.0001), 0.0001 / 0.0000001},
    };
    for (const Case& c : cases) {
        EXPECT_NEAR(gradeBetween(c.p, c.q), c.grade, std::abs(c.grade) * 1e-6)
            << c.p.station << "/" << c.p.elevation << " to " << c.q.station << "/" << c.q.elevation;
    }
}

// The outgoing grade goes from the next vertex back to this one: at equal
// stations its sign follows this elevation minus the next one.
TEST(ProfileGrade, OutgoingVerticalGradeFollowsThisElevationMinusTheNext) {
    Profile rising = {at(0, 100), at(100, 102), at(100, 105), at(200, 104)};
    EXPECT_DOUBLE_EQ(changeOfGrade(rising, 1), -verticalGrade - 0.02);
    EXPECT_DOUBLE_EQ(changeOfGrade(rising, 2), -0.01 - verticalGrade);
}

class ProfileTest : public test::FolderTest {};

// No change of grade at a RUXO vertex: kv is infinite, printed as the C
// runtime prints it.
TEST_F(ProfileTest, StraightThroughARuxoVertexGivesAnInfiniteKv) {
    test::writeBytes(file("eje.ruxo"), "0,100,0\n100,102,80\n200,104,0\n");
    ASSERT_EQ(MyDll_rasruxo2nevo(file("eje.ruxo").c_str(), file("eje.tab").c_str()), 1);
    std::string expected = "0.000\t100.000\t0.000\t0.000\t0.000\n100.000\t102.000\t";
    expected += test::cPrintf("%0.3lf", HUGE_VAL);
    expected += "\t40.000\t0.000\n200.000\t104.000\t0.000\t0.000\t0.000\n";
    EXPECT_EQ(test::readBytes(file("eje.tab")), test::withPlatformNewlines(expected));
}

// The superelevation file read back as written: station and two cross-falls
// a line, a line of fewer fields skipped, the last line read.
TEST_F(ProfileTest, SuperelevationRowsStandAsWritten) {
    test::writeBytes(file("peralte.txt"), "   0.000 -2.000 -2.000\nPK\n  80.000 -3.500  3.500");
    std::vector<SuperelevationRow> rows = readSuperelevationFile(file("peralte.txt")).value();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[1].station, 80.0);
    EXPECT_EQ(rows[1].firstFall, -3.5);
    EXPECT_EQ(rows[1].secondFall, 3.5);
    EXPECT_FALSE(readSuperelevationFile(file("falta.txt")));
}

}  // namespace
}  // namespace quelcnv
