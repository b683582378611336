// quelcnv: the command over the library. Every entry point is an operation
// called by its name without "MyDll_", with its arguments in order; the
// command's own orders stand beside them (see cli/command_line.h).
#include <string>
#include <vector>

#include "cli/command_line.h"

int main(int argc, char** argv) {
    return quelcnv::cli::runCommand(std::vector<std::string>(argv + 1, argv + argc));
}
