// Every conversion listed in tests/data/<family>/cases.txt, run through its
// entry point, once as written and once with CR LF line ends in its inputs,
// which must give the same results and outputs. A case is one line:
//   <result> <operation> <argument>...
//   %path   an input file under tests/data
//   =path   a folder under tests/data, passed as it stands (the host's folder)
//   @path   the output, which holds "sin tocar" beforehand; afterwards it must
//           equal tests/data/path, or, for "@-", still hold "sin tocar"
//   +path   a file the conversion writes beside its output, under the file
//           name of path; it must equal tests/data/path
//   $path   the selection list the conversion writes in the scratch folder;
//           it must equal tests/data/path
//   other   passed as it stands ("double quotes" around a word with blanks)
// Lines starting with "#" and empty lines are comments. With
// QUELCNV_WRITE_EXPECTED set to a family ("profile"), that family's outputs
// are written to its expected files instead: for adding cases, whose
// outputs must then be read and checked.
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

struct Expectation {
    fs::path written;   // in the test's folder
    fs::path expected;  // under tests/data; empty: the output stays untouched
};

class ConversionCasesTest : public test::FolderTest {
protected:
    // Runs one case; with crlf, on copies of its inputs with CR LF line ends.
    void run(const std::string& line, bool crlf) {
        std::istringstream words(line);
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
        if (e.expected.empty()) {
            EXPECT_EQ(test::readBytes(e.written), untouched);
        } else if (writesExpected(e.expected)) {
            std::string text = test::readBytes(e.written);
            for (std::size_t at; (at = text.find("\r\n")) != std::string::npos;) text.erase(at, 1);
            test::writeBytes(e.expected, text);
        } else {
            EXPECT_EQ(test::readBytes(e.written),
                      test::withPlatformNewlines(test::readBytes(e.expected)))
                << e.expected;
        }
    }
};

TEST_F(ConversionCasesTest, EveryListedCase) {
    for (const char* family : {"alignment", "crosssection", "profile", "fielddata", "landxml"}) {
        fs::path list = test::testData(family) / "cases.txt";
        std::ifstream in(list);
        int number = 0;
        for (std::string line; std::getline(in, line);) {
            ++number;
            if (line.empty() || line[0] == '#') continue;
            SCOPED_TRACE(list.string() + ":" + std::to_string(number) + ": " + line);
            for (bool crlf : {false, true}) run(line, crlf);
        }
    }
}

}  // namespace
}  // namespace quelcnv
