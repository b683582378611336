#include "common/error_message.h"

#include <cstdio>
#include <string>

#include "common/settings.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace quelcnv {

namespace {

bool messagesOnStandardError() {
#ifdef _WIN32
    return environmentValue("QUELCNV_MESSAGES") == "stderr";
#else
    return true;
#endif
}

}  // namespace

void showErrorMessage(std::string_view text) {
    std::string message(text);
    if (messagesOnStandardError()) {
        std::fprintf(stderr, "%s\n", message.c_str());
        return;
    }
#ifdef _WIN32
    MessageBoxA(nullptr, message.c_str(), "Error", MB_OK | MB_ICONSTOP);
#endif
}

}  // namespace quelcnv
