// The RUXO profile file to the five-column tab vertex file.
#include "profile/ruxo_profile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

class RuxoProfileTest : public test::FolderTest {
protected:
    std::string convert(std::string_view ruxo) {
        test::writeBytes(file("eje.ruxo"), ruxo);
        EXPECT_TRUE(ruxoProfileToVertexFile(file("eje.ruxo"), file("eje.tab")).ok()) << ruxo;
        return test::readBytes(file("eje.tab"));
    }
};

TEST_F(RuxoProfileTest, VerticesAtTheSameStation) {
    const std::pair<const char*, const char*> cases[] = {
        // different elevations: a vertical grade, its sign taken from this
        // vertex's elevation minus the next one's on the way out
        {"0,100,0\n100,102,80\n100,105,60\n200,104,0\n",
         "0.000\t100.000\t0.000\t0.000\t0.000\n"
         "100.000\t102.000\t0.000\t40.000\t1000000000.200\n"
         "100.000\t105.000\t0.000\t30.000\t750000000.075\n"
         "200.000\t104.000\t0.000\t0.000\t0.000\n"},
        // the same elevation: a level grade
        {"0,100,0\n100,102,80\n100,102,60\n200,101,0\n",
         "0.000\t100.000\t0.000\t0.000\t0.000\n"
         "100.000\t102.000\t4000.000\t40.000\t0.200\n"
         "100.000\t102.000\t6000.000\t30.000\t0.075\n"
         "200.000\t101.000\t0.000\t0.000\t0.000\n"},
    };
    for (auto [ruxo, expected] : cases)
        EXPECT_EQ(convert(ruxo), test::withPlatformNewlines(expected)) << ruxo;
}

// No change of grade: kv is infinite, printed as the C runtime prints it.
TEST_F(RuxoProfileTest, StraightThroughAVertexGivesAnInfiniteKv) {
    std::string expected = "0.000\t100.000\t0.000\t0.000\t0.000\n100.000\t102.000\t";
    expected += test::cPrintf("%0.3lf", HUGE_VAL);
    expected += "\t40.000\t0.000\n200.000\t104.000\t0.000\t0.000\t0.000\n";
    EXPECT_EQ(convert("0,100,0\n100,102,80\n200,104,0\n"), test::withPlatformNewlines(expected));
}

TEST_F(RuxoProfileTest, LinesAndVertices) {
    const std::pair<const char*, const char*> cases[] = {
        {"5,7,9\n", "5.000\t7.000\t0.000\t0.000\t0.000\n5.000\t7.000\t0.000\t0.000\t0.000\n"},
        {"0,100,0\n50,101,30\n",
         "0.000\t100.000\t0.000\t0.000\t0.000\n50.000\t101.000\t0.000\t0.000\t0.000\n"},
        // a last line without a line break is used; lines without three
        // parts are skipped; runs of commas count as one; more parts and
        // blanks before the numbers do no harm
        {"0,100\n\n,,,\n0,,100,,,0\n100, 102, 80,x,y\n200,101,0",
         "0.000\t100.000\t0.000\t0.000\t0.000\n"
         "100.000\t102.000\t2666.667\t40.000\t0.300\n"
         "200.000\t101.000\t0.000\t0.000\t0.000\n"},
    };
    for (auto [ruxo, expected] : cases)
        EXPECT_EQ(convert(ruxo), test::withPlatformNewlines(expected)) << ruxo;
}

}  // namespace
}  // namespace quelcnv
