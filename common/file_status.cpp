#include "common/file_status.h"

#include <sys/stat.h>

namespace quelcnv {

namespace {

struct Status {
    unsigned mode = 0;  // 0 when the status cannot be read
    std::uint64_t size = 0;
};

Status statusOf(std::FILE* file) {
#ifdef _WIN32
    struct _stat64 status;
    if (_fstat64(_fileno(file), &status) != 0) return {};
#else
    struct stat status;
    if (fstat(fileno(file), &status) != 0) return {};
#endif
    return {static_cast<unsigned>(status.st_mode), static_cast<std::uint64_t>(status.st_size)};
}

unsigned modeOf(std::FILE* file) { return statusOf(file).mode; }

}  // namespace

bool isDirectory(std::FILE* file) { return (modeOf(file) & S_IFMT) == S_IFDIR; }

bool isRegularFile(std::FILE* file) { return (modeOf(file) & S_IFMT) == S_IFREG; }

std::uint64_t regularFileSize(std::FILE* file) {
    Status status = statusOf(file);
    return (status.mode & S_IFMT) == S_IFREG ? status.size : 0;
}

}  // namespace quelcnv
