// The CartoMAP profile file to the VELM profile file.
#include "profile/cartomap_profile.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

class CartomapProfileTest : public test::FolderTest {
protected:
    std::string convert(std::string_view cartomap) {
        test::writeBytes(file("eje.txt"), cartomap);
        EXPECT_TRUE(cartomapProfileToVelm(file("eje.txt"), file("eje.velm")).ok()) << cartomap;
        return test::readBytes(file("eje.velm"));
    }
};

TEST_F(CartomapProfileTest, WhichLinesAreVertices) {
    // Another first word (lower case too), fewer than three numbers, and a
    // last line without a line break are skipped; the keyword does not
    // decide the vertex's place; blanks and tabs separate the words.
    const char* input =
        "RASANTE\nPUNTO 50 101 0\ninicio 60 101 0\nVERTICE 70 101\n"
        "FINAL\t0\t100\t0\nINICIO 100 102 2666.667\nVERTICE 200 101 0\nFINAL 300 99 0";
    EXPECT_EQ(convert(input),
              test::withPlatformNewlines("     0.000  100.000     0.000    0.000    0.000\n"
                                         "   100.000  102.000  2666.667   40.000    0.300\n"
                                         "   200.000  101.000     0.000    0.000    0.000\n"));
}

TEST_F(CartomapProfileTest, CurvesFromKv) {
    const std::pair<const char*, const char*> cases[] = {
        // a negative kv is written as its absolute value; the first vertex
        // never gets a curve; the last one gets it from the incoming grade
        {"INICIO 0 100 500\nVERTICE 100 102 -2666.667\nFINAL 200 101 2000\n",
         "     0.000  100.000   500.000    0.000    0.000\n"
         "   100.000  102.000  2666.667   40.000    0.300\n"
         "   200.000  101.000  2000.000   10.000    0.025\n"},
        {"VERTICE 5 7 100\n", "     5.000    7.000   100.000    0.000    0.000\n"},
    };
    for (auto [cartomap, expected] : cases)
        EXPECT_EQ(convert(cartomap), test::withPlatformNewlines(expected)) << cartomap;
}

}  // namespace
}  // namespace quelcnv
