// The alignment entry points: results, the scratch file each one leaves or
// removes, and CR LF input converting exactly like LF input.
#include <gtest/gtest.h>

#include <filesystem>

#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

using Chained = int(QUELCNV_CALL*)(const char*, const char*, const char*);

class AlignmentExportsTest : public test::FolderTest {
protected:
    std::string sample(const std::string& name) {
        return test::testData("alignment/" + name).string();
    }
    bool scratchLeft() { return fs::exists(scratchFile("temp.$$$")); }
};

TEST_F(AlignmentExportsTest, ChainedConversionsRemoveOrLeaveTheScratchFile) {
    // clang-format off
    const std::tuple<const char*, Chained, const char*, bool> cases[] = {
        {"aistram2nevo", MyDll_aistram2nevo, "istram/eje.txt", false},
        {"aclipplt2nevo", MyDll_aclipplt2nevo, "clip_plt/eje.plt", false},
        {"aistramList2nevo", MyDll_aistramList2nevo, "istram_listing/eje.lis", true},
        {"aispol2nevo", MyDll_aispol2nevo, "ispol/eje.ispol", true},
    };
    // clang-format on
    for (auto [name, convert, input, left] : cases) {
        fs::remove(file("eje.nev"));
        fs::remove(scratchFile("temp.$$$"));
        EXPECT_EQ(convert(sample(input).c_str(), file("eje.nev").c_str(), dir_.string().c_str()), 1)
            << name;
        EXPECT_GT(fs::file_size(file("eje.nev")), 0u) << name;
        EXPECT_EQ(scratchLeft(), left) << name;
        if (left) {  // holding the imported alignment
            std::string ruxo = fs::path(sample(input)).replace_filename("eje.ruxo").string();
            EXPECT_EQ(test::readBytes(scratchFile("temp.$$$")),
                      test::withPlatformNewlines(test::readBytes(ruxo)))
                << name;
        }
    }
}

TEST_F(AlignmentExportsTest, UnreadableInputsAndConversionsThatWriteNothing) {
    const std::string missing = file("missing.txt"), out = file("out.nev");
    const std::string folder = dir_.string();
    const char* host = folder.c_str();
    EXPECT_EQ(MyDll_aistram2nevo(missing.c_str(), out.c_str(), host), 1);
    EXPECT_EQ(MyDll_aclipplt2nevo(missing.c_str(), out.c_str(), host), 0);
    EXPECT_EQ(MyDll_aistram2ruxo(missing.c_str(), out.c_str()), 0);
    EXPECT_EQ(MyDll_aclipplt2ruxo(missing.c_str(), out.c_str()), 0);
    EXPECT_EQ(MyDll_aruxo2nevo(missing.c_str(), out.c_str(), host), 1);
    EXPECT_EQ(MyDll_aruxo2nevoWCE(missing.c_str(), out.c_str()), 1);
    // HTRAZADO alignments are read but not converted; MXROAD ones not even read.
    test::writeBytes(file("eje.htr"), "2 0\n0\t0\t0\t50\t0\t0\n100\t70.7\t70.7\t50\t0\t0\n");
    EXPECT_EQ(MyDll_ahtrazado2nevo(file("eje.htr").c_str(), out.c_str(), host), 1);
    EXPECT_EQ(MyDll_amxroad2nevo(file("eje.htr").c_str(), out.c_str(), host), 1);
    EXPECT_FALSE(fs::exists(out));
    EXPECT_FALSE(scratchLeft());
    // A path the host's buffers cannot hold: nothing written, 0.
    std::string tooLong(300, 'x');
    EXPECT_EQ(MyDll_aruxo2nevo(sample("nevo/mixed.ruxo").c_str(), tooLong.c_str(), host), 0);
    EXPECT_EQ(MyDll_aispol2nevo(nullptr, out.c_str(), host), 0);
}

TEST_F(AlignmentExportsTest, CrLfInputConvertsLikeLfInput) {
    // clang-format off
    const std::pair<Chained, const char*> cases[] = {
        {MyDll_aistram2nevo, "istram/eje.txt"}, {MyDll_aclipplt2nevo, "clip_plt/eje.plt"},
        {MyDll_aistramList2nevo, "istram_listing/eje.lis"}, {MyDll_aispol2nevo, "ispol/eje.ispol"},
        {MyDll_aruxo2nevo, "nevo/mixed.ruxo"},
    };
    // clang-format on
    test::writeBytes(file("quelvar.ini"), "LIMITE=1000\n");
    for (auto [convert, input] : cases) {
        std::string lf = test::readBytes(sample(input)), crlf;
        for (char c : lf) c == '\n' ? crlf += "\r\n" : crlf += c;
        test::writeBytes(file("crlf.txt"), crlf);
        convert(sample(input).c_str(), file("from-lf.nev").c_str(), dir_.string().c_str());
        convert(file("crlf.txt").c_str(), file("from-crlf.nev").c_str(), dir_.string().c_str());
        EXPECT_EQ(test::readBytes(file("from-crlf.nev")), test::readBytes(file("from-lf.nev")))
            << input;
    }
}

}  // namespace
}  // namespace quelcnv
