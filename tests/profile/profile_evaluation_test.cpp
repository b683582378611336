// The profile evaluated at any station: grades between the vertices and the
// parabola at a vertex with a curve.
#include "profile/profile_evaluation.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quelcnv {
namespace {

// Up 2 % to a crest at 100 with a 40 m curve, down 2 % to 200, then up 5 %
// to 300 through a vertex that carries no curve.
const Profile crest = {{0, 100}, {100, 102, 1000, 20, 0.2}, {200, 100}, {300, 105}};

TEST(ProfileEvaluation, GradesAndTheParabolaBetweenThem) {
    struct Case {
        double station, elevation, grade;
    };
    const Case cases[] = {{0, 100, 0.02},    {50, 101, 0.02},      {80, 101.6, 0.02},
                          {100, 101.8, 0.0}, {110, 101.75, -0.01}, {120, 101.6, -0.02},
                          {150, 101, -0.02}, {250, 102.5, 0.05},   {300, 105, 0.05}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.station);
        auto point = profileAt(crest, c.station);
        ASSERT_TRUE(point);
        EXPECT_NEAR(point->elevation, c.elevation, 1e-9);
        EXPECT_NEAR(point->grade, c.grade, 1e-12);
    }
    EXPECT_FALSE(profileAt(crest, -0.1));
    EXPECT_FALSE(profileAt(crest, 300.1));
    EXPECT_FALSE(profileAt({}, 0.0));
}

TEST(ProfileEvaluation, OnlySensibleCurvesAreCurves) {
    std::vector<VerticalCurve> curves = verticalCurves(crest);
    ASSERT_EQ(curves.size(), 1u);
    EXPECT_EQ(curves[0].vertex, 1u);
    EXPECT_DOUBLE_EQ(curves[0].length, 40.0);
    // A vertical step, a negative tangent and an endless one give none.
    Profile odd = {{0, 0},         {10, 1, 0, 5},        {10, 3, 0, 5},
                   {20, 3, 0, -4}, {30, 4, 0, HUGE_VAL}, {40, 4}};
    EXPECT_TRUE(verticalCurves(odd).empty());
}

}  // namespace
}  // namespace quelcnv
