// What the command says of a conversion: its exit status and one Spanish
// line naming the file and the reason (and the line of the input, where the
// converter found one), or, after a good conversion, what it wrote.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "cli/operations.h"
#include "common/outcome.h"

namespace quelcnv::cli {

namespace exits {
enum ExitStatus { exitDone = 0, exitFailed = 1, exitUsage = 2, exitNoInput = 3 };
}  // namespace exits

// Wrong usage of the command: the message, shown with the usage (status 2).
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct Report {
    int status = exits::exitDone;
    std::string message;  // UTF-8
};

// The report of the outcome of op run on arguments. A conversion that ends
// well but wrote nothing it recognised fails for the command (status 1),
// though its entry point's result stays what the host expects.
Report reportOf(const Operation& op, const std::vector<std::string>& arguments,
                const Outcome& outcome);

}  // namespace quelcnv::cli
