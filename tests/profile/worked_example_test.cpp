// One profile through every converter that can carry it: the vertices
// 0/100, 100/102 and 200/101 with a curve of 80 m at the inner one. Grades
// 0.02 and -0.01, change -0.03, so (by hand) kv = 80 / 0.03, tangent 40,
// external 0.03 x 40 / 4. Each path must give these same numbers.
#include <gtest/gtest.h>

#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

const std::string kv = "2666.667";
const std::string tangent = "40.000";
const std::string external = "0.300";
const std::string curveLength = "80.000";

using Convert = int(QUELCNV_CALL*)(const char*, const char*);

// The NEVO profile file: no line break after the last vertex.
std::string expectedNevo() {
    std::string nevo = "0.000, 100.000, 0.000\n";
    nevo += "100.000, 102.000, " + curveLength + "\n";
    nevo += "200.000, 101.000, 0.000";
    return test::withPlatformNewlines(nevo);
}

class ProfileWorkedExampleTest : public test::FolderTest {
protected:
    std::string convert(Convert converter, const std::string& input, const std::string& output) {
        EXPECT_EQ(converter(input.c_str(), file(output).c_str()), 1) << input;
        return test::readBytes(file(output));
    }
    std::string sample(const char* name) { return test::testData(name).string(); }
};

TEST_F(ProfileWorkedExampleTest, RuxoProfileGivesTheCurveGeometry) {
    std::string expected = "0.000\t100.000\t0.000\t0.000\t0.000\n";
    expected += "100.000\t102.000\t" + kv + "\t" + tangent + "\t" + external + "\n";
    expected += "200.000\t101.000\t0.000\t0.000\t0.000\n";
    EXPECT_EQ(convert(MyDll_rasruxo2nevo, sample("profile/worked/eje.ruxo"), "eje.tab"),
              test::withPlatformNewlines(expected));
}

TEST_F(ProfileWorkedExampleTest, EveryNevoPathGivesTheSameCurveLength) {
    const std::pair<Convert, const char*> paths[] = {
        {MyDll_rvelm2nevo, "profile/worked/eje.velm"},      // five columns: its tangent
        {MyDll_rvelm2nevo, "profile/worked/eje.ispol"},     // "#" first: ISPOL listing
        {MyDll_rispol2nevo, "profile/worked/eje.ispol"},    // incoming grades, shifted
        {MyDll_ristram2nevo, "profile/worked/eje.istram"},  // outgoing grades
    };
    for (auto [converter, input] : paths)
        EXPECT_EQ(convert(converter, sample(input), "eje.nev"), expectedNevo()) << input;
}

// CartoMAP gives kv; the tangent and external come from the change of grade,
// and the VELM file written goes on to the same NEVO file.
TEST_F(ProfileWorkedExampleTest, CartomapGivesTheSameTangentAndExternal) {
    std::string expected = "     0.000  100.000     0.000    0.000    0.000\n";
    expected += "   100.000  102.000  " + kv + "   " + tangent + "    " + external + "\n";
    expected += "   200.000  101.000     0.000    0.000    0.000\n";
    EXPECT_EQ(convert(MyDll_rascartomap2ruxo, sample("profile/worked/eje.cartomap"), "eje.velm"),
              test::withPlatformNewlines(expected));
    EXPECT_EQ(convert(MyDll_rvelm2nevo, file("eje.velm"), "eje.nev"), expectedNevo());
}

}  // namespace
}  // namespace quelcnv
