#include "alignment/nevo_alignment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

#include "alignment/geometry.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

class NevoAlignmentTest : public test::FolderTest {
protected:
    std::string expected(const std::string& name) {
        return test::withPlatformNewlines(
            test::readBytes(test::testData("alignment/nevo/" + name)));
    }
    std::string input(const std::string& name) {
        return test::testData("alignment/nevo/" + name).string();
    }
};

// left_curve: straight, arc of radius -300, straight. clothoids: a curve of
// radius 300 between clothoids of parameter 120. mixed: a clothoid with no
// radius after a straight (left out of the element form), an asymmetric
// curve (entry clothoid, no exit clothoid) and an arc of 250 grads, split in two.
TEST_F(NevoAlignmentTest, BothFormsOfWholeFiles) {
    for (const char* name : {"left_curve", "clothoids", "mixed"}) {
        std::string ruxo = input(std::string(name) + ".ruxo");
        ASSERT_TRUE(writeElementForm(ruxo, file("elements")).ok()) << name;
        EXPECT_EQ(test::readBytes(file("elements")), expected(std::string(name) + ".elements"))
            << name;
        IntersectionForm points = writeIntersectionForm(ruxo, file("points"));
        ASSERT_TRUE(points.outcome.ok()) << name;
        EXPECT_EQ(points.asymmetricCurve, std::string(name) == "mixed") << name;
        EXPECT_EQ(test::readBytes(file("points")), expected(std::string(name) + ".points")) << name;
    }
}

TEST_F(NevoAlignmentTest, TwoStraightsAndTheCommentLineRule) {
    test::writeBytes(file("eje.ruxo"), "*\n0 10 20 50 0 0\n100 80.711 90.711 50 0 0\n");
    ASSERT_TRUE(writeElementForm(file("eje.ruxo"), file("elements")).ok());
    // The element form reads the comment as a line of zeros... which has
    // fewer than six numbers, so it is dropped; six words make a zero record.
    EXPECT_EQ(test::readBytes(file("elements")),
              test::withPlatformNewlines("START 0.000, 10.0000, 20.0000\n"
                                         "STRAIGHT  50.0000,100.0000\n"
                                         "STRAIGHT  50.0000,0.0000\n"));
    ASSERT_TRUE(writeIntersectionForm(file("eje.ruxo"), file("points")).outcome.ok());
    EXPECT_EQ(test::readBytes(file("points")),
              test::withPlatformNewlines("START 0.000, 10.0000, 20.0000\nPT 80.7110, 90.7110\n"));

    test::writeBytes(file("commented.ruxo"), "* a b c d e\n100 80.711 90.711 50 0 0\n");
    ASSERT_TRUE(writeElementForm(file("commented.ruxo"), file("elements")).ok());
    EXPECT_EQ(test::readBytes(file("elements")),
              test::withPlatformNewlines("START 0.000, 0.0000, 0.0000\n"
                                         "STRAIGHT  0.0000,100.0000\n"
                                         "STRAIGHT  50.0000,0.0000\n"));
}

TEST_F(NevoAlignmentTest, UnreadableOrEmptyInputWritesNothing) {
    test::writeBytes(file("empty.ruxo"), "");
    test::writeBytes(file("unterminated.ruxo"), "0 0 0 0 0 0");
    for (const char* name : {"missing.ruxo", "empty.ruxo", "unterminated.ruxo"}) {
        EXPECT_FALSE(writeElementForm(file(name), file("out")).ok()) << name;
        EXPECT_FALSE(writeIntersectionForm(file(name), file("out")).outcome.ok()) << name;
        EXPECT_FALSE(std::filesystem::exists(file("out"))) << name;
    }
}

TEST_F(NevoAlignmentTest, SettingsChooseTheElementFormUpToTheLineCount) {
    test::writeBytes(file("four.ruxo"), "0 0 0 0 0 0\n1 0 0 0 0 0\n2 0 0 0 0 0\n3 0 0 0 0 0\n");
    test::writeBytes(file("five.ruxo"), test::readBytes(file("four.ruxo")) + "4 0 0 0 0 0\n");
    std::filesystem::create_directory(file("host"));
    const std::string settings = file("host/quelvar.ini");
    EXPECT_EQ(chooseNevoForm(file("four.ruxo"), file("host")), NevoForm::intersectionPoints);
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
        test::writeBytes(settings, line);
        EXPECT_EQ(chooseNevoForm(file(ruxo), file("host")), form) << line << ruxo;
    }
}

AlignmentRecord arc(double station, double azimuth, double radius) {
    AlignmentRecord r;
    r.type = arcElement;
    r.station = station;
    r.azimuth = azimuth;
    r.radius = radius;
    return r;
}

AlignmentRecord straight(double station, double azimuth) {
    AlignmentRecord r;
    r.station = station;
    r.azimuth = azimuth;
    return r;
}

// Arcs are split at their middle station until none turns half a circle.
TEST(SplitLongArcs, MiddleStationsUntilNoArcSweepsHalfACircle) {
    const double oneGradPerMetre = 200 / 3.14159265358979323846;  // radius
    std::vector<AlignmentRecord> once = {arc(0, 0, oneGradPerMetre), straight(250, 250),
                                         straight(300, 250)};
    splitLongArcs(once, 9);
    ASSERT_EQ(once.size(), 4u);
    EXPECT_DOUBLE_EQ(once[1].station, 125.0);
    EXPECT_NEAR(once[1].azimuth, 125.0, 1e-9);
    EXPECT_DOUBLE_EQ(once[0].length, 125.0);
    EXPECT_DOUBLE_EQ(once[1].length, 125.0);

    // Written with an azimuth past a full turn, an arc of 450 grads takes
    // three splits: the halves still sweep 225 grads each.
    std::vector<AlignmentRecord> many = {arc(0, 0, oneGradPerMetre), straight(450, 450),
                                         straight(500, 50)};
    splitLongArcs(many, 9);
    ASSERT_EQ(many.size(), 6u);
    const double stations[] = {0, 112.5, 225, 337.5, 450, 500};
    const double azimuths[] = {0, 112.5, 225, 337.5, 450, 50};
    for (std::size_t i = 0; i < many.size(); ++i) {
        EXPECT_NEAR(many[i].station, stations[i], 1e-9) << i;
        EXPECT_NEAR(many[i].azimuth, azimuths[i], 1e-9) << i;
    }
    // No room for more records: nothing is split.
    std::vector<AlignmentRecord> full = {arc(0, 0, 100), straight(100, 300)};
    splitLongArcs(full, 2);
    EXPECT_EQ(full.size(), 2u);
}

// The rule restated in its plain form, scan from the start and sort after
// each split, against the walk the writer uses on well-spaced records.
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
            AlignmentRecord split = arc(middle, at.azimuth, at.radius);
            split.x = at.point.x;
            split.y = at.point.y;
            split.length = (records[k + 1].station - records[k].station) / 2;
            records[k].length = split.length;
            records.push_back(split);
            std::stable_sort(records.begin(), records.end(),
                             [](auto& a, auto& b) { return compareStations(a, b) < 0; });
        }
        return records;
    };
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::vector<AlignmentRecord> records;
        double station = 0;
        for (int i = 0; i < 12; ++i) {
            double azimuth = std::uniform_real_distribution<double>(0, 400)(random);
            double radius = (random() % 3 == 0) ? 0.0 : (random() % 2 ? 50.0 : -50.0);
            records.push_back(radius == 0 ? straight(station, azimuth)
                                          : arc(station, azimuth, radius));
            station += (round % 4 == 0) ? 0.0015 * (random() % 3) : 1 + random() % 400;
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
