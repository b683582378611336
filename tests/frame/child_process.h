// Conversions run in child processes: with a time limit, so that a crash,
// a leak reported by the sanitizers at exit or a hang fails one case and
// not the whole suite; and side by side, as several host processes would.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "cli/operations.h"

namespace quelcnv::test {

// The time a child may take: 20 s, far above what any case needs even with
// the sanitizers; QUELCNV_TEST_TIME_LIMIT (seconds) gives more under valgrind.
std::chrono::seconds childTimeLimit();

struct ChildRun {
    bool finished = false;  // ended by itself, within the time limit
    int result = 0;         // the status it ended with
    std::string ending;     // how it ended, when not by itself
};

// Starts `work` in a child process, which exits with what it returns.
pid_t startChild(const std::function<int()>& work);
// Waits for a child up to the time limit; one still running is killed.
ChildRun waitForChild(pid_t child);
// Calls the entry point in a child process.
ChildRun runInChild(const cli::Operation& op, std::vector<std::string> arguments);

// The arguments of an operation's sample conversion (samples/demo.txt),
// with paths made absolute; empty when it has none.
std::vector<std::string> sampleArguments(std::string_view operation);

}  // namespace quelcnv::test
