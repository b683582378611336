// What a conversion is told from outside the files it converts: the folder
// of its scratch files and where its message goes. The host's entry points
// take it from the environment, the one place where the library reads
// environment variables; a caller of the public API gives its own.
#pragma once

#include <optional>
#include <string>

#include "common/error_message.h"

namespace quelcnv {

struct Settings {
    // The folder of the scratch files. Elsewhere than on Windows always a
    // folder; on Windows empty for the host's fixed paths.
    std::string scratchFolder;
    // Where the one message a converter shows by itself goes.
    ErrorMessage showMessage = showErrorMessage;
};

// The settings of the host's calls: the scratch folder is $QUELCNV_SCRATCH,
// else (not on Windows) $XDG_RUNTIME_DIR/quelcnv, else /tmp/quelcnv-<uid>.
Settings environmentSettings();

// A scratch folder as given, without the separators that end it (a trailing
// slash would make the folder's opening follow a symbolic link).
std::string trimmedFolder(std::string folder);

// The value of an environment variable, or nothing when it is not set.
std::optional<std::string> environmentValue(const char* name);

}  // namespace quelcnv
