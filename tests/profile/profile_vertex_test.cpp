#include "profile/profile_vertex.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quelcnv {
namespace {

ProfileVertex at(double station, double elevation) {
    ProfileVertex vertex;
    vertex.station = station;
    vertex.elevation = elevation;
    return vertex;
}

TEST(ProfileVertexTest, GradeBetweenTwoVertices) {
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
TEST(ProfileVertexTest, OutgoingVerticalGradeFollowsThisElevationMinusTheNext) {
    Profile rising = {at(0, 100), at(100, 102), at(100, 105), at(200, 104)};
    EXPECT_DOUBLE_EQ(changeOfGrade(rising, 1), -verticalGrade - 0.02);
    EXPECT_DOUBLE_EQ(changeOfGrade(rising, 2), -0.01 - verticalGrade);
}

}  // namespace
}  // namespace quelcnv
