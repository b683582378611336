#include "common/file_status.h"

#include <sys/stat.h>

#include <optional>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

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

#ifndef _WIN32
// A stream over a descriptor opened without waiting, which waits again from
// now on like any stream; nullptr (and the descriptor closed) when `keep`
// refuses the file.
std::FILE* streamOver(int fd, const char* mode, bool (*keep)(const struct stat&)) {
    if (fd < 0) return nullptr;
    struct stat status;
    int flags = fcntl(fd, F_GETFL);
    if (fstat(fd, &status) != 0 || !keep(status) || flags < 0 ||
        fcntl(fd, F_SETFL, flags & ~O_NONBLOCK) != 0) {
        close(fd);
        return nullptr;
    }
    std::FILE* file = fdopen(fd, mode);
    if (file == nullptr) close(fd);
    return file;
}
#endif

}  // namespace

std::FILE* openInputFile(const std::string& path) {
#ifdef _WIN32
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file != nullptr && !isRegularFile(file)) {
        std::fclose(file);
        return nullptr;
    }
    return file;
#else
    int fd = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    return streamOver(fd, "rb", [](const struct stat& status) { return S_ISREG(status.st_mode); });
#endif
}

std::FILE* openOutputFile(const std::string& path) {
#ifdef _WIN32
    return std::fopen(path.c_str(), "wb");
#else
    int fd =
        open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    return streamOver(fd, "wb", [](const struct stat&) { return true; });
#endif
}

bool isRegularFile(std::FILE* file) { return (modeOf(file) & S_IFMT) == S_IFREG; }

std::uint64_t regularFileSize(std::FILE* file) {
    Status status = statusOf(file);
    return (status.mode & S_IFMT) == S_IFREG ? status.size : 0;
}

#ifdef _WIN32

namespace {

struct FileIdentity {
    DWORD volume = 0, high = 0, low = 0;
    bool operator==(const FileIdentity&) const = default;
};

// Asks for no access at all, so a file another program holds open is still
// identified; the flag lets a folder be opened too.
std::optional<FileIdentity> identityOf(const std::string& path) {
    HANDLE handle =
        CreateFileA(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
    BY_HANDLE_FILE_INFORMATION information;
    bool known = GetFileInformationByHandle(handle, &information) != 0;
    CloseHandle(handle);
    if (!known) return std::nullopt;
    return FileIdentity{information.dwVolumeSerialNumber, information.nFileIndexHigh,
                        information.nFileIndexLow};
}

}  // namespace

bool isSameFile(const std::string& a, const std::string& b) {
    auto first = identityOf(a);
    auto second = first ? identityOf(b) : std::nullopt;
    return second && *first == *second;
}

#else

bool isSameFile(const std::string& a, const std::string& b) {
    struct stat first, second;
    return stat(a.c_str(), &first) == 0 && stat(b.c_str(), &second) == 0 &&
           first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

#endif

}  // namespace quelcnv
