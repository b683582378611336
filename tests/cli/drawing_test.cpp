// The drawings: the plan geometry they evaluate, and the true coordinates
// their SVG keeps.
#include <gtest/gtest.h>

#include <cmath>
#include <regex>
#include <sstream>

#include "alignment/geometry.h"
#include "alignment/nevo_alignment.h"
#include "alignment/ruxo_alignment_file.h"
#include "cli/drawing_sources.h"
#include "cli/plan_geometry.h"
#include "cli/svg_drawing.h"
#include "common/numbers.h"
#include "tests/test_support.h"

namespace quelcnv::cli {
namespace {

const std::string sampleAlignment = std::string(QUELCNV_SAMPLES) + "/alignment/eje.ruxo";

std::vector<AlignmentRecord> sampleRecords() {
    return readAlignmentFile(sampleAlignment, CommentLines::skipped).records;
}

void expectNear(PlanePoint actual, PlanePoint expected, double tolerance) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
}

TEST(PlanGeometry, ClothoidFollowsItsSeries) {
    // Straight into a radius of 300 with A = 120 (L = 48), heading along y:
    // x = L^3/6A^2 - L^7/336A^6 + L^11/42240A^10, y = L - L^5/40A^4 + L^9/3456A^8.
    double a = 120.0, l = 48.0;
    PlanElement e{ElementKind::clothoid, 0.0, {0.0, 0.0}, 0.0, 0.0, 1.0 / 300.0, l};
    double across = std::pow(l, 3) / (6 * a * a) - std::pow(l, 7) / (336 * std::pow(a, 6)) +
                    std::pow(l, 11) / (42240 * std::pow(a, 10));
    double along =
        l - std::pow(l, 5) / (40 * std::pow(a, 4)) + std::pow(l, 9) / (3456 * std::pow(a, 8));
    PlanPose end = poseAt(e, l);
    expectNear(end.point, {across, along}, 1e-7);
    EXPECT_NEAR(end.azimuth, l / 600.0, 1e-12);
    // Mirrored for a left turn.
    e.k1 = -e.k1;
    expectNear(poseAt(e, l).point, {-across, along}, 1e-7);
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
    PlanPose middle;
    ASSERT_TRUE(poseAtStation(elements, 248.0, middle));
    expectNear(middle.point, pointOnArc(records[2], 248.0).point, 0.001);
}

class NevoFormsDrawn : public test::FolderTest {};

TEST_F(NevoFormsDrawn, BothFormsGiveBackTheRuxoAlignment) {
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
}

// The shapes of an SVG drawing in true coordinates: each polyline's class,
// data-pk and points, the group's origin added back.
struct Shape {
    std::string kind, station;
    std::vector<PlanePoint> points;
};

std::vector<Shape> shapesOf(const std::string& svg) {
    std::vector<Shape> shapes;
    static const std::regex group(R"re(<g [^>]*data-origen-x="([^"]+)" data-origen-y="([^"]+)")re");
    static const std::regex polyline(
        R"re(<polyline class="(\w+)"(?:[^>]*data-pk="([^"]+)")?[^>]*points="([^"]+)")re");
    PlanePoint origin;
    std::istringstream lines(svg);
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        if (std::regex_search(line, match, group))
            origin = {parseNumber(match[1].str()), parseNumber(match[2].str())};
        if (!std::regex_search(line, match, polyline)) continue;
        Shape shape{match[1], match[2], {}};
        std::string points = match[3];
        for (std::size_t at = 0; at < points.size(); at = points.find(' ', at) + 1) {
            std::size_t comma = points.find(',', at);
            shape.points.push_back({origin.x + parseNumber(points.substr(at, comma - at)),
                                    origin.y + parseNumber(points.substr(comma + 1))});
            if (points.find(' ', at) == std::string::npos) break;
        }
        shapes.push_back(shape);
    }
    return shapes;
}

std::vector<Shape> only(const std::vector<Shape>& shapes, const std::string& kind) {
    std::vector<Shape> kept;
    for (const Shape& s : shapes)
        if (s.kind == kind) kept.push_back(s);
    return kept;
}

std::string attribute(const std::string& svg, const std::string& name) {
    std::smatch match;
    std::regex_search(svg, match, std::regex(name + "=\"([^\"]+)\""));
    return match[1];
}

DrawingContent drawn(const std::string& relative) {
    DrawingSource source = readDrawingSource(std::string(QUELCNV_SAMPLES) + relative, {});
    EXPECT_TRUE(source.content) << source.problem;
    return source.content.value_or(DrawingContent{});
}

TEST(Drawing, PlanKeepsKeyPointsStationsAndScale) {
    std::string svg = svgDrawing(drawn("/alignment/eje.ruxo"));
    std::vector<Shape> shapes = shapesOf(svg);
    std::vector<AlignmentRecord> records = sampleRecords();
    std::vector<Shape> clothoids = only(shapes, "clotoide");
    ASSERT_EQ(clothoids.size(), 2u);
    EXPECT_EQ(clothoids[0].station, "150.000");
    expectNear(clothoids[0].points.front(), {records[1].x, records[1].y}, 0.001);
    expectNear(clothoids[0].points.back(), {records[2].x, records[2].y}, 0.002);
    EXPECT_GE(clothoids[0].points.size(), 48u);  // a point a metre at least
    ASSERT_EQ(only(shapes, "curva").size(), 1u);
    EXPECT_EQ(only(shapes, "recta").size(), 2u);
    // Ticks at 0, 100, 200, 300 and 400, each centred on the alignment.
    std::vector<Shape> ticks = only(shapes, "pk");
    ASSERT_EQ(ticks.size(), 5u);
    PlanePoint centre{(ticks[1].points[0].x + ticks[1].points[1].x) / 2,
                      (ticks[1].points[0].y + ticks[1].points[1].y) / 2};
    expectNear(centre, {500070.711, 4400070.711}, 0.001);
    EXPECT_NE(svg.find(">0+400</text>"), std::string::npos);
    // The scale bar is as long on the page as its metres at the drawing's scale.
    std::smatch matrix;
    ASSERT_TRUE(std::regex_search(svg, matrix, std::regex(R"(matrix\(([^ ]+) )")));
    double scale = parseNumber(matrix[1].str());
    EXPECT_NEAR(parseNumber(attribute(svg, "data-metros")) * scale,
                parseNumber(attribute(svg, "data-px")), 0.01);
    EXPECT_NE(svg.find("Leyenda"), std::string::npos);
}

TEST(Drawing, ProfileCurvesAreParabolasAndTheExaggerationIsSaid) {
    std::string svg = svgDrawing(drawn("/profile/rasante.ruxo"));
    std::vector<Shape> curves = only(shapesOf(svg), "acuerdo");
    ASSERT_EQ(curves.size(), 2u);
    // Vertex 100, elevation 102, curve of 80 m: from 60 to 140, 0.300 below
    // the vertex at its middle.
    const std::vector<PlanePoint>& crest = curves[0].points;
    expectNear(crest.front(), {60.0, 101.2}, 0.001);
    expectNear(crest.back(), {140.0, 101.6}, 0.001);
    expectNear(crest[crest.size() / 2], {100.0, 101.7}, 0.001);
    std::smatch matrix;
    std::regex_search(svg, matrix, std::regex(R"(matrix\(([^ ]+) 0 0 -([^ ]+) )"));
    double factor = parseNumber(attribute(svg, "data-factor"));
    EXPECT_GT(factor, 1.0);
    EXPECT_NEAR(parseNumber(matrix[2].str()) / parseNumber(matrix[1].str()), factor, 1e-3);
    EXPECT_NE(svg.find("exagerada " + std::to_string(static_cast<int>(factor)) + " veces"),
              std::string::npos);
}

TEST(Drawing, SectionsHaveAPanelEachWithTheirPoints) {
    std::string svg = svgDrawing(drawn("/crosssection/eje.ruxo"));
    std::vector<Shape> profiles = only(shapesOf(svg), "perfil");
    ASSERT_EQ(profiles.size(), 2u);
    EXPECT_NE(svg.find("class=\"seccion\" data-pk=\"120.000\""), std::string::npos);
    ASSERT_EQ(profiles[0].points.size(), 5u);
    expectNear(profiles[0].points[0], {-6.0, 411.2}, 1e-9);
    expectNear(profiles[0].points[2], {0.0, 411.62}, 1e-9);
    EXPECT_NE(svg.find("PK 0+100.000"), std::string::npos);
}

TEST(Drawing, StationLabels) {
    EXPECT_EQ(stationLabel(0.0), "0+000");
    EXPECT_EQ(stationLabel(1200.0), "1+200");
    EXPECT_EQ(stationLabel(12345.6, 3), "12+345.600");
    EXPECT_EQ(stationLabel(999.9996, 3), "1+000.000");
    EXPECT_EQ(stationLabel(-50.0), "-0+050");
}

}  // namespace
}  // namespace quelcnv::cli
