#include "common/settings.h"

#include <cstdlib>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace quelcnv {

std::optional<std::string> environmentValue(const char* name) {
    const char* value = std::getenv(name);
    if (value == nullptr) return std::nullopt;
    return std::string(value);
}

std::string trimmedFolder(std::string folder) {
#ifdef _WIN32
    // "c:\" keeps its separator: without it the name is a drive's current folder.
    while (folder.size() > 3 && (folder.back() == '\\' || folder.back() == '/')) folder.pop_back();
#else
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
#endif
    return folder;
}

Settings environmentSettings() {
    Settings settings;
    std::string folder = environmentValue("QUELCNV_SCRATCH").value_or("");
#ifndef _WIN32
    if (folder.empty()) {
        std::string runtime = environmentValue("XDG_RUNTIME_DIR").value_or("");
        folder =
            runtime.empty() ? "/tmp/quelcnv-" + std::to_string(geteuid()) : runtime + "/quelcnv";
    }
#endif
    settings.scratchFolder = trimmedFolder(folder);
    return settings;
}

}  // namespace quelcnv
