// Host processes converting at once in one scratch folder: the chained
// conversions, which pass their data through the fixed scratch files, must
// give the same outputs as when run one by one; a scratch folder that others
// could tamper with is refused; a conversion killed half way leaves the
// next one working.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <random>
#include <regex>
#include <thread>

#include "cli/operations.h"
#include "tests/frame/child_process.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

// Conversions chained through the scratch files, and the selection lists.
constexpr std::string_view chained[] = {
    "aistram2nevo",     "aispol2nevo",       "aistramList2nevo",  "aclipplt2nevo",
    "alandxml2nevo",    "aistram2LandXML",   "aispol2LandXML",    "aclipplt2LandXML",
    "ristram2landxml",  "traistram2landxml", "tramxroad2landxml", "tralandxml2nevo",
    "rlandxml2nevoWCE", "istram2nevo"};

// An output without the date and time a LandXML document is stamped with.
std::string withoutStamp(std::string text) {
    static const std::regex stamp(R"( date="[^"]*" time="[^"]*")");
    return std::regex_replace(text, stamp, "");
}

class ConcurrencyTest : public test::FolderTest {
protected:
    // The sample's arguments with its output in `folder`.
    std::vector<std::string> argumentsFor(std::string_view name, const fs::path& folder) const {
        const cli::Operation* op = cli::findOperation(name);
        std::vector<std::string> values = test::sampleArguments(name);
        std::vector<std::string_view> names = op->argumentNames();
        for (std::size_t i = 0; i < names.size() && i < values.size(); ++i)
            if (names[i] == "salida") values[i] = (folder / std::string(name)).string();
        return values;
    }

    // Converts and compares with the output of the run one by one; the
    // number of differences.
    int convertAndCompare(std::string_view name, const fs::path& folder) {
        std::vector<std::string> values = argumentsFor(name, folder);
        fs::path output = folder / std::string(name);
        std::error_code ignored;
        fs::remove(output, ignored);
        cli::findOperation(name)->invoke(values);
        std::string got = fs::exists(output) ? withoutStamp(test::readBytes(output)) : "";
        return got == expected_.at(std::string(name)) ? 0 : 1;
    }

    void SetUp() override {
        fs::create_directories(dir_ / "reference");
        for (std::string_view name : chained) {
            ASSERT_FALSE(test::sampleArguments(name).empty()) << name;
            std::vector<std::string> values = argumentsFor(name, dir_ / "reference");
            cli::findOperation(name)->invoke(values);
            fs::path output = dir_ / "reference" / std::string(name);
            ASSERT_TRUE(fs::exists(output)) << name;
            expected_[std::string(name)] = withoutStamp(test::readBytes(output));
        }
    }

    std::map<std::string, std::string> expected_;
};

TEST_F(ConcurrencyTest, EightProcessesGiveTheOutputsOfOneByOne) {
    constexpr int processes = 8, rounds = 20;
    std::vector<pid_t> children;
    for (int p = 0; p < processes; ++p) {
        fs::path folder = dir_ / ("proceso" + std::to_string(p));
        fs::create_directories(folder);
        children.push_back(test::startChild([this, p, folder] {
            std::mt19937 random(static_cast<unsigned>(p));
            std::vector<std::string_view> order(std::begin(chained), std::end(chained));
            int differences = 0;
            for (int round = 0; round < rounds; ++round) {
                std::shuffle(order.begin(), order.end(), random);
                for (std::string_view name : order) differences += convertAndCompare(name, folder);
            }
            return std::min(differences, 100);
        }));
    }
    for (pid_t child : children) {
        test::ChildRun run = test::waitForChild(child);
        EXPECT_TRUE(run.finished) << run.ending;
        EXPECT_EQ(run.result, 0) << "salidas distintas de las de un proceso solo";
    }
}

TEST_F(ConcurrencyTest, AKilledConversionLeavesTheNextOneWorking) {
    fs::create_directories(dir_ / "matado");
    fs::create_directories(dir_ / "siguiente");
    for (int milliseconds : {1, 3, 7, 15, 30, 60}) {
        pid_t child = test::startChild([this]() -> int {
            for (;;)  // until killed
                for (std::string_view name : chained) convertAndCompare(name, dir_ / "matado");
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        kill(child, SIGKILL);
        test::waitForChild(child);
        for (std::string_view name : chained) {
            test::ChildRun next = test::waitForChild(
                test::startChild([&] { return convertAndCompare(name, dir_ / "siguiente"); }));
            EXPECT_TRUE(next.finished && next.result == 0)
                << name << " tras matar a los " << milliseconds << " ms: " << next.ending;
        }
    }
}

// A scratch folder another user could read, write or swap is refused: the
// chained conversion fails cleanly and writes nothing.
TEST_F(ConcurrencyTest, ScratchFoldersOthersCouldTamperWithAreRefused) {
    auto refused = [this](const std::string& what) {
        for (std::string_view name : {"aistram2LandXML", "aistram2nevo"}) {
            fs::path output = dir_ / "rechazada" / std::string(name);
            std::vector<std::string> values = argumentsFor(name, dir_ / "rechazada");
            cli::findOperation(name)->invoke(values);
            EXPECT_FALSE(fs::exists(output)) << what << ": " << name;
        }
    };
    fs::create_directories(dir_ / "rechazada");
    fs::create_directories(dir_ / "de verdad");
    fs::permissions(dir_ / "de verdad", fs::perms::owner_all);
    {
        test::ScopedEnv scratch("QUELCNV_SCRATCH", file("enlace"));
        fs::create_directory_symlink(dir_ / "de verdad", dir_ / "enlace");
        refused("un enlace simbolico");
    }
    {
        test::ScopedEnv scratch("QUELCNV_SCRATCH", file("de todos"));
        fs::create_directory(dir_ / "de todos");
        fs::permissions(dir_ / "de todos", fs::perms::all);
        refused("escribible por otros");
    }
    if (geteuid() == 0) {
        test::ScopedEnv scratch("QUELCNV_SCRATCH", file("de otro"));
        fs::create_directory(dir_ / "de otro");
        fs::permissions(dir_ / "de otro", fs::perms::owner_all);
        ASSERT_EQ(chown(file("de otro").c_str(), 65534, 65534), 0);
        refused("de otro usuario");
    }
}

}  // namespace
}  // namespace quelcnv
