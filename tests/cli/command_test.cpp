// The command quelcnv, run as a separate process.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>

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
        std::string command = QUELCNV_COMMAND;
        for (const std::string& argument : arguments) command += " '" + argument + "'";
        int status = std::system((command + " >" + file("out") + " 2>" + file("err")).c_str());
        return {WEXITSTATUS(status), test::readBytes(file("out")), test::readBytes(file("err"))};
    }
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
    for (const char* operation : {"velm2arcview", "ruxo2nevo"}) {
        CommandRun unavailable = run({operation, file("input.txt"), file("out.txt")});
        EXPECT_EQ(unavailable.status, 1) << operation;
        EXPECT_NE(unavailable.err.find("no esta disponible"), std::string::npos);
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
