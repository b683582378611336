// Warnings, never failures, on what an operation is given: a file that looks
// like another format than the operation reads, a file whose numbers are all
// zero, a LandXML document in a unit other than metres. The conversion runs
// all the same, exactly as the host would have it run.
#pragma once

#include <string>
#include <vector>

#include "cli/operations.h"

namespace quelcnv::cli {

// Says on standard error, once per file, what looks wrong with the
// operation's input files; whether it said that all their numbers are zero.
bool warnAboutInputs(const Operation& op, const std::vector<std::string>& arguments);

// After a good conversion: says so when everything it read was zero, seen in
// the outputs, where the inputs did not show it (a file of separators reads
// as points of zeros).
void warnOfZeroOutputs(const Operation& op, const std::vector<std::string>& arguments);

}  // namespace quelcnv::cli
