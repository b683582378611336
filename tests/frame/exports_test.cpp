// The export table is the interface the host binds to: exactly the 60 names
// of frame/entry_points.txt, in the library, the module definition and the header.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli/operations.h"
#include "frame/entry_guard.h"
#include "tests/test_support.h"

extern "C" int quelcnvEntryPointsSeenFromC(void);

namespace quelcnv {
namespace {

// The names of the checked-in table, with their "MyDll_" prefix.
std::vector<std::string> tableNames() {
    std::ifstream table(QUELCNV_ENTRY_POINT_TABLE);
    std::vector<std::string> names;
    for (std::string line; std::getline(table, line);) {
        if (line.empty() || line[0] == '#') continue;
        names.push_back("MyDll_" + line.substr(0, line.find(' ')));
    }
    return names;
}

TEST(Exports, TableHoldsSixtyDistinctNamesWithTheHostsSpellings) {
    std::vector<std::string> names = tableNames();
    EXPECT_EQ(names.size(), 60u);
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 60u);
    EXPECT_EQ(names.front(), "MyDll_ReverseString");
    EXPECT_EQ(names.back(), "MyDll_arcview2velm");
    EXPECT_NE(std::find(names.begin(), names.end(), "MyDll_trahtrazado2lamdxml"), names.end());
}

#ifndef _WIN32
TEST(Exports, SharedLibraryExportsExactlyTheTable) {
    std::string command = "nm -D --defined-only \"" QUELCNV_SHARED_LIBRARY "\"";
    FILE* pipe = popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::set<std::string> exported;
    char line[512];
    while (std::fgets(line, sizeof line, pipe) != nullptr) {
        std::istringstream fields(line);
        std::string address, type, name;
        fields >> address >> type >> name;
        if (!name.empty()) exported.insert(name);
    }
    ASSERT_EQ(pclose(pipe), 0);
    std::vector<std::string> names = tableNames();
    EXPECT_EQ(exported, std::set<std::string>(names.begin(), names.end()));
}
#endif

TEST(Exports, ModuleDefinitionListsTheTableInOrder) {
    std::ifstream def(QUELCNV_MODULE_DEFINITION);
    std::vector<std::string> listed;
    std::string word;
    while (def >> word) {
        if (word.starts_with("MyDll_")) listed.push_back(word);
    }
    EXPECT_EQ(listed, tableNames());
}

TEST(Exports, HeaderDeclaresEveryEntryPointForC) { EXPECT_EQ(quelcnvEntryPointsSeenFromC(), 60); }

TEST(Exports, PathsAreRefusedWhenNullOrLongerThan255Bytes) {
    std::string longest(255, 'p'), tooLong(256, 'p');
    EXPECT_TRUE(isUsablePath(longest.c_str()));
    EXPECT_TRUE(isUsablePath(""));
    EXPECT_FALSE(isUsablePath(tooLong.c_str()));
    EXPECT_FALSE(isUsablePath(nullptr));
    EXPECT_TRUE(areUsablePaths("a", "b"));
    EXPECT_FALSE(areUsablePaths("a", static_cast<const char*>(nullptr)));
}

TEST(Exports, GuardTurnsAnEscapingExceptionIntoTheFailureResult) {
    EXPECT_EQ(guarded(0, []() -> int { throw std::bad_alloc(); }), 0);
    EXPECT_EQ(guarded(21, []() -> int { throw 5; }), 21);
    EXPECT_EQ(guarded(0, [] { return 1; }), 1);
    EXPECT_NO_THROW(guardedVoid([] { throw std::runtime_error("x"); }));
}

}  // namespace
}  // namespace quelcnv
