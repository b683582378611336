// The command line of quelcnv, read with CLI11: the global options anywhere
// on the line, then an operation (an entry point's name without "MyDll_")
// or an order of the command (lote, info, contenido, dibujo, lista, ayuda),
// with its arguments and options in any order. Help for every one of them
// with -h or --help, or with ayuda.
#pragma once

#include <string>
#include <vector>

namespace quelcnv::cli {

// Runs the command on its words (argv without the program's name); the exit
// status. Nothing is thrown out of it.
int runCommand(const std::vector<std::string>& words);

}  // namespace quelcnv::cli
