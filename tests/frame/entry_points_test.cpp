// The entry points built by the frame, and the table of those still pending.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "cli/operations.h"
#include "quelcnv.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;
using cli::Availability;

class EntryPointsTest : public test::FolderTest {};

// Entry points whose converter is still to be built: they convert nothing and
// return 0. Each issue that builds a converter takes its entry points off this
// list and off frame/entry_points.txt.
const std::vector<std::string_view> pendingEntryPoints = {
    "puntos2nevo",
    "ruxo2nevo",
    "istram2nevo",
    "mxroad2nevo",
    "htrazado2nevo",
    "clip2nevo",
    "cliptrv2nevo",
    "seleccionaTransverLandXML",
    "tralandxml2nevo",
    "tralandxml2nevoWCE",
    "traCartomap2ruxo",
    "traruxo2nevo",
    "travelm2landxml",
    "tracliptrv2landxml",
    "traclip2landxml",
    "traistram2landxml",
    "tramxroad2landxml",
    "trahtrazado2lamdxml",
    "aruxo2nevo",
    "aruxo2nevoWCE",
    "aistram2nevo",
    "amxroad2nevo",
    "ahtrazado2nevo",
    "aclipplt2nevo",
    "aistramList2nevo",
    "aispol2nevo",
    "aclipplt2ruxo",
    "seleccionaEjeLandXML",
    "alandxml2nevo",
    "alandxml2nevoWCE",
    "aVELM2LandXML",
    "aistram2LandXML",
    "ahtrazado2LandXML",
    "aclipplt2LandXML",
    "aistramList2LandXML",
    "aispol2LandXML",
    "aistram2ruxo",
    "ristram2nevo",
    "rvelm2nevo",
    "rispol2nevo",
    "seleccionaRasanteLandXML",
    "rlandxml2nevo",
    "rlandxml2nevoWCE",
    "rvelm2landxml",
    "ristram2landxml",
    "rispol2landxml",
    "rasruxo2nevo",
    "rascartomap2ruxo",
    "anivel2ing",
    "puntos2nivel",
    "peralteispol2nevo",
    "peralteClip2nevo",
    "topoLea2Medrix",
    "lectnevo2medrix",
    "procesaRobotizada",
    "procesaCabecera",
    "clipST2ruxo",
};

TEST_F(EntryPointsTest, PendingTableIsExactlyTheOneStatedHere) {
    std::vector<std::string_view> pending;
    for (const cli::Operation& op : cli::operations()) {
        if (op.availability == Availability::pending) pending.push_back(op.name);
    }
    EXPECT_EQ(pending, pendingEntryPoints);
}

TEST_F(EntryPointsTest, PendingEntryPointsReturnZeroAndWriteNothing) {
    test::writeBytes(file("input.txt"), "1 2 3 4 5 6\n");
    for (const cli::Operation& op : cli::operations()) {
        if (op.availability != Availability::pending) continue;
        std::vector<std::string> args;
        for (std::string_view name : op.argumentNames()) {
            if (name == "selec")
                args.push_back("0");
            else if (name == "entrada" || name == "lecturas" || name == "puntos")
                args.push_back(file("input.txt"));
            else
                args.push_back(file(std::string(name) + ".out"));
        }
        EXPECT_EQ(op.invoke(args), 0) << op.name;
    }
    std::vector<std::string> left;
    for (const auto& entry : fs::directory_iterator(dir_.path())) {
        left.push_back(entry.path().filename().string());
    }
    EXPECT_EQ(left, std::vector<std::string>{"input.txt"});
}

TEST_F(EntryPointsTest, ReverseStringLeavesSalvaInTheBufferAndTheScratchFile) {
    char buffer[16] = "abcdefghijklmn";
    MyDll_ReverseString(buffer);
    EXPECT_STREQ(buffer, "salva");
    EXPECT_EQ(std::memcmp(buffer + 6, "ghijklmn", 8), 0);  // the rest is not touched
    EXPECT_EQ(test::readBytes(scratchFile("prueba.$$$")), "salva");
}

TEST_F(EntryPointsTest, ReverseStringWithARefusedScratchDirectoryOnlyFillsTheBuffer) {
    test::writeBytes(file("not-a-folder"), "");
    test::ScopedEnv scratch("QUELCNV_SCRATCH", file("not-a-folder"));
    char buffer[8] = "abc";
    MyDll_ReverseString(buffer);
    EXPECT_STREQ(buffer, "salva");
    MyDll_ReverseString(nullptr);
}

TEST_F(EntryPointsTest, ArcviewConversionsReturnZeroAndTouchNoFile) {
    test::writeBytes(file("input.txt"), "1 2 3\n");
    EXPECT_EQ(MyDll_velm2arcview(file("input.txt").c_str(), file("out.txt").c_str()), 0);
    EXPECT_EQ(MyDll_arcview2velm(file("input.txt").c_str(), file("out.txt").c_str()), 0);
    EXPECT_EQ(MyDll_velm2arcview(nullptr, nullptr), 0);
    EXPECT_FALSE(fs::exists(file("out.txt")));
    EXPECT_FALSE(fs::exists(dir_.path() / "scratch"));
}

}  // namespace
}  // namespace quelcnv
