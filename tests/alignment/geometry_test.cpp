#include "alignment/geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <tuple>

namespace quelcnv {
namespace {

constexpr double pi = 3.14159265358979323846;

TEST(Geometry, NormalizeGradsIntoOneTurnWithTheSnapBelowFull) {
    // clang-format off
    const std::pair<double, double> cases[] = {
        {-0.00001, 0.0}, {399.99996, 0.0}, {399.99995, 399.99995}, {800.0, 0.0}, {-100.0, 300.0},
        {1000.5, 200.5}, {-400.0, 0.0}, {123.25, 123.25}, {400.0, 0.0},
    };
    // clang-format on
    for (auto [angle, expected] : cases) {
        EXPECT_DOUBLE_EQ(normalizeGrads(angle), expected) << angle;
        EXPECT_FALSE(std::signbit(normalizeGrads(angle))) << angle;
    }
    EXPECT_TRUE(std::isnan(normalizeGrads(INFINITY)));  // no endless loop
}

TEST(Geometry, PointAlongMeasuresAzimuthsFromTheYAxisTowardsX) {
    // clang-format off
    const std::tuple<double, double, double> cases[] = {
        {0, 0, 10}, {100, 10, 0}, {200, 0, -10}, {300, -10, 0}, {50, 10 / std::sqrt(2), 10 / std::sqrt(2)},
    };
    // clang-format on
    for (auto [azimuth, x, y] : cases) {
        PlanePoint p = pointAlong({1, 2}, 10, azimuth);
        EXPECT_NEAR(p.x, 1 + x, 1e-12) << azimuth;
        EXPECT_NEAR(p.y, 2 + y, 1e-12) << azimuth;
    }
}

AlignmentRecord arcAt(double x, double y, double azimuth, double radius, double station) {
    return {arcElement, station, x, y, 0, azimuth, radius};
}

TEST(Geometry, QuarterCirclesOfBothSigns) {
    for (double radius : {100.0, -100.0}) {
        ArcPoint end = pointOnArc(arcAt(0, 0, 0, radius, 1000), 1000 + 50 * pi);
        EXPECT_NEAR(end.point.x, radius, 1e-9);
        EXPECT_NEAR(end.point.y, 100, 1e-9);
        EXPECT_NEAR(end.azimuth, radius > 0 ? 100 : 300, 1e-9);
        EXPECT_EQ(end.radius, radius);
    }
}

// Against the circle itself: the centre lies at the radius to the right of
// the tangent (left for a negative radius); the point found lies on the
// circle, the angle seen from the centre is the arc length over the radius,
// and the azimuth has turned by as much.
TEST(Geometry, PointsOnArcsLieOnTheirCircle) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    for (int i = 0; i < 1000; ++i) {
        double azimuth = 200 + 200 * any(random), radius = 500 * any(random);
        double length = std::fabs(radius) * (1.5 + any(random));  // up to 2.5 radians
        AlignmentRecord arc = arcAt(1000 * any(random), 1000 * any(random), azimuth, radius, 5);
        ArcPoint p = pointOnArc(arc, 5 + length);
        double a = azimuth * pi / 200;
        double cx = arc.x + radius * std::cos(a), cy = arc.y - radius * std::sin(a);
        EXPECT_NEAR(std::hypot(p.point.x - cx, p.point.y - cy), std::fabs(radius), 1e-6);
        double seen =
            std::atan2(arc.x - cx, arc.y - cy) - std::atan2(p.point.x - cx, p.point.y - cy);
        double turned = std::remainder(length / radius + seen, 2 * pi);
        EXPECT_NEAR(turned, 0.0, 1e-9) << i;
        double azimuthTurn = std::remainder(p.azimuth - azimuth - length / radius * 200 / pi, 400);
        EXPECT_NEAR(azimuthTurn, 0.0, 1e-9) << i;
    }
}

TEST(Geometry, ArcsSweepingHalfACircle) {
    AlignmentRecord next;
    // clang-format off
    const std::tuple<double, double, double, bool> cases[] = {
        {100, 10, 210, true}, {100, 10, 209.99, false}, {100, 350, 150, true}, {100, 350, 149, false},
        {-100, 210, 10, true}, {-100, 10, 210, true}, {-100, 10, 211, false}, {-100, 10, 10, false},
    };
    // clang-format on
    for (auto [radius, from, to, sweeps] : cases) {
        next.azimuth = to;
        EXPECT_EQ(arcSweepsHalfCircle(arcAt(0, 0, from, radius, 0), next), sweeps)
            << radius << " " << from << " " << to;
    }
    AlignmentRecord straight{straightElement, 0, 0, 0, 0, 10};
    next.azimuth = 300;
    EXPECT_FALSE(arcSweepsHalfCircle(straight, next));
}

TEST(Geometry, LineIntersectionWithTheFixedVerticalSlope) {
    // A vertical line through (5, -5) and a horizontal one at height 0.
    // (value() throws, failing the test, where no point is found)
    PlanePoint meet = lineIntersection({0, 0}, {10, 0}, {5, -5}, {5, 5}).value();
    EXPECT_DOUBLE_EQ(meet.x, 5 + 5 / 9000000000.0);
    EXPECT_NEAR(meet.y, 0, 1e-5);
    meet = lineIntersection({0, 0}, {10, 10}, {0, 10}, {10, 0}).value();
    EXPECT_NEAR(meet.x, 5, 1e-12);
    EXPECT_NEAR(meet.y, 5, 1e-12);
    // A shared end is the meeting point, even of parallel lines.
    EXPECT_EQ(lineIntersection({0, 0}, {10, 0}, {20, 0.00005}, {10.00009, 0}).value().x, 10);
    EXPECT_FALSE(lineIntersection({0, 0}, {10, 10}, {0, 1}, {10, 11}));       // parallel
    EXPECT_FALSE(lineIntersection({0, 0}, {10, 10}, {0, 1}, {10, 11.0009}));  // nearly
    EXPECT_FALSE(lineIntersection({0, 0}, {0.00005, 10}, {3, 0}, {3, 10}));   // two verticals
}

TEST(Geometry, StationsCompareWithinAMillimetreAndElementsAreFoundByStation) {
    AlignmentRecord a{straightElement, 100}, b;
    for (auto [station, order] :
         {std::pair{100.0009, 0}, {99.9991, 0}, {100.001, -1}, {99.99, 1}}) {
        b.station = station;
        EXPECT_EQ(compareStations(a, b), order) << station;
    }
    std::vector<AlignmentRecord> records = {{0, 0}, {0, 10}, {0, 10}, {0, 30}};  // type, station
    for (auto [station, index] :
         {std::pair{0.0, 0}, {5.0, 0}, {10.0, 0}, {20.0, 2}, {30.0, 2}, {31.0, -1}, {-1.0, -1}})
        EXPECT_EQ(findElement(records, station), index) << station;
    EXPECT_EQ(findElement(std::span(records).first(1), 0), -1);
}

}  // namespace
}  // namespace quelcnv
