// The one message the library shows by itself: on Windows a message box
// titled "Error" with the stop icon, elsewhere the text on standard error.
// Where no one is there to close a message box (the command, tests, a host
// run unattended), the environment variable QUELCNV_MESSAGES set to
// "stderr" sends the text to standard error on Windows too.
#pragma once

#include <functional>
#include <string_view>

namespace quelcnv {

// Where a converter sends a message for the user; tests pass their own to
// read the message instead of showing it.
using ErrorMessage = std::function<void(std::string_view text)>;

void showErrorMessage(std::string_view text);

}  // namespace quelcnv
