#include "common/error_message.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#ifdef _WIN32
#include <windows.h>
#endif

namespace quelcnv {

namespace {

bool messagesOnStandardError() {
#ifdef _WIN32
    const char* setting = std::getenv("QUELCNV_MESSAGES");
    return setting != nullptr && std::string_view(setting) == "stderr";
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
