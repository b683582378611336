// The export table is the interface the host binds to: exactly the 60 names
// of frame/entry_points.txt, in the library, the module definition and the
// C header, beside the functions the public API's header declares. Then the entry points the frame
// builds, and those still pending.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>

#include "cli/operations.h"
#include "quelcnv.h"
#include "tests/test_support.h"

extern "C" int quelcnvEntryPointsSeenFromC(void);

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> tableNames() {
    std::vector<std::string> names;
    std::ifstream table(QUELCNV_ENTRY_POINT_TABLE);
    for (std::string line; std::getline(table, line);) {
        if (!line.empty() && line[0] != '#')
            names.push_back("MyDll_" + line.substr(0, line.find(' ')));
    }
    return names;
}

// The functions the public API's header declares.
std::vector<std::string> apiNames() {
    std::string header = test::readBytes(QUELCNV_SOURCE_DIR "/include/quelcnv_api.h");
    std::regex declaration(R"(QUELCNV_PUBLIC [^;(#]*?\b(quelcnv_[a-z0-9_]+)\s*\()");
    std::vector<std::string> names;
    for (std::sregex_iterator it(header.begin(), header.end(), declaration), end; it != end; ++it)
        names.push_back((*it)[1]);
    return names;
}

TEST(Exports, LibraryDefinitionFileAndHeaderHoldExactlyTheTable) {
    std::vector<std::string> names = tableNames();
    ASSERT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 60u);
    EXPECT_EQ(names[18], "MyDll_trahtrazado2lamdxml");  // the host binds by this spelling

#ifndef _WIN32  // the DLL's export table is checked by the host program and objdump
    std::set<std::string> exported;
    FILE* nm = popen("nm -D --defined-only " QUELCNV_SHARED_LIBRARY, "r");
    ASSERT_NE(nm, nullptr);
    for (char line[512]; std::fgets(line, sizeof line, nm);) {
        std::string_view text(line);
        exported.emplace(text.substr(text.rfind(' ') + 1, text.size() - text.rfind(' ') - 2));
    }
    ASSERT_EQ(pclose(nm), 0);
    std::set<std::string> expected(names.begin(), names.end());
    for (const std::string& name : apiNames()) expected.insert(name);
    EXPECT_EQ(exported, expected);
#endif

    std::ifstream def(QUELCNV_MODULE_DEFINITION);
    std::vector<std::string> listed, listedApi;
    for (std::string word; def >> word;) {
        if (word.starts_with("MyDll_")) listed.push_back(word);
        if (word.starts_with("quelcnv_")) listedApi.push_back(word);
    }
    EXPECT_EQ(listed, names);
    EXPECT_EQ(listedApi, apiNames());
    EXPECT_GT(apiNames().size(), 30u);
    EXPECT_EQ(quelcnvEntryPointsSeenFromC(), 60);
}

class EntryPointsTest : public test::FolderTest {};

// The entry points declared but not provided read and write nothing; the
// MXROAD alignment conversion gives 1 as its family does, the others 0.
TEST_F(EntryPointsTest, UnavailableEntryPointsConvertNothing) {
    test::writeBytes(file("input.txt"), "1 2 3 4 5 6\n");
    std::string unavailable;
    for (const cli::Operation& op : cli::operations()) {
        if (op.availability != cli::Availability::unavailable) continue;
        unavailable += std::string(unavailable.empty() ? "" : " ") + std::string(op.name);
        std::vector<std::string> args;
        for (std::string_view name : op.argumentNames())
            args.push_back(file(name.starts_with("salida") ? "out" : "input.txt"));
        EXPECT_EQ(op.invoke(args), op.name == "amxroad2nevo" ? 1 : 0) << op.name;
    }
    EXPECT_EQ(unavailable, "amxroad2nevo procesaRobotizada clipST2ruxo velm2arcview arcview2velm");
    EXPECT_EQ(std::distance(fs::directory_iterator(dir_), fs::directory_iterator()), 1);
}

TEST_F(EntryPointsTest, FrameEntryPointsDoWhatTheHostExpects) {
    EXPECT_EQ(MyDll_velm2arcview(file("input.txt").c_str(), file("out.txt").c_str()), 0);
    EXPECT_EQ(MyDll_arcview2velm(nullptr, nullptr), 0);
    EXPECT_TRUE(fs::is_empty(dir_));  // the ArcView pair touches no file

    char buffer[16] = "abcdefghijklmn";
    MyDll_ReverseString(buffer);  // deliberately reverses nothing
    EXPECT_EQ(std::string(buffer, 15), std::string("salva\0ghijklmn", 15));
    EXPECT_EQ(test::readBytes(scratchFile("prueba.$$$")), "salva");  // no line break
    MyDll_ReverseString(nullptr);
}

}  // namespace
}  // namespace quelcnv
