#include "cli/report.h"

#include "frame/report_text.h"

namespace quelcnv::cli {

Report reportOf(const Operation& op, const std::vector<std::string>& arguments,
                const Outcome& outcome) {
    CallDescription call{op.name, op.argumentNames(), arguments,
                         op.availability == Availability::readsOnly};
    ConversionText said = conversionText(call, outcome);
    switch (said.verdict) {
        case Verdict::done: return {exits::exitDone, said.text};
        case Verdict::noInput: return {exits::exitNoInput, said.text};
        case Verdict::badArgument: return {exits::exitUsage, said.text};
        case Verdict::failed: break;
    }
    return {exits::exitFailed, said.text};
}

}  // namespace quelcnv::cli
