// quelcnv lote: one operation over many input files, each output named
// after its input in one folder, going on after a failure.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/operations.h"
#include "cli/report.h"

namespace quelcnv::cli {

// Runs the operation's conversion on the arguments (in the entry point's
// order) and says what came of it.
Report convertAndReport(const Operation& op, std::vector<std::string> arguments);

// The usual extension of the operation's output (".nev", ".xml", ...).
std::string_view usualExtension(std::string_view operation);

// The words after "lote": OPERACION --salida CARPETA [-j N]
// [--con NOMBRE=VALOR]... ENTRADA... Prints progress and a summary on
// standard error; the exit status: 0 every file converted, 1 some failed,
// 2 wrong usage.
int runBatch(const std::vector<std::string>& words);

}  // namespace quelcnv::cli
