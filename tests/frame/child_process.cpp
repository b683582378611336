#include "tests/frame/child_process.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <thread>

namespace quelcnv::test {

std::chrono::seconds childTimeLimit() {
    const char* setting = std::getenv("QUELCNV_TEST_TIME_LIMIT");
    int seconds = setting != nullptr ? std::atoi(setting) : 0;
    return std::chrono::seconds(seconds > 0 ? seconds : 20);
}

pid_t startChild(const std::function<int()>& work) {
    std::fflush(nullptr);
    pid_t child = fork();
    if (child == 0) std::exit(work());  // exit, not _exit: the leak check runs at exit
    return child;
}

ChildRun waitForChild(pid_t child) {
    if (child < 0) return {false, 0, "fork fallo"};
    auto deadline = std::chrono::steady_clock::now() + childTimeLimit();
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > deadline) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            return {false, 0, "no acabo en " + std::to_string(childTimeLimit().count()) + " s"};
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    if (WIFSIGNALED(status)) return {false, 0, "senal " + std::to_string(WTERMSIG(status))};
    return {true, WEXITSTATUS(status), ""};
}

ChildRun runInChild(const cli::Operation& op, std::vector<std::string> arguments) {
    return waitForChild(startChild([&] { return op.invoke(arguments); }));
}

std::vector<std::string> sampleArguments(std::string_view operation) {
    namespace fs = std::filesystem;
    fs::path root = fs::path(QUELCNV_SAMPLES).parent_path();
    std::ifstream list(root / "samples/demo.txt");
    for (std::string line; std::getline(list, line);) {
        std::istringstream words(line);
        std::string name;
        if (!(words >> name) || name != operation) continue;
        std::vector<std::string> arguments;
        for (std::string word; words >> std::quoted(word);) {
            bool path = word.starts_with("samples");
            arguments.push_back(path ? (root / word).string() : word);
        }
        return arguments;
    }
    return {};
}

}  // namespace quelcnv::test
