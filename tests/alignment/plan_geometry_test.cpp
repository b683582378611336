// The plan geometry of alignments: clothoids against their closed form,
// stations and offsets, every key point of the sample reached, both NEVO
// forms read back, and the real LandXML documents' own end points.
#include "alignment/plan_geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <numbers>

#include "alignment/geometry.h"
#include "alignment/nevo_alignment.h"
#include "alignment/nevo_alignment_reading.h"
#include "alignment/ruxo_alignment_file.h"
#include "landxml/alignment_reader.h"
#include "landxml/sax_reader.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

const std::string sampleAlignment = std::string(QUELCNV_SAMPLES) + "/alignment/eje.ruxo";

std::vector<AlignmentRecord> sampleRecords() { return test::sampleAlignmentRecords(); }
using test::expectNear;

// The clothoid of parameter a from a straight, heading along y and turning
// right, at arc length s: its closed form as the Fresnel series, summed in
// long double until the terms vanish.
PlanePoint unitClothoid(double a, double s) {
    long double tau = static_cast<long double>(s) * s / (2.0L * a * a);
    long double across = 0, along = 0, power = 1, factorial = 1;  // tau^k / k!
    for (int k = 0; k < 200; ++k) {
        if (k > 0) {
            power *= tau;
            factorial *= k;
        }
        long double term = power / factorial / (2 * k + 1);
        long double sign = (k / 2) % 2 == 0 ? 1 : -1;
        (k % 2 == 0 ? along : across) += sign * term;
        if (term < 1e-30L) break;
    }
    return {static_cast<double>(s * across), static_cast<double>(s * along)};
}

struct ClothoidCase {
    double a, from, to;  // parameter; arc lengths on the unit clothoid where the element runs
};

// Entry spirals (from 0), egg-shaped pieces between two radii, and long,
// tight ones that turn through more than a right angle.
TEST(PlanGeometry, ClothoidsMatchTheClosedFormToTheNanometre) {
    const ClothoidCase cases[] = {{120, 0, 48},   {300, 0, 150},   {60, 0, 100},
                                  {250, 80, 240}, {500, 400, 900}, {30, 10, 55}};
    for (const ClothoidCase& c : cases) {
        for (double side : {1.0, -1.0}) {
            SCOPED_TRACE(testing::Message() << "A " << c.a << " from " << c.from << " to " << c.to
                                            << " side " << side);
            // The element in the unit clothoid's own frame.
            PlanePoint start = unitClothoid(c.a, c.from);
            start.x *= side;
            double heading = side * c.from * c.from / (2 * c.a * c.a);
            double a2 = c.a * c.a;
            PlanElement e{ElementKind::clothoid, 0.0,          start, heading, side * c.from / a2,
                          side * c.to / a2,      c.to - c.from};
            for (double s : {0.3 * e.length, e.length}) {
                PlanePoint exact = unitClothoid(c.a, c.from + s);
                exact.x *= side;
                PlanPose pose = poseAt(e, s);
                expectNear(pose.point, exact, 1e-9);
                double tau = (c.from + s) * (c.from + s) / (2 * a2);
                EXPECT_NEAR(pose.azimuth, side * tau, 1e-12);
                EXPECT_NEAR(pose.curvature, side * (c.from + s) / a2, 1e-15);
            }
        }
    }
}

TEST(PlanGeometry, StationsAndOffsetsOnStraightsAndArcs) {
    // North 100 m, then a right-hand arc of radius 50 through a quarter turn.
    std::vector<PlanElement> elements = {
        {ElementKind::straight, 1000.0, {0, 0}, 0.0, 0.0, 0.0, 100.0},
        {ElementKind::arc, 1100.0, {0, 100}, 0.0, 0.02, 0.02, 25.0 * std::numbers::pi}};
    auto left = poseAtStation(elements, 1040.0, -3.0);
    ASSERT_TRUE(left);
    expectNear(left->point, {-3.0, 40.0}, 1e-12);
    auto end = poseAtStation(elements, 1100.0 + 25.0 * std::numbers::pi, 2.0);
    ASSERT_TRUE(end);
    expectNear(end->point, {50.0, 148.0}, 1e-9);  // 2 m to the right, towards the centre
    EXPECT_NEAR(end->azimuth, std::numbers::pi / 2, 1e-12);
    EXPECT_DOUBLE_EQ(end->curvature, 0.02);
    EXPECT_FALSE(poseAtStation(elements, 999.0));
    EXPECT_FALSE(poseAtStation(elements, 1200.0));
}

TEST(PlanGeometry, EveryElementEndsOnTheNextKeyPoint) {
    std::vector<AlignmentRecord> records = sampleRecords();
    std::vector<PlanElement> elements = elementsFromRecords(records);
    ASSERT_EQ(elements.size(), records.size() - 1);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        SCOPED_TRACE(i);
        PlanPose end = poseAt(elements[i], elements[i].length);
        expectNear(end.point, {records[i + 1].x, records[i + 1].y}, 0.002);
        EXPECT_NEAR(normalizeGrads(end.azimuth * radiansToGrads), records[i + 1].azimuth, 2e-4);
    }
    // The arc's middle where the library's own arc evaluation puts it.
    auto middle = poseAtStation(elements, 248.0);
    ASSERT_TRUE(middle);
    expectNear(middle->point, pointOnArc(records[2], 248.0).point, 0.001);
}

class NevoFormsRead : public test::FolderTest {};

TEST_F(NevoFormsRead, BothFormsGiveBackTheRuxoAlignment) {
    std::string elementsFile = file("elementos.nev");
    std::string pointsFile = file("vertices.nev");
    ASSERT_TRUE(writeElementForm(sampleAlignment, elementsFile).ok());
    ASSERT_TRUE(writeIntersectionForm(sampleAlignment, pointsFile).outcome.ok());
    std::vector<PlanElement> expected = elementsFromRecords(sampleRecords());
    // The intersection points carry the geometry to 4 decimals only, and the
    // sample's key points are rounded to 3: a few millimetres apart.
    for (auto [path, tolerance] : {std::pair{elementsFile, 0.002}, std::pair{pointsFile, 0.005}}) {
        SCOPED_TRACE(path);
        std::vector<PlanElement> read = readNevoAlignment(path);
        ASSERT_EQ(read.size(), expected.size());
        for (std::size_t i = 0; i < read.size(); ++i) {
            EXPECT_EQ(read[i].kind, expected[i].kind);
            EXPECT_NEAR(read[i].station, expected[i].station, tolerance);
            expectNear(read[i].start, expected[i].start, tolerance);
            EXPECT_NEAR(read[i].k1, expected[i].k1, 1e-9);
        }
    }
    EXPECT_TRUE(readNevoAlignment(file("no.nev")).empty());
}

// The End point of every Line, Curve and Spiral of each alignment of a
// document, in document order, read as the alignment reader reads points.
class EndPoints : public SaxHandler {
public:
    std::vector<std::vector<PlanePoint>> alignments;

    void startElement(std::string_view name, const XmlAttributes&) override {
        if (name == "Alignment") alignments.emplace_back();
        if (name == "Line" || name == "Curve" || name == "Spiral") inGeometry_ = true;
        waiting_ = inGeometry_ && !alignments.empty() && name == "End";
    }
    void endElement(std::string_view name) override {
        if (name == "Line" || name == "Curve" || name == "Spiral") inGeometry_ = false;
        waiting_ = false;
    }
    bool wantsText() const override { return waiting_; }
    void characters(std::string_view text) override {
        PointText point;
        if (parsePointText(text, point)) alignments.back().push_back({point.x, point.y});
        waiting_ = false;
    }

private:
    bool inGeometry_ = false, waiting_ = false;
};

// Each element of every alignment the reader takes, evaluated from its start
// key point to its end, lands on the End the document gives it. Alignments
// the reader refuses (clothoids from a finite radius) are left out.
TEST(RealLandXml, ElementsEndWhereTheDocumentsSay) {
    fs::path folder(QUELCNV_REAL_DATA);
    if (!fs::is_directory(folder)) GTEST_SKIP() << "no real documents at " << folder;
    int checked = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() != ".xml") continue;
        std::string document = entry.path().string();
        EndPoints ends;
        runSaxParse(ends, document);
        for (std::size_t a = 0; a < ends.alignments.size(); ++a) {
            SCOPED_TRACE(entry.path().filename().string() + " alignment " + std::to_string(a));
            auto ignore = [](std::string_view) {};
            LandXmlAlignment read = readLandXmlAlignment(document, static_cast<int>(a), ignore);
            if (!read.outcome.ok()) continue;
            const std::vector<AlignmentRecord>& records = read.records;
            const std::vector<PlanePoint>& expected = ends.alignments[a];
            for (std::size_t j = 0; j + 1 < records.size() && j < expected.size(); ++j) {
                std::vector<AlignmentRecord> upTo(records.begin(), records.begin() + j + 2);
                std::vector<PlanElement> elements = elementsFromRecords(upTo);
                if (elements.empty() || elements.back().station != records[j].station) continue;
                PlanPose end = poseAt(elements.back(), elements.back().length);
                SCOPED_TRACE("element " + std::to_string(j));
                expectNear(end.point, expected[j], 0.001);
                ++checked;
            }
        }
    }
    EXPECT_GT(checked, 50);
}

}  // namespace
}  // namespace quelcnv
