// The profile and superelevation entry points: results, paths the host's
// buffers cannot hold, outputs that cannot be written, and CR LF input.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

using Convert = int(QUELCNV_CALL*)(const char*, const char*);

struct Export {
    const char* name;
    Convert convert;
    const char* input;  // under tests/data/profile
};

// clang-format off
const Export exports[] = {
    {"rvelm2nevo", MyDll_rvelm2nevo, "worked/eje.velm"},
    {"rasruxo2nevo", MyDll_rasruxo2nevo, "worked/eje.ruxo"},
    {"ristram2nevo", MyDll_ristram2nevo, "worked/eje.istram"},
    {"rispol2nevo", MyDll_rispol2nevo, "worked/eje.ispol"},
    {"rascartomap2ruxo", MyDll_rascartomap2ruxo, "worked/eje.cartomap"},
    {"peralteispol2nevo", MyDll_peralteispol2nevo, "superelevation/peralte.ispol"},
    {"peralteClip2nevo", MyDll_peralteClip2nevo, "superelevation/peralte.clip"},
};
// clang-format on

class ProfileExportsTest : public test::FolderTest {
protected:
    std::string input(const Export& e) { return test::testData("profile/").string() + e.input; }
};

TEST_F(ProfileExportsTest, FailuresReturnZeroAndWriteNothing) {
    const std::string out = file("out.txt"), tooLong(300, 'x');
    for (const Export& e : exports) {
        const std::string in = input(e);
        EXPECT_EQ(e.convert(file("missing.txt").c_str(), out.c_str()), 0) << e.name;
        EXPECT_EQ(e.convert(in.c_str(), file("none/out.txt").c_str()), 0) << e.name;
        EXPECT_EQ(e.convert(in.c_str(), dir_.string().c_str()), 0) << e.name;
        EXPECT_EQ(e.convert(nullptr, out.c_str()), 0) << e.name;
        EXPECT_EQ(e.convert(in.c_str(), nullptr), 0) << e.name;
        EXPECT_EQ(e.convert(in.c_str(), tooLong.c_str()), 0) << e.name;
        EXPECT_FALSE(fs::exists(out)) << e.name;
    }
}

// The profile converters write nothing for an input without a vertex; the
// superelevation ones write an empty file.
TEST_F(ProfileExportsTest, InputWithoutData) {
    test::writeBytes(file("empty.txt"), "# nada\n");
    for (const Export& e : exports) {
        fs::remove(file("out.txt"));
        bool superelevation = std::string(e.name).starts_with("peralte");
        EXPECT_EQ(e.convert(file("empty.txt").c_str(), file("out.txt").c_str()),
                  superelevation ? 1 : 0)
            << e.name;
        EXPECT_EQ(fs::exists(file("out.txt")), superelevation) << e.name;
    }
    EXPECT_EQ(test::readBytes(file("out.txt")), "");
}

TEST_F(ProfileExportsTest, CrLfInputConvertsLikeLfInput) {
    for (const Export& e : exports) {
        std::string lf = test::readBytes(input(e)), crlf;
        for (char c : lf) c == '\n' ? crlf += "\r\n" : crlf += c;
        test::writeBytes(file("crlf.txt"), crlf);
        ASSERT_EQ(e.convert(input(e).c_str(), file("lf.out").c_str()), 1) << e.name;
        ASSERT_EQ(e.convert(file("crlf.txt").c_str(), file("crlf.out").c_str()), 1) << e.name;
        EXPECT_EQ(test::readBytes(file("crlf.out")), test::readBytes(file("lf.out"))) << e.name;
    }
}

}  // namespace
}  // namespace quelcnv
