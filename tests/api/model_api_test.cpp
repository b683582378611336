// Models through the public API: files of each kind read, walked and
// evaluated, LandXML choices, GeoJSON, and files that give no model.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "quelcnv_api.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

struct ModelFree {
    void operator()(quelcnv_model* model) const { quelcnv_model_free(model); }
};
using Model = std::unique_ptr<quelcnv_model, ModelFree>;

std::string sample(const std::string& relative) { return QUELCNV_SAMPLES "/" + relative; }

class ModelApiTest : public test::FolderTest {
protected:
    ModelApiTest() : context_(quelcnv_context_new()) {}
    ~ModelApiTest() override { quelcnv_context_free(context_); }

    Model open(const std::string& path, quelcnv_model_kind kind = QUELCNV_MODEL_NONE,
               const char* choice = nullptr) {
        return Model(quelcnv_model_open(context_, path.c_str(), kind, choice));
    }

    quelcnv_context* context_;
};

// The sample: straight, clothoid (A 120) into radius 300, arc, clothoid out,
// straight to 466; its key points as the RUXO file gives them.
TEST_F(ModelApiTest, AnAlignmentIsWalkedAndEvaluatedAtStationsAndOffsets) {
    Model model = open(sample("alignment/eje.ruxo"));
    ASSERT_EQ(quelcnv_model_kind_of(model.get()), QUELCNV_MODEL_ALIGNMENTS);
    EXPECT_STREQ(quelcnv_model_problem(model.get()), "");
    ASSERT_EQ(quelcnv_model_alignment_count(model.get()), 1u);
    ASSERT_EQ(quelcnv_model_element_count(model.get(), 0), 5u);
    const quelcnv_element_kind kinds[] = {QUELCNV_STRAIGHT, QUELCNV_CLOTHOID, QUELCNV_ARC,
                                          QUELCNV_CLOTHOID, QUELCNV_STRAIGHT};
    for (size_t i = 0; i < 5; ++i) {
        quelcnv_element e;
        ASSERT_EQ(quelcnv_model_element(model.get(), 0, i, &e), 1);
        EXPECT_EQ(e.kind, kinds[i]);
        double x, y, azimuth;
        ASSERT_EQ(quelcnv_model_alignment_at(model.get(), 0, e.station + e.length, 0, &x, &y,
                                             &azimuth, nullptr),
                  1);
        // Each element ends on the next key point (the file keeps 3 decimals).
        const double next[5][3] = {{500106.066, 4400106.066, 50.0},
                                   {500140.890, 4400139.081, 55.0930},
                                   {500226.329, 4400190.148, 76.3136},
                                   {500271.899, 4400205.185, 81.4066},
                                   {500386.817, 4400239.737, 81.4066}};
        EXPECT_NEAR(x, next[i][0], 0.002);
        EXPECT_NEAR(y, next[i][1], 0.002);
        EXPECT_NEAR(azimuth, next[i][2], 2e-4);
    }
    quelcnv_element none;
    EXPECT_EQ(quelcnv_model_element(model.get(), 0, 5, &none), 0);
    // 10 m to the right of the first straight, heading 50 grads.
    double x, y, curvature = -1;
    ASSERT_EQ(quelcnv_model_alignment_at(model.get(), 0, 0.0, 10.0, &x, &y, nullptr, &curvature),
              1);
    EXPECT_NEAR(x, 500000.0 + 10.0 * std::sqrt(0.5), 1e-9);
    EXPECT_NEAR(y, 4400000.0 - 10.0 * std::sqrt(0.5), 1e-9);
    EXPECT_EQ(curvature, 0.0);
    ASSERT_EQ(
        quelcnv_model_alignment_at(model.get(), 0, 248.0, 0, nullptr, nullptr, nullptr, &curvature),
        1);
    EXPECT_NEAR(curvature, 1.0 / 300.0, 1e-15);
    EXPECT_EQ(quelcnv_model_alignment_at(model.get(), 0, 466.5, 0, &x, &y, nullptr, nullptr), 0);
    EXPECT_EQ(quelcnv_model_alignment_at(model.get(), 1, 10.0, 0, &x, &y, nullptr, nullptr), 0);
}

TEST_F(ModelApiTest, LandXmlAlignmentsProfilesAndSurfacesByChoice) {
    std::string document = sample("landxml/obra.xml");
    Model all = open(document);
    ASSERT_EQ(quelcnv_model_alignment_count(all.get()), 2u);
    EXPECT_STREQ(quelcnv_model_alignment_name(all.get(), 1), "Eje 2");
    Model second = open(document, QUELCNV_MODEL_ALIGNMENTS, "1");
    ASSERT_EQ(quelcnv_model_alignment_count(second.get()), 1u);
    EXPECT_STREQ(quelcnv_model_alignment_name(second.get(), 0), "Eje 2");
    Model named = open(document, QUELCNV_MODEL_NONE, "Eje 1");
    EXPECT_STREQ(quelcnv_model_alignment_name(named.get(), 0), "Eje 1");

    Model profile = open(document, QUELCNV_MODEL_PROFILE, "Eje 1: Rasante 1");
    ASSERT_EQ(quelcnv_model_kind_of(profile.get()), QUELCNV_MODEL_PROFILE);
    EXPECT_GE(quelcnv_model_vertex_count(profile.get()), 2u);
    Model sections = open(document, QUELCNV_MODEL_SECTIONS, "Eje 1: Terreno");
    ASSERT_EQ(quelcnv_model_kind_of(sections.get()), QUELCNV_MODEL_SECTIONS);
    EXPECT_GT(quelcnv_model_section_count(sections.get()), 0u);

    Model missing = open(document, QUELCNV_MODEL_ALIGNMENTS, "Eje 9");
    EXPECT_EQ(quelcnv_model_kind_of(missing.get()), QUELCNV_MODEL_NONE);
    EXPECT_NE(std::string(quelcnv_model_problem(missing.get())).find("Eje 9"), std::string::npos);
}

TEST_F(ModelApiTest, AReadersMessageGoesToTheSinkAlone) {
    std::vector<std::string> received;
    quelcnv_context_set_message_sink(
        context_,
        [](const char* text, void* data) {
            static_cast<std::vector<std::string>*>(data)->emplace_back(text);
        },
        &received);
    testing::internal::CaptureStderr();
    Model model = open(test::testData("landxml/clothoids.xml").string());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(quelcnv_model_kind_of(model.get()), QUELCNV_MODEL_NONE);
    ASSERT_EQ(received.size(), 2u);
    EXPECT_TRUE(received[0].starts_with("El eje no puede empezar con una clotoide"));
}

TEST_F(ModelApiTest, AProfileGivesItsVerticesElevationsAndGrades) {
    Model model = open(sample("profile/rasante.velm"));
    ASSERT_EQ(quelcnv_model_kind_of(model.get()), QUELCNV_MODEL_PROFILE);
    double station, elevation, length;
    ASSERT_EQ(quelcnv_model_vertex(model.get(), 1, &station, &elevation, &length), 1);
    EXPECT_EQ(station, 100.0);
    EXPECT_EQ(elevation, 102.0);
    EXPECT_EQ(length, 80.0);
    double z, grade;
    ASSERT_EQ(quelcnv_model_profile_at(model.get(), 100.0, &z, &grade), 1);
    EXPECT_NEAR(z, 102.0 - 0.3, 1e-9);  // the external the file gives
    ASSERT_EQ(quelcnv_model_profile_at(model.get(), 0.0, &z, &grade), 1);
    EXPECT_EQ(z, 100.0);
    EXPECT_NEAR(grade, 0.02, 1e-12);
    EXPECT_EQ(quelcnv_model_profile_at(model.get(), -1.0, &z, &grade), 0);
    EXPECT_EQ(quelcnv_model_geojson(model.get(), 1.0), nullptr);
}

TEST_F(ModelApiTest, SectionsRowsAndPoints) {
    Model sections = open(sample("crosssection/eje.ruxo"));
    ASSERT_EQ(quelcnv_model_section_count(sections.get()), 2u);
    double station, offset, elevation;
    size_t count = 0, total = 0;
    const char* code = nullptr;
    for (size_t i = 0; i < 2; ++i) {
        ASSERT_EQ(quelcnv_model_section(sections.get(), i, &station, &count), 1);
        total += count;
        ASSERT_EQ(quelcnv_model_section_point(sections.get(), i, 0, &offset, &elevation, &code), 1);
        EXPECT_NE(code, nullptr);
    }
    EXPECT_EQ(total, 10u);

    Model rows = open(sample("profile/peralte.clip"), QUELCNV_MODEL_SUPERELEVATION);
    ASSERT_EQ(quelcnv_model_kind_of(rows.get()), QUELCNV_MODEL_SUPERELEVATION);
    EXPECT_GT(quelcnv_model_row_count(rows.get()), 1u);

    Model points = open(sample("fielddata/puntos.txt"));
    ASSERT_EQ(quelcnv_model_kind_of(points.get()), QUELCNV_MODEL_POINTS);
    const char* name = nullptr;
    double x, y, z;
    ASSERT_EQ(quelcnv_model_point(points.get(), 0, &name, &x, &y, &z, &code), 1);
    EXPECT_STREQ(name, "1000");
    EXPECT_EQ(x, 312045.125);
    EXPECT_EQ(z, 101.235);
    EXPECT_STREQ(code, "BASE");
}

TEST_F(ModelApiTest, GeoJsonOfAlignmentsAndPoints) {
    Model alignment = open(sample("alignment/eje.ruxo"));
    char* text = quelcnv_model_geojson(alignment.get(), 5.0);
    ASSERT_NE(text, nullptr);
    std::string json = text;
    quelcnv_text_free(text);
    EXPECT_TRUE(json.starts_with(R"({"type": "FeatureCollection", "features": [)"));
    EXPECT_NE(json.find(R"("firstStation": 0, "lastStation": 466})"), std::string::npos);
    EXPECT_NE(json.find(R"("coordinates": [[500000, 4400000], )"), std::string::npos);
    // The clothoids and the arc sampled at most 5 m apart (40 steps), the
    // straights by their ends.
    std::size_t positions = 0;
    for (std::size_t at = 0; (at = json.find("], [", at)) != std::string::npos; ++at) ++positions;
    EXPECT_EQ(positions + 1, 1 + 1 + 10 + 20 + 10 + 1);

    Model points = open(sample("fielddata/puntos.txt"));
    text = quelcnv_model_geojson(points.get(), 0.0);
    ASSERT_NE(text, nullptr);
    json = text;
    quelcnv_text_free(text);
    EXPECT_NE(json.find(R"({"type": "Feature", "properties": {"name": "1000", "code": "BASE"}, )"
                        R"("geometry": {"type": "Point", "coordinates": [312045.125, )"
                        R"(4500123.25, 101.235]}})"),
              std::string::npos);
}

TEST_F(ModelApiTest, FilesThatGiveNoModelSayWhy) {
    test::writeBytes(file("raro.txt"), "hola\n");
    struct Case {
        std::string path;
        quelcnv_model_kind kind;
        const char* choice;
        std::string problem;
    };
    const Case cases[] = {
        {file("no.txt"), QUELCNV_MODEL_NONE, nullptr,
         "no se puede leer el fichero de entrada: " + file("no.txt")},
        {file("raro.txt"), QUELCNV_MODEL_NONE, nullptr, "no se sabe qué es " + file("raro.txt")},
        {sample("alignment/eje.ruxo"), QUELCNV_MODEL_NONE, "Eje 1",
         "nada que dibujar en " + sample("alignment/eje.ruxo") +
             ": --eje, --rasante y --transversales solo valen para LandXML"},
        {sample("fielddata/nivelacion.dat"), QUELCNV_MODEL_NONE, nullptr,
         sample("fielddata/nivelacion.dat") + " es un fichero KL500 de nivelación"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.path);
        Model model = open(c.path, c.kind, c.choice);
        ASSERT_NE(model, nullptr);
        EXPECT_EQ(quelcnv_model_kind_of(model.get()), QUELCNV_MODEL_NONE);
        EXPECT_TRUE(std::string(quelcnv_model_problem(model.get())).starts_with(c.problem))
            << quelcnv_model_problem(model.get());
        EXPECT_EQ(quelcnv_model_alignment_count(model.get()), 0u);
        EXPECT_EQ(quelcnv_model_geojson(model.get(), 1.0), nullptr);
    }
    EXPECT_EQ(quelcnv_model_open(nullptr, "a", QUELCNV_MODEL_NONE, nullptr), nullptr);
    EXPECT_EQ(quelcnv_model_kind_of(nullptr), QUELCNV_MODEL_NONE);
}

}  // namespace
}  // namespace quelcnv
