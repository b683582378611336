// What a converter reports: done, or why it failed and at which input line.
// Only the entry points in frame/ turn an outcome into the host's integer.
#pragma once

#include <string_view>

namespace quelcnv {

enum class Failure {
    none,
    inputUnreadable,     // the input could not be opened or read
    outputUnwritable,    // the output could not be created or written
    noData,              // the input holds nothing to convert
    rejected,            // the input breaks a rule of its format
    tooLarge,            // a count in the input would need an absurd allocation
    scratchUnavailable,  // the scratch directory is refused or cannot be locked
    readerUnavailable,   // the XML reader could not be created
};

struct Outcome {
    Failure failure = Failure::none;
    long line = 0;  // 1-based input line where the failure was found; 0 when none applies

    bool ok() const { return failure == Failure::none; }
    static Outcome done() { return {}; }
    static Outcome failed(Failure why, long atLine = 0) { return {why, atLine}; }
};

// Spanish text of a failure, as the command shows it.
std::string_view describe(Failure failure);

}  // namespace quelcnv
