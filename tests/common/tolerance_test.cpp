#include "common/tolerance.h"

#include <gtest/gtest.h>

#include <cmath>

#include "common/fixed_columns.h"
#include "common/plane.h"

namespace quelcnv {
namespace {

TEST(Tolerance, SignHasADeadBandWithBothBoundsInside) {
    const std::pair<double, int> cases[] = {
        {0.0001, 0}, {0.00011, 1}, {-0.0001, 0}, {-0.00011, -1}, {0.0, 0}, {250.0, 1}, {-3.0, -1},
    };
    for (auto [value, sign] : cases) EXPECT_EQ(signWithTolerance(value), sign) << value;
}

TEST(Tolerance, OrderPairKeepsTheFirstWhenEqual) {
    EXPECT_EQ(orderPair(3, 5).low, 3);
    EXPECT_EQ(orderPair(5, 3).low, 3);
    EXPECT_EQ(orderPair(5, 3).high, 5);
    EXPECT_TRUE(std::signbit(orderPair(-0.0, 0.0).low));
    EXPECT_FALSE(std::signbit(orderPair(0.0, -0.0).low));
}

TEST(Tolerance, IsBetweenWidensTheRangeByTheTolerance) {
    EXPECT_TRUE(isBetween(5, 5.00005, 3, 0.0001));
    EXPECT_TRUE(isBetween(3, 2.9999, 5, 0.0001));
    EXPECT_TRUE(isBetween(3, 4, 5, 0.0));
    EXPECT_FALSE(isBetween(5, 5.00011, 3, 0.0001));
    EXPECT_FALSE(isBetween(3, 2.9998, 5, 0.0001));
}

TEST(Plane, LineThroughTwoPointsUsesTheFixedVerticalSlope) {
    LineEquation sloped = lineThrough({1, 2}, {3, 8});
    EXPECT_DOUBLE_EQ(sloped.slope, 3.0);
    EXPECT_DOUBLE_EQ(sloped.intercept, -1.0);
    // x values closer than 0.0001: vertical, with the finite slope 9e9.
    LineEquation vertical = lineThrough({2, 5}, {2.00005, 9});
    EXPECT_EQ(vertical.slope, 9000000000.0);
    EXPECT_EQ(vertical.intercept, 5.0 - 2.0 * 9000000000.0);
    EXPECT_EQ(lineThrough({2, 5}, {2.0001, 9}).slope, 4.0 / (2.0001 - 2.0));
}

TEST(Plane, OnLineMixesTwoTolerances) {
    PlanePoint a{0, 0}, b{10, 0};
    EXPECT_TRUE(onLine(a, b, {5, 0.00009}));
    EXPECT_FALSE(onLine(a, b, {5, 0.0001}));
    EXPECT_TRUE(onLine(a, b, {50, -0.00009}));  // beyond the segment, still on the line
    PlanePoint c{0, 0}, d{10, 10};
    EXPECT_TRUE(onLine(c, d, {2.5, 2.5}));
    // x values closer than 0.001: a vertical line, tested on x within 0.001.
    PlanePoint e{1, 0}, f{1.0009, 10};
    EXPECT_TRUE(onLine(e, f, {1.0009, 5}));
    EXPECT_TRUE(onLine(e, f, {0.9991, -40}));
    EXPECT_FALSE(onLine(e, f, {1.0011, 5}));
}

TEST(Plane, OnSegmentStaysInsideTheWidenedBox) {
    PlanePoint a{0, 0}, b{10, 10};
    EXPECT_TRUE(onSegment(a, b, {5, 5}));
    EXPECT_TRUE(onSegment(a, b, {10.00005, 10.00005}));
    EXPECT_FALSE(onSegment(a, b, {10.001, 10.001}));
    EXPECT_FALSE(onSegment(a, b, {5, 6}));
}

TEST(FixedColumns, MidTextCutsFromAColumn) {
    EXPECT_EQ(midText("abcdef1234", 7, 4), "1234");
    EXPECT_EQ(midText("abcdef1234\n", 7, 4), "1234");
    EXPECT_EQ(midText("abcdef1234", 7, 12), "1234");
    EXPECT_EQ(midText("abcdef1234", 1, 3), "abc");
    EXPECT_EQ(midText("abcdef1234", 11, 3), "");
    EXPECT_EQ(midText("abcdef1234", 40, 3), "");
    EXPECT_EQ(midText("abcdef1234", 7, 0), std::nullopt);
    EXPECT_EQ(midText("abcdef1234", 0, 3), std::nullopt);
}

}  // namespace
}  // namespace quelcnv
