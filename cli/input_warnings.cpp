#include "cli/input_warnings.h"

#include <algorithm>
#include <iostream>

#include "cli/info.h"
#include "cli/terminal_text.h"
#include "frame/recognition.h"

namespace quelcnv::cli {

namespace {

bool isInputArgument(std::string_view name) {
    return name == "entrada" || name == "lecturas" || name == "puntos";
}

void warn(const std::string& path, const std::string& what) {
    say(std::cerr, "quelcnv: aviso: " + pathText(path) + ": " + what + "\n");
}

// A file recognised for sure, or nearly, as a format the operation does not
// read.
void warnOfFormat(const Operation& op, const std::string& path, const FileSummary& summary) {
    std::span<const FileFormat> read = formatsReadBy(op.name);
    if (read.empty() || summary.format == FileFormat::unknown ||
        summary.certainty < Certainty::likely || std::ranges::count(read, summary.format) > 0)
        return;
    std::string expected;
    for (FileFormat format : read)
        expected += (expected.empty() ? "" : ", ") + std::string(formatName(format));
    warn(path, "parece un fichero " + std::string(formatName(summary.format)) + ", y " +
                   std::string(op.name) + " lee " + expected);
}

}  // namespace

bool warnAboutInputs(const Operation& op, const std::vector<std::string>& arguments) {
    auto names = op.argumentNames();
    bool first = true, zeros = false;
    for (std::size_t i = 0; i < names.size() && i < arguments.size(); ++i) {
        if (!isInputArgument(names[i])) continue;
        FileSummary summary = recogniseFile(arguments[i]);
        if (!summary.opened) continue;  // the conversion says it cannot read it
        if (first) warnOfFormat(op, arguments[i], summary);
        first = false;
        for (const Problem& problem : summary.problems) {
            if (problem.kind == ProblemKind::allZero ||
                problem.kind == ProblemKind::nonMetricUnit || problem.kind == ProblemKind::notText)
                warn(arguments[i], problemText(problem));
            zeros = zeros || problem.kind == ProblemKind::allZero;
        }
    }
    return zeros;
}

void warnOfZeroOutputs(const Operation& op, const std::vector<std::string>& arguments) {
    auto names = op.argumentNames();
    for (std::size_t i = 0; i < names.size() && i < arguments.size(); ++i) {
        if (!names[i].starts_with("salida")) continue;
        FileSummary summary = recogniseFile(arguments[i]);
        bool zeros = std::ranges::any_of(summary.problems, [](const Problem& problem) {
            return problem.kind == ProblemKind::allZero;
        });
        if (zeros)
            warn(arguments[i], "solo tiene ceros: todo lo que se ha leído de la entrada es cero");
    }
}

}  // namespace quelcnv::cli
