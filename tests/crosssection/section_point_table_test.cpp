#include "crosssection/section_point_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

#include "common/tolerance.h"

namespace quelcnv {
namespace {

// The order std::stable_sort gives the points themselves.
template <typename Before>
std::vector<std::uint32_t> plainStableOrder(const std::vector<SectionPointText>& points,
                                            Before before) {
    std::vector<std::uint32_t> order(points.size());
    std::iota(order.begin(), order.end(), 0u);
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        return before(points[a], points[b]);
    });
    return order;
}

// Sections in order or nearly so: stations and offsets on a grid, nudged by
// less than the tolerance now and then, a section or a point out of place
// now and then. Points found already in order skip the sort; every order
// must be the one of a plain stable sort.
TEST(SectionPointTable, OrderIsTheStableSortsWhetherSortedOrNot) {
    std::mt19937 random(20261123);
    auto before = [](const SectionPointText& a, const SectionPointText& b) {
        return compareByStationAndOffset(a, b) < 0;
    };
    int skipped = 0;
    for (int round = 0; round < 400; ++round) {
        SectionPointTable table;
        std::vector<SectionPointText> points;
        const char* codes[] = {"", "EJE", "BORDE"};
        double step = round % 4 == 0 ? 0.0005 : 5.0;  // stations closer than the tolerance
        bool disorder = round % 2 == 1;
        for (int section = 0; section < 6; ++section) {
            double station = 100.0 + step * section;
            if (disorder && random() % 10 == 0) station -= 2 * step;
            table.startSection(station);
            for (int k = 0; k < 8; ++k) {
                double offset = -4.0 + k;
                if (random() % 6 == 0) offset += (random() % 3) * 0.0004;
                if (disorder && random() % 15 == 0) offset -= 3.0;
                const char* code = codes[random() % 3];
                table.add(offset, 400.0 + k, code);
                points.push_back({station, offset, 400.0 + k, code});
            }
        }
        skipped += table.inStationOrder(stationTolerance) ? 1 : 0;
        ASSERT_EQ(table.stableOrder(before, stationTolerance), plainStableOrder(points, before))
            << round;
        for (std::size_t i = 0; i < points.size(); ++i) {
            EXPECT_EQ(table.at(i).code, points[i].code);
            EXPECT_EQ(table.at(i).station, points[i].station);
        }
    }
    EXPECT_GT(skipped, 40);  // both ways were taken
    EXPECT_LT(skipped, 360);
}

}  // namespace
}  // namespace quelcnv
