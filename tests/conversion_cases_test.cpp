// Every conversion listed in tests/data/<family>/cases.txt (the syntax is in
// tests/data/README.md), each line a test of its own named after its family,
// line and operation ("--gtest_filter=*landxml_12_*" runs one). A case runs
// through its entry point once as written and once with CR LF line ends in
// its inputs, which must give the same result and outputs. A differing
// output is reported with its first differing line and byte offset.
//
// With QUELCNV_WRITE_EXPECTED set to a family ("profile"), that family's
// outputs are written to its expected files instead, as they are (run it
// where outputs end their lines with LF): for adding cases, whose outputs
// must then be read and checked.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <sstream>

#include "cli/operations.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view untouched = "sin tocar\n";
constexpr const char* families[] = {"alignment", "crosssection", "profile", "fielddata", "landxml"};

struct Case {
    std::string family;
    int number;        // line of cases.txt
    std::string line;  // the case as written
};

struct Expectation {
    fs::path written;   // in the test's folder
    fs::path expected;  // under tests/data; empty: the output stays untouched
};

// How a case shows in test names and messages (and not as raw bytes).
void PrintTo(const Case& c, std::ostream* out) { *out << c.family << " line " << c.number; }

std::vector<Case> listedCases() {
    std::vector<Case> cases;
    for (const char* family : families) {
        std::ifstream in(test::testData(family) / "cases.txt");
        int number = 0;
        for (std::string line; std::getline(in, line);) {
            ++number;
            if (!line.empty() && line[0] != '#') cases.push_back({family, number, line});
        }
    }
    return cases;
}

// "landxml_12_alandxml2nevoWCE": the family, the line and the operation.
std::string caseName(const testing::TestParamInfo<Case>& info) {
    std::istringstream words(info.param.line);
    std::string result, operation;
    words >> result >> operation;
    return info.param.family + "_" + std::to_string(info.param.number) + "_" + operation;
}

// Where two texts first differ: line and byte offset, both from 1.
std::string firstDifference(const std::string& got, const std::string& expected) {
    std::size_t at = 0;
    while (at < got.size() && at < expected.size() && got[at] == expected[at]) ++at;
    long line = 1 + std::count(expected.begin(), expected.begin() + static_cast<long>(at), '\n');
    return "first difference at line " + std::to_string(line) + ", byte " + std::to_string(at + 1);
}

class ConversionCasesTest : public test::FolderTest, public testing::WithParamInterface<Case> {
protected:
    // Runs the case; with crlf, on copies of its inputs with CR LF line ends.
    void run(bool crlf) {
        std::istringstream words(GetParam().line);
        int result = 0;
        std::string name;
        words >> result >> name;
        const cli::Operation* op = cli::findOperation(name);
        ASSERT_NE(op, nullptr) << name;
        std::vector<std::string> arguments;
        std::vector<Expectation> expectations;
        for (std::string word; words >> std::quoted(word);) {
            if (word[0] != '+' && word[0] != '$') {
                arguments.push_back(argument(word, crlf, expectations));
                continue;
            }
            // A file left by the run before must not pass for this one's.
            fs::path written = word[0] == '$' ? fs::path(scratchFile("$$$$.EJE"))
                                              : dir_ / fs::path(word).filename();
            fs::remove(written);
            expectations.push_back({written, test::testData(word.substr(1))});
        }
        ASSERT_EQ(arguments.size(), op->argumentNames().size());
        EXPECT_EQ(op->invoke(arguments), result);
        for (const Expectation& e : expectations) check(e);
    }

private:
    std::string argument(const std::string& word, bool crlf, std::vector<Expectation>& out) {
        std::string path = word.substr(1);
        switch (word[0]) {
            case '%': return crlf ? crlfCopy(path) : test::testData(path).string();
            case '=': return test::testData(path).string();
            case '@': {
                fs::path written =
                    path == "-" ? fs::path(file("salida")) : dir_ / fs::path(path).filename();
                test::writeBytes(written, untouched);
                out.push_back({written, path == "-" ? fs::path() : test::testData(path)});
                return written.string();
            }
            default: return word;
        }
    }

    std::string crlfCopy(const std::string& path) {
        if (!fs::exists(test::testData(path))) return test::testData(path).string();
        std::string text;
        for (char c : test::readBytes(test::testData(path))) c == '\n' ? text += "\r\n" : text += c;
        fs::path copy = dir_ / "crlf" / fs::path(path).filename();
        fs::create_directories(copy.parent_path());
        test::writeBytes(copy, text);
        return copy.string();
    }

    static bool writesExpected(const fs::path& expected) {
        const char* family = std::getenv("QUELCNV_WRITE_EXPECTED");
        return family != nullptr && expected.string().starts_with(test::testData(family).string());
    }

    void check(const Expectation& e) {
        std::string got = test::readBytes(e.written);
        if (e.expected.empty()) {
            EXPECT_EQ(got, untouched);
        } else if (writesExpected(e.expected)) {
            test::writeBytes(e.expected, got);
        } else {
            std::string expected = test::withPlatformNewlines(test::readBytes(e.expected));
            EXPECT_EQ(got, expected)
                << e.expected.string() << ": " << firstDifference(got, expected);
        }
    }
};

TEST_P(ConversionCasesTest, GivesItsResultAndOutputs) {
    for (bool crlf : {false, true}) {
        SCOPED_TRACE(crlf ? "inputs with CR LF" : "inputs as written");
        run(crlf);
    }
}

INSTANTIATE_TEST_SUITE_P(Listed, ConversionCasesTest, testing::ValuesIn(listedCases()), caseName);

}  // namespace
}  // namespace quelcnv
