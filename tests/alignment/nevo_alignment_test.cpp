#include "alignment/nevo_alignment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

#include "alignment/geometry.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

class NevoAlignmentTest : public test::FolderTest {};

// Only the function tells that mixed.ruxo holds an asymmetric curve; the
// outputs are in tests/data/alignment/cases.txt.
TEST_F(NevoAlignmentTest, ReportsAnAsymmetricCurve) {
    for (std::string name : {"left_curve", "clothoids", "mixed"}) {
        std::string ruxo = test::testData("alignment/nevo/" + name + ".ruxo").string();
        EXPECT_EQ(writeIntersectionForm(ruxo, file("out")).asymmetricCurve, name == "mixed")
            << name;
    }
}

// Without a settings file the form is intersection points (in cases.txt).
TEST_F(NevoAlignmentTest, SettingsChooseTheElementFormUpToTheLineCount) {
    test::writeBytes(file("four.ruxo"), "0 0 0 0 0 0\n1 0 0 0 0 0\n2 0 0 0 0 0\n3 0 0 0 0 0\n");
    test::writeBytes(file("five.ruxo"), test::readBytes(file("four.ruxo")) + "4 0 0 0 0 0\n");
    // clang-format off
    const std::tuple<const char*, const char*, NevoForm> cases[] = {
        {"LIMITE=5\n", "four.ruxo", NevoForm::elements},  // 4 lines count as 5
        {"LIMITE=5\n", "five.ruxo", NevoForm::intersectionPoints},
        {"cualquiera = 5 6\n", "four.ruxo", NevoForm::elements},
        {"LIMITE=5", "four.ruxo", NevoForm::elements},
        {"LIMITE 5\n", "four.ruxo", NevoForm::intersectionPoints},
        {"LIMITE=\n", "four.ruxo", NevoForm::intersectionPoints},
        {"LIMITE=x\n", "four.ruxo", NevoForm::intersectionPoints},
        {"", "four.ruxo", NevoForm::intersectionPoints},
    };
    // clang-format on
    for (auto [line, ruxo, form] : cases) {
        test::writeBytes(file("quelvar.ini"), line);
        EXPECT_EQ(chooseNevoForm(file(ruxo), dir_.string()), form) << line << ruxo;
    }
}

AlignmentRecord arc(double station, double azimuth, double radius) {
    return {arcElement, station, 0, 0, 0, azimuth, radius};
}

AlignmentRecord straight(double station, double azimuth) {
    return {straightElement, station, 0, 0, 0, azimuth};
}

// Arcs are split at their middle station until none turns half a circle: an
// arc of 250 grads once; written with an azimuth past a full turn, one of 450
// grads three times, as the halves still sweep 225 grads each.
TEST(SplitLongArcs, MiddleStationsUntilNoArcSweepsHalfACircle) {
    const double oneGradPerMetre = 200 / 3.14159265358979323846;  // radius
    const std::pair<double, std::vector<double>> cases[] = {
        {250, {0, 125, 250, 300}}, {450, {0, 112.5, 225, 337.5, 450, 500}}};
    for (const auto& [end, stations] : cases) {
        std::vector<AlignmentRecord> records = {arc(0, 0, oneGradPerMetre), straight(end, end),
                                                straight(end + 50, 50)};
        splitLongArcs(records, 9);
        ASSERT_EQ(records.size(), stations.size()) << end;
        for (std::size_t i = 0; i + 1 < records.size(); ++i) {
            EXPECT_NEAR(records[i].station, stations[i], 1e-9) << end << " " << i;
            EXPECT_NEAR(records[i].azimuth, stations[i], 1e-9) << end << " " << i;
            double length = i + 2 < records.size() ? stations[i + 1] - stations[i] : 0;  // arcs
            EXPECT_DOUBLE_EQ(records[i].length, length) << end << " " << i;
        }
    }
    // No room for more records: nothing is split.
    std::vector<AlignmentRecord> full = {arc(0, 0, 100), straight(100, 300)};
    splitLongArcs(full, 2);
    EXPECT_EQ(full.size(), 2u);
}

// Sorting by station as the splitting does: each record, in order, goes
// after every record it does not sort before, so records at stations within
// 0.001 keep their order, even where such stations run on in a chain.
void sortByInsertion(std::vector<AlignmentRecord>& records) {
    for (std::size_t i = 1; i < records.size(); ++i)
        for (std::size_t j = i; j > 0 && compareStations(records[j], records[j - 1]) < 0; --j)
            std::swap(records[j], records[j - 1]);
}

// The rule restated in its plain form, scan from the start and sort after
// each split, against the tree the writer uses: random alignments with
// stations far apart, equal, in chains closer than 0.001, out of order.
TEST(SplitLongArcs, SameRecordsAsScanningAndSortingAfterEachSplit) {
    auto plain = [](std::vector<AlignmentRecord> records, std::size_t capacity) {
        while (records.size() < capacity) {
            std::size_t k = 0;
            while (k + 1 < records.size() && !arcSweepsHalfCircle(records[k], records[k + 1])) ++k;
            if (k + 1 >= records.size()) break;
            double middle = (records[k].station + records[k + 1].station) / 2;
            int holder = findElement(records, middle);
            if (holder < 0) break;
            ArcPoint at = pointOnArc(records[holder], middle);
            records[k].length = (records[k + 1].station - records[k].station) / 2;
            records.push_back({arcElement, middle, at.point.x, at.point.y, 0, at.azimuth, at.radius,
                               0, records[k].length});
            sortByInsertion(records);
        }
        return records;
    };
    std::mt19937 random(7);
    for (int round = 0; round < 400; ++round) {
        std::vector<AlignmentRecord> records;
        double station = 0;
        for (int i = 0; i < 12; ++i) {
            double azimuth = std::uniform_real_distribution<double>(0, 400)(random);
            double radius = (random() % 3 == 0) ? 0.0 : (random() % 2 ? 50.0 : -50.0);
            records.push_back(radius == 0 ? straight(station, azimuth)
                                          : arc(station, azimuth, radius));
            station += (round % 4 == 0)   ? 0.0015 * (random() % 3)
                       : (round % 4 == 1) ? 0.0004 * (random() % 4)
                                          : 1 + random() % 400;
        }
        if (round % 5 == 1) std::shuffle(records.begin(), records.end(), random);
        std::size_t capacity = 3 * records.size();
        std::vector<AlignmentRecord> walked = records;
        splitLongArcs(walked, capacity);
        std::vector<AlignmentRecord> expected = plain(records, capacity);
        // bit for bit, not-a-number included (a split evaluated on a straight)
        auto bits = [](const std::vector<AlignmentRecord>& r) {
            std::vector<std::array<double, 4>> out;
            for (const auto& e : r) out.push_back({e.station, e.x, e.azimuth, e.length});
            return std::string(reinterpret_cast<const char*>(out.data()), out.size() * 32);
        };
        EXPECT_EQ(bits(walked), bits(expected)) << round;
    }
}

}  // namespace
}  // namespace quelcnv
