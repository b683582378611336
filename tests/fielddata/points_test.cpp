// Point lists written as the NEVO points file and as the level's upload file.
#include <gtest/gtest.h>

#include <filesystem>

#include "fielddata/level_upload.h"
#include "fielddata/nevo_points.h"
#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

class PointsTest : public test::FolderTest {
protected:
    std::string convert(Outcome (*writer)(const std::string&, const std::string&),
                        std::string_view list) {
        test::writeBytes(file("puntos.txt"), list);
        EXPECT_TRUE(writer(file("puntos.txt"), file("salida.txt")).ok()) << list;
        return test::readBytes(file("salida.txt"));
    }
    std::string nevo(std::string_view list) { return convert(writeNevoPoints, list); }
    std::string level(std::string_view list) { return convert(writeLevelUpload, list); }
};

TEST_F(PointsTest, OneLineOfEachFormatPerPoint) {
    struct Case {
        const char* list;
        const char* nevo;
        const char* level;
    };
    // clang-format off
    const Case cases[] = {
        {"7 100.5 200.25 3.1 EST1\n", "7,100.500,200.250,3.100,EST1\n", "z,01,7,,,+3100,EST1\n"},
        {"P12 1 2 3\n", "0,1.000,2.000,3.000\n", "z,01,P12,,,+3000,\n"},
        // the plus sign stays before a negative height
        {"5 1 2 -2.5\n", "5,1.000,2.000,-2.500\n", "z,01,5,,,+-2500,\n"},
        {"5 1 2\n", "", ""},
        // the line break ends the third field: no height follows it
        {"1 2 3\n4 5 6 7\n", "4,5.000,6.000,7.000\n", "z,01,4,,,+7000,\n"},
        // millimetres cut toward zero
        {"8 0 0 1.2349\n9 0 0 -0.0005\n", "8,0.000,0.000,1.235\n9,0.000,0.000,-0.001\n",
         "z,01,8,,,+1234,\nz,01,9,,,+0,\n"},
        // runs of blanks and tabs are one separator; a code of two words keeps the first
        {"\t 3\t\t10  20 \t30  PK 12 \n", "3,10.000,20.000,30.000,PK\n", "z,01,3,,,+30000,PK\n"},
        {"3 10 20 30 \n", "3,10.000,20.000,30.000\n", "z,01,3,,,+30000,\n"},
        // blank lines and lines of blanks produce nothing
        {"\n   \n\t\n", "", ""},
        // coordinates stay in their order and nothing is swapped
        {"1 4500123.5 312000.25 -0.004\n", "1,4500123.500,312000.250,-0.004\n",
         "z,01,1,,,+-4,\n"},
        // heights beyond a 32-bit number of millimetres
        {"1 0 0 3e6\n", "1,0.000,0.000,3000000.000\n", "z,01,1,,,+-2147483648,\n"},
    };
    // clang-format on
    for (const Case& c : cases) {
        EXPECT_EQ(nevo(c.list), test::withPlatformNewlines(c.nevo)) << c.list;
        EXPECT_EQ(level(c.list), test::withPlatformNewlines(c.level)) << c.list;
    }
}

TEST_F(PointsTest, LastPointWithoutLineBreakIsLost) {
    EXPECT_EQ(nevo("1 1 2 3\n2 4 5 6"), test::withPlatformNewlines("1,1.000,2.000,3.000\n"));
    EXPECT_EQ(level("1 1 2 3\n2 4 5 6"), test::withPlatformNewlines("z,01,1,,,+3000,\n"));
}

TEST_F(PointsTest, EntryPointResults) {
    const std::string in = file("puntos.txt"), out = file("salida.txt");
    test::writeBytes(in, "1 2 3 4\n");
    for (auto convert : {MyDll_puntos2nevo, MyDll_puntos2nivel}) {
        EXPECT_EQ(convert(file("missing.txt").c_str(), out.c_str()), 0);
        EXPECT_FALSE(fs::exists(out));
        EXPECT_EQ(convert(in.c_str(), dir_.string().c_str()), 0);
        EXPECT_EQ(convert(nullptr, out.c_str()), 0);
        EXPECT_EQ(convert(in.c_str(), std::string(256, 'x').c_str()), 0);
        EXPECT_EQ(convert(in.c_str(), out.c_str()), 1);
        EXPECT_TRUE(fs::remove(out));
    }
    // An empty list is converted into an empty file.
    test::writeBytes(in, "");
    EXPECT_EQ(MyDll_puntos2nivel(in.c_str(), out.c_str()), 1);
    EXPECT_EQ(fs::file_size(out), 0u);
}

}  // namespace
}  // namespace quelcnv
