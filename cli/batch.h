// quelcnv lote: one operation over many input files, each output named
// after its input in one folder, going on after a failure.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/operations.h"
#include "cli/report.h"

namespace quelcnv::cli {

// The usual extension of the operation's output (".nev", ".xml", ...).
std::string_view usualExtension(std::string_view operation);

// quelcnv lote: OPERACION --salida CARPETA [-j N] [--con NOMBRE=VALOR]...
// ENTRADA...
struct BatchRequest {
    std::string operation;
    std::string folder;
    int processes = 1;
    std::vector<std::string> given;  // NOMBRE=VALOR
    std::vector<std::string> inputs;
};

// Converts every input, going on after a failure; prints progress and a
// summary on standard error. The exit status: 0 every file converted, 1
// some failed; a UsageError when the request cannot be run.
int runBatch(const BatchRequest& request);

}  // namespace quelcnv::cli
