#include "common/tolerance.h"

#include <gtest/gtest.h>

#include "common/fixed_columns.h"
#include "common/plane.h"

namespace quelcnv {
namespace {

TEST(Tolerance, BoundsAreInsideTheDeadBandAndTheRange) {
    for (auto [value, sign] : {std::pair{0.0001, 0}, {0.00011, 1}, {-0.0001, 0}, {-0.00011, -1}}) {
        EXPECT_EQ(signWithTolerance(value), sign) << value;
    }
    EXPECT_TRUE(isBetween(5, 5.00005, 3, 0.0001));
    EXPECT_TRUE(isBetween(3, 2.9999, 5, 0.0001));
    EXPECT_FALSE(isBetween(5, 5.00011, 3, 0.0001));
}

TEST(Plane, VerticalLinesGetTheFixedSlopeAndOnLineMixesTolerances) {
    LineEquation vertical = lineThrough({2, 5}, {2.00005, 9});  // x closer than 0.0001
    EXPECT_EQ(vertical.slope, 9000000000.0);
    EXPECT_EQ(vertical.intercept, 5.0 - 2.0 * 9000000000.0);

    EXPECT_TRUE(onLine({0, 0}, {10, 0}, {50, 0.00009}));  // within 0.0001 of the line
    EXPECT_FALSE(onLine({0, 0}, {10, 0}, {5, 0.0001}));
    EXPECT_TRUE(onLine({1, 0}, {1.0009, 10}, {0.9991, -40}));  // vertical: x within 0.001
    EXPECT_FALSE(onLine({1, 0}, {1.0009, 10}, {1.0011, 5}));
    EXPECT_TRUE(onSegment({0, 0}, {10, 10}, {10.00005, 10.00005}));
    EXPECT_FALSE(onSegment({0, 0}, {10, 10}, {10.001, 10.001}));
}

TEST(FixedColumns, MidTextCutsFromAOneBasedColumn) {
    EXPECT_EQ(midText("abcdef1234\n", 7, 4), "1234");
    EXPECT_EQ(midText("abcdef1234", 7, 12), "1234");
    EXPECT_EQ(midText("abcdef1234", 40, 3), "");
    EXPECT_EQ(midText("abcdef1234", 7, 0), std::nullopt);
}

}  // namespace
}  // namespace quelcnv
