// The drawings: what is drawn of which file, the plan geometry they
// evaluate, and the true coordinates their SVG keeps.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <map>
#include <regex>
#include <sstream>

#include "alignment/geometry.h"
#include "alignment/nevo_alignment.h"
#include "alignment/nevo_alignment_reading.h"
#include "alignment/plan_geometry.h"
#include "alignment/ruxo_alignment_file.h"
#include "cli/drawing.h"
#include "cli/svg_drawing.h"
#include "common/numbers.h"
#include "frame/file_models.h"
#include "tests/test_support.h"

namespace quelcnv::cli {
namespace {

const std::string sampleAlignment = std::string(QUELCNV_SAMPLES) + "/alignment/eje.ruxo";

std::vector<AlignmentRecord> sampleRecords() { return test::sampleAlignmentRecords(); }
using test::expectNear;

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

// What the command draws of a file, as the kind asked for or as recognised.
ModelSource sourceOf(const std::string& path, std::optional<DataKind> asked = std::nullopt,
                     const LandXmlChoice& choice = {}) {
    return openFileModel(path, recogniseFile(path), asked, choice);
}

FileModel drawn(const std::string& relative) {
    ModelSource source = sourceOf(std::string(QUELCNV_SAMPLES) + relative);
    EXPECT_TRUE(source.model) << source.problem;
    return source.model.value_or(FileModel{});
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
    EXPECT_NEAR(parseNumber(attribute(svg, "data-longitud")) * scale,
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
    // In feet, stations of 100 feet.
    EXPECT_EQ(stationLabelIn(1250.0, "pies"), "12+50");
    EXPECT_EQ(stationLabelIn(50.0, "pies", 3), "0+50.000");
    EXPECT_EQ(stationLabelIn(1250.0, "m"), "1+250");
}

// How much a drawing holds: elements, vertices, rows, sections or points.
std::size_t countOf(const FileModel& content) {
    switch (content.kind) {
        case ModelKind::profile: return content.profile.size();
        case ModelKind::superelevation: return content.superelevation.size();
        case ModelKind::sections: return content.sections.size();
        case ModelKind::points: return content.points.size();
        case ModelKind::plan: break;
    }
    std::size_t elements = 0;
    for (const NamedAlignment& a : content.alignments) elements += a.elements.size();
    return elements;
}

// What a file should give: a drawing of a kind holding so much, or a refusal
// saying this.
struct Expected {
    std::optional<ModelKind> kind;
    std::size_t count = 0;
    std::string refusal;
};

Expected drawing(ModelKind kind, std::size_t count) { return {kind, count, ""}; }
Expected refused(std::string says) { return {std::nullopt, 0, std::move(says)}; }

void expectGives(const ModelSource& source, const Expected& expected) {
    if (!expected.kind) {
        EXPECT_FALSE(source.model);
        EXPECT_NE(source.problem.find(expected.refusal), std::string::npos) << source.problem;
        return;
    }
    ASSERT_TRUE(source.model) << source.problem;
    EXPECT_EQ(source.model->kind, *expected.kind);
    EXPECT_EQ(countOf(*source.model), expected.count);
}

TEST(DrawingSamples, EverySampleIsDrawnAsItsOwnKindOrRefused) {
    using K = ModelKind;
    const std::map<std::string, Expected> samples = {
        {"alignment/eje.htr", refused("no convierte los ejes HTRAZADO")},
        {"alignment/eje.ispol", drawing(K::plan, 4)},
        {"alignment/eje.istram", drawing(K::plan, 5)},
        {"alignment/eje.lis", drawing(K::plan, 1)},
        {"alignment/eje.plt", drawing(K::plan, 5)},
        {"alignment/eje.ruxo", drawing(K::plan, 5)},
        {"crosssection/cartomap_distancia.txt", drawing(K::sections, 2)},
        {"crosssection/cartomap_pk.txt", drawing(K::sections, 2)},
        {"crosssection/eje.csv", drawing(K::sections, 2)},
        {"crosssection/eje.htrazado", drawing(K::sections, 2)},
        {"crosssection/eje.istram", drawing(K::sections, 2)},
        {"crosssection/eje.mxroad", drawing(K::sections, 2)},
        {"crosssection/eje.ruxo", drawing(K::sections, 2)},
        {"crosssection/eje.ter", drawing(K::sections, 2)},
        {"crosssection/eje.trv", drawing(K::sections, 2)},
        {"fielddata/levantamiento.lea", refused("es un levantamiento LEA, que no se dibuja")},
        {"fielddata/nivelacion.dat",
         refused("es un fichero KL500 de nivelación, que no se dibuja")},
        {"fielddata/observaciones.txt", refused("es un fichero NEVO de observaciones")},
        {"fielddata/puntos.txt", drawing(K::points, 5)},
        {"fielddata/robotizada.txt", refused("robotizada NEVO-800, que no se dibuja")},
        {"landxml/obra.xml", drawing(K::plan, 9)},
        {"profile/peralte.clip", drawing(K::superelevation, 5)},
        {"profile/peralte.ispol", drawing(K::superelevation, 5)},
        {"profile/rasante.cartomap", drawing(K::profile, 4)},
        {"profile/rasante.ispol", drawing(K::profile, 4)},
        {"profile/rasante.istram", drawing(K::profile, 4)},
        {"profile/rasante.ruxo", drawing(K::profile, 4)},
        {"profile/rasante.velm", drawing(K::profile, 4)},
    };
    // Every sample in a family's folder has its line above.
    std::size_t seen = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(QUELCNV_SAMPLES)) {
        std::filesystem::path relative = std::filesystem::relative(entry.path(), QUELCNV_SAMPLES);
        if (!entry.is_regular_file() || !relative.has_parent_path()) continue;
        SCOPED_TRACE(relative.generic_string());
        auto expected = samples.find(relative.generic_string());
        ASSERT_NE(expected, samples.end()) << "a sample without its expected drawing";
        expectGives(sourceOf(entry.path().string()), expected->second);
        ++seen;
    }
    EXPECT_EQ(seen, samples.size());
}

TEST(DrawingSamples, EveryFormatOfOneRoadGivesTheSameSections) {
    std::vector<CrossSection> reference = drawn("/crosssection/eje.ruxo").sections;
    ASSERT_EQ(reference.size(), 2u);
    for (const char* file : {"cartomap_distancia.txt", "cartomap_pk.txt", "eje.csv", "eje.htrazado",
                             "eje.istram", "eje.mxroad", "eje.ter", "eje.trv"}) {
        SCOPED_TRACE(file);
        std::vector<CrossSection> sections = drawn(std::string("/crosssection/") + file).sections;
        ASSERT_EQ(sections.size(), reference.size());
        for (std::size_t i = 0; i < sections.size(); ++i) {
            EXPECT_NEAR(sections[i].station, reference[i].station, 1e-9);
            ASSERT_EQ(sections[i].points.size(), reference[i].points.size());
            for (std::size_t k = 0; k < sections[i].points.size(); ++k) {
                EXPECT_NEAR(sections[i].points[k].offset, reference[i].points[k].offset, 1e-9);
                EXPECT_NEAR(sections[i].points[k].elevation, reference[i].points[k].elevation,
                            1e-9);
            }
        }
    }
}

const std::string drawingData = std::string(QUELCNV_TEST_DATA) + "/drawing/";

// The files that were drawn as something else before the recogniser chose:
// a superelevation table as a profile, a point list as cross sections, an
// ISTRAM cross-section file as an alignment. Told apart, each is drawn as
// what it is; not told apart, each is refused until the user says.
TEST(DrawingSamples, LookalikesAreDrawnAsWhatTheyAreOrRefused) {
    const std::string samples = QUELCNV_SAMPLES;
    const std::pair<std::string, Expected> cases[] = {
        {samples + "/profile/peralte.clip", drawing(ModelKind::superelevation, 5)},
        {samples + "/fielddata/puntos.txt", drawing(ModelKind::points, 5)},
        {samples + "/crosssection/eje.istram", drawing(ModelKind::sections, 2)},
        {drawingData + "peralte_desordenado.txt",
         refused("(quizá rasante de PK, cota y longitud de acuerdo): dígalo con --tipo")},
        {drawingData + "puntos_repetidos.txt", refused("(quizá lista de puntos): dígalo con")},
        {drawingData + "transversales_rotas.istram", refused("(quizá RUXO de eje): dígalo con")},
    };
    for (const auto& [path, expected] : cases) {
        SCOPED_TRACE(path);
        expectGives(sourceOf(path), expected);
    }
    // The CLIP table's rows through its importer, the second cross-fall's
    // sign changed; the names of the points as written, P12 too.
    FileModel superelevation = drawn("/profile/peralte.clip");
    EXPECT_EQ(superelevation.superelevation[2].station, 80.0);
    EXPECT_EQ(superelevation.superelevation[2].firstFall, -3.5);
    EXPECT_EQ(superelevation.superelevation[2].secondFall, -3.5);
    FileModel points = drawn("/fielddata/puntos.txt");
    EXPECT_EQ(points.points[4].name, "P12");
    EXPECT_EQ(points.points[0].x, 312045.125);
    EXPECT_EQ(points.points[0].y, 4500123.25);
    EXPECT_EQ(points.points[0].code, "BASE");
}

TEST(DrawingSamples, TheKindAskedForIsTheKindDrawn) {
    const std::string samples = QUELCNV_SAMPLES;
    struct Case {
        std::string path;
        DataKind asked;
        Expected expected;
    };
    const Case cases[] = {
        // Recognised of another kind, or not surely: the kind's plain formats.
        {drawingData + "peralte_desordenado.txt", DataKind::superelevation,
         drawing(ModelKind::superelevation, 3)},
        {samples + "/profile/peralte.clip", DataKind::profile, drawing(ModelKind::profile, 5)},
        {samples + "/fielddata/puntos.txt", DataKind::crossSections,
         drawing(ModelKind::sections, 5)},
        {samples + "/fielddata/puntos.txt", DataKind::alignment,
         refused("leído como eje, no hay ningún elemento de eje")},
        // Recognised of that kind, if only possibly: its own format.
        {drawingData + "puntos_repetidos.txt", DataKind::points, drawing(ModelKind::points, 3)},
        {samples + "/alignment/eje.istram", DataKind::alignment, drawing(ModelKind::plan, 5)},
        {samples + "/fielddata/nivelacion.dat", DataKind::alignment,
         refused("leído como eje, no hay ningún elemento de eje")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.path);
        expectGives(sourceOf(c.path, c.asked), c.expected);
    }
    // The unsorted table read as the superelevation file, rows as they stand.
    ModelSource table = sourceOf(drawingData + "peralte_desordenado.txt", DataKind::superelevation);
    ASSERT_TRUE(table.model);
    EXPECT_EQ(table.model->superelevation[1].station, 80.0);
    EXPECT_EQ(table.model->superelevation[1].secondFall, 3.5);
}

class DrawingRefusal : public test::FolderTest {};

TEST_F(DrawingRefusal, UnknownFilesAreRefusedWithTheWayOut) {
    test::writeBytes(file("texto.txt"), "hola\nmundo\n");
    test::writeBytes(file("vacio.txt"), "");
    test::writeBytes(file("binario.dat"), std::string("\x01\x02\0\x03", 4));
    const std::pair<std::string, std::string> cases[] = {
        {"texto.txt", "no se sabe qué es "},
        {"vacio.txt", " (está vacío): dígalo con --tipo eje|rasante|peralte|transversales|puntos"},
        {"binario.dat", " (no es un fichero de texto): dígalo con --tipo"},
    };
    for (const auto& [name, says] : cases) {
        SCOPED_TRACE(name);
        expectGives(sourceOf(file(name)), refused(says));
    }
    expectGives(sourceOf(file("vacio.txt"), DataKind::points),
                refused("leído como puntos, no hay ningún punto"));
}

TEST(DrawingLandXml, KindsAndChoicesOfADocument) {
    const std::string obra = std::string(QUELCNV_SAMPLES) + "/landxml/obra.xml";
    const std::pair<std::optional<DataKind>, Expected> cases[] = {
        {DataKind::alignment, drawing(ModelKind::plan, 9)},
        {DataKind::profile, refused("el documento tiene 2 rasantes: elija una con --rasante")},
        {DataKind::superelevation,
         refused("se dibujan ejes, rasantes o transversales, no peralte")},
        {DataKind::points, refused("no puntos")},
    };
    for (const auto& [asked, expected] : cases) {
        SCOPED_TRACE(asked ? kindWord(*asked) : "ninguno");
        expectGives(sourceOf(obra, asked), expected);
    }
    LandXmlChoice profile;
    profile.profile = "Eje 1: Rasante 1";
    expectGives(sourceOf(obra, DataKind::profile, profile), drawing(ModelKind::profile, 4));
    LandXmlChoice nobody;
    nobody.alignment = "Nadie";
    expectGives(sourceOf(obra, std::nullopt, nobody), refused("no tiene el eje \"Nadie\""));
    expectGives(
        sourceOf(std::string(QUELCNV_SAMPLES) + "/alignment/eje.ruxo", std::nullopt, nobody),
        refused("solo valen para LandXML"));
}

TEST(DrawingLandXml, ADocumentInFeetIsLabelledInFeet) {
    ModelSource source = sourceOf(drawingData + "pies.xml");
    ASSERT_TRUE(source.model) << source.problem;
    EXPECT_EQ(source.model->unit, "pies");
    std::string svg = svgDrawing(*source.model);
    EXPECT_EQ(attribute(svg, "data-unidad"), "pies");
    EXPECT_NE(svg.find(" pies</text>"), std::string::npos);  // the scale bar
    EXPECT_NE(svg.find(">PK cada 100 pies</text>"), std::string::npos);
    EXPECT_NE(svg.find(">2+00</text>"), std::string::npos);  // 200 feet
    EXPECT_EQ(svg.find(" m</text>"), std::string::npos);
    // A document in metres keeps metres.
    EXPECT_EQ(drawn("/landxml/obra.xml").unit, "m");
}

TEST(Drawing, SuperelevationKeepsItsRowsAndTheZeroLine) {
    FileModel content = drawn("/profile/peralte.ispol");
    std::string svg = svgDrawing(content);
    std::vector<Shape> shapes = shapesOf(svg);
    for (auto [side, first] : {std::pair{"primero", true}, std::pair{"segundo", false}}) {
        SCOPED_TRACE(side);
        std::vector<Shape> line = only(shapes, side);
        ASSERT_EQ(line.size(), 1u);
        ASSERT_EQ(line[0].points.size(), content.superelevation.size());
        for (std::size_t i = 0; i < line[0].points.size(); ++i) {
            const SuperelevationRow& row = content.superelevation[i];
            expectNear(line[0].points[i], {row.station, first ? row.firstFall : row.secondFall},
                       1e-9);
        }
    }
    // ISPOL row 4: the third field's sign changed, the fourth as it stands.
    EXPECT_EQ(content.superelevation[3].firstFall, -7.0);
    EXPECT_EQ(content.superelevation[3].secondFall, 7.0);
    EXPECT_NE(svg.find("class=\"cero\""), std::string::npos);
    EXPECT_NE(svg.find(">0+200</text>"), std::string::npos);
}

TEST(Drawing, PointsStandWhereTheyAreWithTheirNames) {
    FileModel content = drawn("/fielddata/puntos.txt");
    std::string svg = svgDrawing(content);
    PlanePoint origin{parseNumber(attribute(svg, "data-origen-x")),
                      parseNumber(attribute(svg, "data-origen-y"))};
    static const std::regex dot(
        R"re(<ellipse cx="([^"]+)" cy="([^"]+)"[^>]*data-nombre="([^"]+)")re");
    std::size_t i = 0;
    for (std::sregex_iterator it(svg.begin(), svg.end(), dot), end; it != end; ++it, ++i) {
        ASSERT_LT(i, content.points.size());
        EXPECT_EQ((*it)[3].str(), content.points[i].name);
        expectNear({origin.x + parseNumber((*it)[1].str()), origin.y + parseNumber((*it)[2].str())},
                   PlanePoint{content.points[i].x, content.points[i].y}, 1e-9);
        EXPECT_NE(svg.find(">" + content.points[i].name + "</text>"), std::string::npos);
    }
    EXPECT_EQ(i, 5u);
    EXPECT_NE(svg.find("id=\"norte\""), std::string::npos);
    EXPECT_NE(svg.find("id=\"escala\""), std::string::npos);
}

}  // namespace
}  // namespace quelcnv::cli
