// One operation run as the user typed it: the arguments checked, LandXML
// names taken as typed, the conversion run, and its report.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/operations.h"
#include "cli/report.h"

namespace quelcnv::cli {

// The arguments as the entry point takes them, or the reason they cannot
// be (a usage error): their count, selec a whole number, no path over 255
// bytes. An alignment may be given by its name in place of selec, a surface
// as the list shows it ("Eje A: Terreno") in place of transver and capa;
// names are taken from the terminal's encoding into the library's.
struct PreparedArguments {
    std::vector<std::string> values;
    std::optional<std::string> error;
};
PreparedArguments prepareArguments(const Operation& op, std::vector<std::string> typed);

// Runs the operation's conversion on prepared arguments and reports it; the
// sample entry point's buffer comes back in the arguments. A report of
// failure leaves no output that the run created (the entry points keep the
// host's contract; the command is where a user is told).
Report convertAndReport(const Operation& op, std::vector<std::string>& arguments);

// quelcnv OPERACION ARG...: the exit status; a UsageError for arguments that
// do not fit the operation. Messages go to standard error
// (none after a good conversion when silent); a selection also prints its
// list, in the terminal's encoding.
int runOperation(const Operation& op, std::vector<std::string> typed, bool silent);

}  // namespace quelcnv::cli
