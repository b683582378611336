// The command quelcnv, run as a separate process.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#ifndef _WIN32
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "tests/test_support.h"

extern char** environ;

namespace quelcnv {
namespace {

#ifndef _WIN32

struct CommandRun {
    int status;
    std::string out;
    std::string err;
};

class CommandTest : public test::FolderTest {
protected:
    // Runs the command with these arguments, capturing both output streams.
    CommandRun run(std::vector<std::string> arguments) {
        std::vector<char*> argv;
        std::string program = QUELCNV_COMMAND;
        argv.push_back(program.data());
        for (std::string& argument : arguments) argv.push_back(argument.data());
        argv.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, file("stdout").c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        posix_spawn_file_actions_addopen(&actions, 2, file("stderr").c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        pid_t pid;
        int spawned = posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        EXPECT_EQ(spawned, 0);
        int status = 0;
        waitpid(pid, &status, 0);
        EXPECT_TRUE(WIFEXITED(status));
        return {WEXITSTATUS(status), test::readBytes(file("stdout")),
                test::readBytes(file("stderr"))};
    }
};

TEST_F(CommandTest, VersionAndHelp) {
    CommandRun version = run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "quelcnv " QUELCNV_VERSION "\n");
    CommandRun help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("Uso: quelcnv"), std::string::npos);
}

TEST_F(CommandTest, ListaShowsTheSixtyOperationsInOrder) {
    CommandRun list = run({"lista"});
    EXPECT_EQ(list.status, 0);
    std::istringstream lines(list.out);
    std::vector<std::string> names;
    for (std::string line; std::getline(lines, line);)
        names.push_back(line.substr(0, line.find(' ')));
    ASSERT_EQ(names.size(), 60u);
    EXPECT_EQ(names.front(), "ReverseString");
    EXPECT_EQ(names[19], "aruxo2nevo");
    EXPECT_EQ(names.back(), "arcview2velm");
    EXPECT_NE(list.out.find("aruxo2nevo entrada salida pathAp"), std::string::npos);
    EXPECT_NE(list.out.find("Conversion de Ejes de ruxo a nevo"), std::string::npos);
}

TEST_F(CommandTest, AyudaShowsOneOperation) {
    CommandRun help = run({"ayuda", "procesaCabecera"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.out.substr(0, help.out.find('\n')), "quelcnv procesaCabecera lecturas salida");
    EXPECT_NE(help.out.find("Procesamiento cabecera  de Robotizada NEVO-800"), std::string::npos);
    EXPECT_EQ(run({"ayuda", "noexiste"}).status, 2);
    EXPECT_EQ(run({"ayuda"}).status, 2);
}

TEST_F(CommandTest, UsageErrorsExitWithTwo) {
    const std::vector<std::vector<std::string>> misuses = {
        {},
        {"noexiste", "a", "b"},
        {"MyDll_velm2arcview", "a", "b"},
        {"velm2arcview", "a"},
        {"velm2arcview", "a", "b", "c"},
        {"alandxml2nevo", "primero", "a", "b", "c"},
        {"--nada", "lista"},
        {"--scratch"},
        {"lista", "de", "mas"},
        {"velm2arcview", std::string(256, 'x'), "b"},
    };
    for (const auto& arguments : misuses) {
        CommandRun misuse = run(arguments);
        EXPECT_EQ(misuse.status, 2) << (arguments.empty() ? "" : arguments[0]);
        EXPECT_NE(misuse.err.find("Uso:"), std::string::npos);
    }
    EXPECT_NE(run({"velm2arcview", "a"}).err.find("necesita 2 argumentos"), std::string::npos);
    EXPECT_NE(run({"--scratch"}).err.find("--scratch necesita una carpeta"), std::string::npos);
}

TEST_F(CommandTest, MissingInputExitsWithThree) {
    CommandRun missing = run({"velm2arcview", file("missing.txt"), file("out.txt")});
    EXPECT_EQ(missing.status, 3);
    EXPECT_NE(missing.err.find("no se puede abrir el fichero de entrada: " + file("missing.txt")),
              std::string::npos);
}

TEST_F(CommandTest, ConversionsNotAvailableExitWithOne) {
    test::writeBytes(file("input.txt"), "1\n");
    for (const char* operation : {"velm2arcview", "ruxo2nevo"}) {
        CommandRun unavailable = run({operation, file("input.txt"), file("out.txt")});
        EXPECT_EQ(unavailable.status, 1) << operation;
        EXPECT_NE(unavailable.err.find("no esta disponible"), std::string::npos);
    }
    EXPECT_FALSE(std::filesystem::exists(file("out.txt")));
}

TEST_F(CommandTest, ReverseStringPrintsItsBufferAndUsesTheScratchOption) {
    CommandRun sample = run({"--crlf", "--scratch", file("elsewhere"), "ReverseString", "abc"});
    EXPECT_EQ(sample.status, 0);
    EXPECT_EQ(sample.out, "salva\n");
    EXPECT_EQ(test::readBytes(file("elsewhere/prueba.$$$")), "salva");
}

#endif

}  // namespace
}  // namespace quelcnv
