#include "cli/input_warnings.h"

#include <iostream>

#include "cli/terminal_text.h"
#include "frame/report_text.h"

namespace quelcnv::cli {

namespace {

void warn(const std::string& text) { say(std::cerr, "quelcnv: aviso: " + text + "\n"); }

}  // namespace

bool warnAboutInputs(const Operation& op, const std::vector<std::string>& arguments) {
    InputWarnings warnings = inputWarnings({op.name, op.argumentNames(), arguments});
    for (const std::string& text : warnings.texts) warn(text);
    return warnings.allZero;
}

void warnOfZeroOutputs(const Operation& op, const std::vector<std::string>& arguments) {
    for (const std::string& text : zeroOutputWarnings({op.name, op.argumentNames(), arguments}))
        warn(text);
}

}  // namespace quelcnv::cli
