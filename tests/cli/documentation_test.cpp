// The documents say what the command does. The README's table of formats
// gives every entry point its arguments as the table of entry points has
// them; the README, the man page and the Windows LEEME show every order of
// the command with its usage and options, and the command's own options.
// (lista, ayuda and the bash completion take theirs from the command.)
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <regex>
#include <sstream>

#include "cli/help.h"
#include "cli/operations.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

std::string document(const std::string& relative) {
    return test::readBytes(std::string(QUELCNV_SOURCE_DIR) + "/" + relative);
}

std::string lower(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

// The options an order's usage names: --salida, -j, --tipo...
std::vector<std::string> optionsOf(std::string_view usage) {
    std::vector<std::string> options;
    std::string text(usage);
    static const std::regex option("(--[a-z]+|-j)\\b");
    for (auto m = std::sregex_iterator(text.begin(), text.end(), option);
         m != std::sregex_iterator(); ++m)
        options.push_back(m->str());
    return options;
}

const char* globalOptions[] = {"--crlf", "--silencio", "--scratch", "--help", "--version"};

TEST(Documentation, ReadmeGivesEveryEntryPointItsArguments) {
    std::string readme = document("README.md");
    static const std::regex row("\\| `MyDll_(\\w+)` \\| `quelcnv (\\w+)([^`]*)` \\|");
    std::map<std::string, std::vector<std::string>> rows;
    for (auto m = std::sregex_iterator(readme.begin(), readme.end(), row);
         m != std::sregex_iterator(); ++m) {
        EXPECT_EQ((*m)[1], (*m)[2]) << "la fila de " << (*m)[1] << " llama a otra operacion";
        std::istringstream words((*m)[3]);
        std::vector<std::string> arguments;
        for (std::string word; words >> word;) arguments.push_back(lower(word));
        EXPECT_TRUE(rows.emplace((*m)[1], arguments).second) << (*m)[1] << " repetida";
    }
    for (const cli::Operation& op : cli::operations()) {
        std::vector<std::string> wanted;
        for (std::string_view name : op.argumentNames()) wanted.push_back(lower(name));
        auto found = rows.find(std::string(op.name));
        ASSERT_NE(found, rows.end()) << op.name << " no esta en la tabla de formatos";
        EXPECT_EQ(found->second, wanted) << op.name;
    }
    EXPECT_EQ(rows.size(), cli::operations().size());
}

// The README and the LEEME show each usage line as the command's help has
// it; the man page names each order and each of its options.
TEST(Documentation, EveryOrderWithItsUsageAndOptions) {
    std::string readme = document("README.md"), leeme = document("doc/LEEME-windows.txt");
    std::string manual = document("doc/quelcnv.1");
    for (const cli::Order& order : cli::orders()) {
        std::string usage = "quelcnv " + std::string(order.usage);
        EXPECT_NE(readme.find(usage), std::string::npos) << "README: " << usage;
        EXPECT_NE(leeme.find(usage), std::string::npos) << "LEEME: " << usage;
        EXPECT_NE(manual.find(".B quelcnv " + std::string(order.name)), std::string::npos)
            << "man: " << order.name;
        for (const std::string& option : optionsOf(order.usage)) {
            std::string escaped = std::regex_replace(option, std::regex("-"), "\\-");
            EXPECT_NE(manual.find(escaped), std::string::npos) << "man: " << option;
        }
    }
    for (const char* option : globalOptions) {
        EXPECT_NE(readme.find(option), std::string::npos) << "README: " << option;
        EXPECT_NE(manual.find(std::regex_replace(option, std::regex("-"), "\\-")),
                  std::string::npos)
            << "man: " << option;
        EXPECT_NE(cli::generalHelp().find(option), std::string::npos) << "--help: " << option;
    }
}

}  // namespace
}  // namespace quelcnv
