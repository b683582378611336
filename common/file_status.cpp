#include "common/file_status.h"

#include <sys/stat.h>

namespace quelcnv {

namespace {

// The mode bits of the open file, or 0 when they cannot be read.
unsigned modeOf(std::FILE* file) {
#ifdef _WIN32
    struct _stat64 status;
    return _fstat64(_fileno(file), &status) == 0 ? status.st_mode : 0;
#else
    struct stat status;
    return fstat(fileno(file), &status) == 0 ? status.st_mode : 0;
#endif
}

}  // namespace

bool isDirectory(std::FILE* file) { return (modeOf(file) & S_IFMT) == S_IFDIR; }

bool isRegularFile(std::FILE* file) { return (modeOf(file) & S_IFMT) == S_IFREG; }

}  // namespace quelcnv
