// The cross-section entry points on whole files, the imports that fail, and
// CR LF input converting like LF input.
#include <gtest/gtest.h>

#include <filesystem>

#include "crosssection/cartomap_sections.h"
#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

using EntryPoint = int(QUELCNV_CALL*)(const char*, const char*);

struct Case {
    const char* name;
    EntryPoint convert;
    const char* input;  // under tests/data/crosssection
    const char* expected;
    int missingInputResult;  // two-stage imports return 1 whatever happened
};

// clang-format off
// eje.ruxo: a fifth word dropped, short and empty lines, a line over 255
//   characters in two pieces, an unterminated last line lost.
// eje.csv: runs of commas, a code with a blank, wide numbers, "EJE" without
//   a line break losing its last letter.
// eje.istram: left distances negated, pairs over two lines, a point at 0 on
//   both sides kept once, a section cut short by the end of the file.
// eje.mxroad: pairs over several lines, a 17-character header and a header of
//   no points skipped, sorted by station and offset.
// eje.htrazado: a blank line and a title repeating the last point.
// eje.ter: columns 26, 46, 36 with one offset moved 5 mm, the higher code
//   first at one offset, no point at an alignment elevation of 0, a short
//   elevation line, an unterminated last elevation line.
// eje.trv: the file header, a repeated offset dropped, a blank line read as a
//   section header, a code cut by the comma after it, an unterminated last line.
// cartomap_pk / cartomap_distancia: both layouts, headers read again after a
//   section, the title as station 0, the code keeping its line break.
const Case wholeFiles[] = {
    {"ruxo2nevo", MyDll_ruxo2nevo, "eje.ruxo", "eje.ruxo.nevo", 0},
    {"traruxo2nevo", MyDll_traruxo2nevo, "eje.csv", "eje.csv.fixed", 0},
    {"istram2nevo", MyDll_istram2nevo, "eje.istram", "eje.istram.nevo", 1},
    {"mxroad2nevo", MyDll_mxroad2nevo, "eje.mxroad", "eje.mxroad.nevo", 1},
    {"htrazado2nevo", MyDll_htrazado2nevo, "eje.htrazado", "eje.htrazado.nevo", 1},
    {"clip2nevo", MyDll_clip2nevo, "eje.ter", "eje.ter.nevo", 1},
    {"cliptrv2nevo", MyDll_cliptrv2nevo, "eje.trv", "eje.trv.nevo", 1},
    {"traCartomap2ruxo", MyDll_traCartomap2ruxo, "cartomap_pk.txt", "cartomap_pk.ruxo", 0},
    {"traCartomap2ruxo", MyDll_traCartomap2ruxo, "cartomap_distancia.txt", "cartomap_distancia.ruxo", 0},
};
// clang-format on

class SectionsTest : public test::FolderTest {
protected:
    static std::string data(const char* name) {
        return test::testData(std::string("crosssection/") + name).string();
    }
};

TEST_F(SectionsTest, WholeFilesOfEveryFormat) {
    for (const Case& c : wholeFiles) {
        EXPECT_EQ(c.convert(data(c.input).c_str(), file("out").c_str()), 1) << c.input;
        EXPECT_EQ(test::readBytes(file("out")),
                  test::withPlatformNewlines(test::readBytes(data(c.expected))))
            << c.input;
        EXPECT_FALSE(fs::exists(scratchFile("temp.$$$"))) << c.input;
    }
}

TEST_F(SectionsTest, CrLfInputConvertsLikeLfInput) {
    for (const Case& c : wholeFiles) {
        std::string crlf;
        for (char ch : test::readBytes(data(c.input))) ch == '\n' ? crlf += "\r\n" : crlf += ch;
        test::writeBytes(file("crlf"), crlf);
        c.convert(file("crlf").c_str(), file("out").c_str());
        EXPECT_EQ(test::readBytes(file("out")),
                  test::withPlatformNewlines(test::readBytes(data(c.expected))))
            << c.input;
    }
}

TEST_F(SectionsTest, FailedImportsLeaveTheOutputAndNoScratchFile) {
    // clang-format off
    std::string thirtyPairs;
    for (int i = 0; i < 60; ++i) thirtyPairs += std::to_string(i) + " ";
    const std::pair<EntryPoint, std::string> failures[] = {
        {MyDll_mxroad2nevo, "titulo\n100.000 3 cabecera larga\n1 2 3\n"},   // offset without elevation
        {MyDll_mxroad2nevo, "titulo\n100.000 3 cabecera larga\n1 2\n\n"},   // ends lacking points
        {MyDll_mxroad2nevo, "titulo\n100.000 2 cabecera larga\n1 2"},       // the same, no line break
        {MyDll_mxroad2nevo, "titulo\n100.000 3 cabecera larga\n" + thirtyPairs},  // table of 28 full
        {MyDll_mxroad2nevo, ""},                                             // empty
        {MyDll_cliptrv2nevo, "*CABECERA\n100 , 1\n1,2\n"},
        {MyDll_istram2nevo, "4 1 0 0 100 0\n0 0 0 -1 2\n1 2 3 4\n"},         // negative count
        {MyDll_istram2nevo, "4 1 0 0 100 0\n0 0 0 0 0\n1 2\n"},              // no points
        {MyDll_istram2nevo, "4 1 0 0 100 0\n0 0 0 2000000000 2000000000\n1 2\n"},  // absurd
    };
    // clang-format on
    for (const auto& [convert, input] : failures) {
        test::writeBytes(file("in"), input);
        test::writeBytes(file("out"), "anterior");
        EXPECT_EQ(convert(file("in").c_str(), file("out").c_str()), 1) << input;
        EXPECT_EQ(test::readBytes(file("out")), "anterior") << input;
        EXPECT_FALSE(fs::exists(scratchFile("temp.$$$"))) << input;
    }
    for (const Case& c : wholeFiles) {  // a missing input
        EXPECT_EQ(c.convert(file("missing").c_str(), file("out").c_str()), c.missingInputResult)
            << c.name;
        EXPECT_EQ(test::readBytes(file("out")), "anterior") << c.name;
    }
    EXPECT_EQ(MyDll_ruxo2nevo(data("eje.ruxo").c_str(), file("no/such/folder").c_str()), 0);
}

TEST(CartomapStation, KilometresPlusMetres) {
    // clang-format off
    const std::pair<const char*, double> cases[] = {
        {"1+234.5", 1234.5}, {"0+120", 120.0}, {"120", 120000.0}, {"Distancia", 0.0},
        {"2+", 2000.0}, {"+15", 15.0},
    };
    // clang-format on
    for (auto [text, station] : cases) EXPECT_DOUBLE_EQ(cartomapStation(text), station) << text;
}

}  // namespace
}  // namespace quelcnv
