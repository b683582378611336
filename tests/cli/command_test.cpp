// The command quelcnv, run as a separate process.
#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/wait.h>
#endif

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

struct CommandRun {
    int status;
    std::string out, err;
};

class CommandTest : public test::FolderTest {
protected:
    // Runs the command with these arguments, capturing both output streams.
    CommandRun run(const std::vector<std::string>& arguments) {
        std::string command = quoted(commandPath());
        for (const std::string& argument : arguments) {
            command += ' ';
            command += quoted(argument);
        }
        command += " >";
        command += quoted(file("out"));
        command += " 2>";
        command += quoted(file("err"));
        int status = std::system(shellLine(command).c_str());
        return {exitStatus(status), consoleText(file("out")), consoleText(file("err"))};
    }

    // What the command printed, with the console's newlines read as LF.
    static std::string consoleText(const std::string& path) {
        std::string text = test::readBytes(path);
        for (std::size_t at; (at = text.find("\r\n")) != std::string::npos;) text.erase(at, 1);
        return text;
    }

    static std::string enclosed(const std::string& text, char quote) {
        std::string out(1, quote);
        out += text;
        out += quote;
        return out;
    }

#ifdef _WIN32
    // The command beside the test program, and the shell's quoting and status.
    static std::string commandPath() {
        char path[MAX_PATH];
        GetModuleFileNameA(nullptr, path, MAX_PATH);
        return (std::filesystem::path(path).parent_path() / "quelcnv.exe").string();
    }
    static std::string quoted(const std::string& text) { return enclosed(text, '"'); }
    static int exitStatus(int status) { return status; }
    // cmd /c drops the first and the last quote of a line that starts with one.
    static std::string shellLine(const std::string& command) { return enclosed(command, '"'); }
#else
    static std::string commandPath() { return QUELCNV_COMMAND; }
    static std::string quoted(const std::string& text) { return enclosed(text, '\''); }
    static int exitStatus(int status) { return WEXITSTATUS(status); }
    static std::string shellLine(const std::string& command) { return command; }
#endif
};

TEST_F(CommandTest, ListaShowsTheSixtyOperationsAndAyudaOne) {
    CommandRun list = run({"lista"});
    EXPECT_EQ(list.status, 0);
    EXPECT_EQ(std::count(list.out.begin(), list.out.end(), '\n'), 60);
    EXPECT_TRUE(list.out.starts_with("ReverseString sMyString "));
    EXPECT_NE(list.out.find("\naruxo2nevo entrada salida pathAp "), std::string::npos);

    CommandRun help = run({"ayuda", "procesaCabecera"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.out.substr(0, help.out.find('\n')), "quelcnv procesaCabecera lecturas salida");
    EXPECT_NE(help.out.find("Procesamiento cabecera  de Robotizada NEVO-800"), std::string::npos);
    EXPECT_EQ(run({"--version"}).out, "quelcnv " QUELCNV_VERSION "\n");
}

TEST_F(CommandTest, UsageErrorsExitWithTwo) {
    // clang-format off
    const std::vector<std::vector<std::string>> misuses = {
        {}, {"noexiste", "a", "b"}, {"MyDll_velm2arcview", "a", "b"}, {"velm2arcview", "a"},
        {"alandxml2nevo", "primero", "a", "b", "c"}, {"--nada", "lista"}, {"--scratch"},
        {"ayuda", "noexiste"}, {"velm2arcview", std::string(256, 'x'), "b"},
    };
    // clang-format on
    for (const auto& arguments : misuses) {
        CommandRun misuse = run(arguments);
        EXPECT_EQ(misuse.status, 2) << (arguments.empty() ? "" : arguments[0]);
        EXPECT_NE(misuse.err.find("Uso:"), std::string::npos);
    }
    EXPECT_NE(run({"velm2arcview", "a"}).err.find("necesita 2 argumentos"), std::string::npos);
}

TEST_F(CommandTest, MissingInputExitsWithThreeAndUnavailableWithOne) {
    CommandRun missing = run({"velm2arcview", file("missing.txt"), file("out.txt")});
    EXPECT_EQ(missing.status, 3);
    EXPECT_NE(missing.err.find("no se puede abrir el fichero de entrada: " + file("missing.txt")),
              std::string::npos);
    test::writeBytes(file("input.txt"), "1\n");
    const std::vector<std::string> unavailableRuns[] = {
        {"velm2arcview", file("input.txt"), file("out.txt")},
        {"clipST2ruxo", file("input.txt"), file("out1.txt"), file("out2.txt")}};
    for (const std::vector<std::string>& words : unavailableRuns) {
        CommandRun unavailable = run(words);
        EXPECT_EQ(unavailable.status, 1) << words[0];
        EXPECT_NE(unavailable.err.find("no esta disponible"), std::string::npos) << words[0];
    }
}

TEST_F(CommandTest, ReverseStringPrintsItsBufferAndUsesTheScratchOption) {
    CommandRun sample = run({"--crlf", "--scratch", file("elsewhere"), "ReverseString", "abc"});
    EXPECT_EQ(sample.status, 0);
    EXPECT_EQ(sample.out, "salva\n");
    EXPECT_EQ(test::readBytes(file("elsewhere/prueba.$$$")), "salva");
}

}  // namespace
}  // namespace quelcnv
