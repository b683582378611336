// The alignment entry points: the scratch file each chained conversion leaves
// or removes, and paths the host cannot pass. Their results and outputs, also
// from CR LF input, are in tests/data/alignment/cases.txt.
#include <gtest/gtest.h>

#include <filesystem>

#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

using Chained = int(QUELCNV_CALL*)(const char*, const char*, const char*);

std::string sample(const std::string& name) { return test::testData("alignment/" + name).string(); }

class AlignmentExportsTest : public test::FolderTest {};

TEST_F(AlignmentExportsTest, ChainedConversionsRemoveOrLeaveTheScratchFile) {
    // clang-format off
    const std::tuple<const char*, Chained, const char*, bool> cases[] = {
        {"aistram2nevo", MyDll_aistram2nevo, "istram/eje.txt", false},
        {"aclipplt2nevo", MyDll_aclipplt2nevo, "clip_plt/eje.plt", false},
        {"ahtrazado2nevo", MyDll_ahtrazado2nevo, "htrazado/eje.htr", false},
        {"amxroad2nevo", MyDll_amxroad2nevo, "htrazado/eje.htr", false},
        {"aistramList2nevo", MyDll_aistramList2nevo, "istram_listing/eje.lis", true},
        {"aispol2nevo", MyDll_aispol2nevo, "ispol/eje.ispol", true},
    };
    // clang-format on
    for (auto [name, convert, input, left] : cases) {
        fs::remove(scratchFile("temp.$$$"));
        EXPECT_EQ(convert(sample(input).c_str(), file("eje.nev").c_str(), dir_.string().c_str()), 1)
            << name;
        EXPECT_EQ(fs::exists(scratchFile("temp.$$$")), left) << name;
        if (!left) continue;
        std::string ruxo = fs::path(sample(input)).replace_filename("eje.ruxo").string();
        EXPECT_EQ(test::readBytes(scratchFile("temp.$$$")),
                  test::withPlatformNewlines(test::readBytes(ruxo)))
            << name << " leaves the imported alignment";
    }
}

// A path the host's buffers cannot hold, or none: nothing written, 0.
TEST_F(AlignmentExportsTest, PathsTheHostCannotPass) {
    const std::string out = file("out.nev"), host = dir_.string(), tooLong(300, 'x');
    EXPECT_EQ(MyDll_aruxo2nevo(sample("nevo/mixed.ruxo").c_str(), tooLong.c_str(), host.c_str()),
              0);
    EXPECT_EQ(MyDll_aispol2nevo(nullptr, out.c_str(), host.c_str()), 0);
    EXPECT_FALSE(fs::exists(out));
}

}  // namespace
}  // namespace quelcnv
