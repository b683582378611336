#include "common/scratch.h"

#include <cstdlib>
#include <string_view>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace quelcnv {

namespace {

std::string_view fileName(ScratchFile file) {
    switch (file) {
        case ScratchFile::chainTemp:
        case ScratchFile::localTemp: return "temp.$$$";
        case ScratchFile::selectionList: return "$$$$.EJE";
        case ScratchFile::sampleText: return "prueba.$$$";
    }
    return "temp.$$$";
}

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

}  // namespace

#ifdef _WIN32

namespace {

// The folder named by QUELCNV_SCRATCH exists (it is created when missing) and
// is a real folder, not a link.
bool prepareFolder(const std::string& folder) {
    CreateDirectoryA(folder.c_str(), nullptr);
    DWORD attributes = GetFileAttributesA(folder.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) &&
           !(attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

}  // namespace

ScratchSession::ScratchSession() {
    directory_ = environment("QUELCNV_SCRATCH");
    while (directory_.size() > 3 && (directory_.back() == '\\' || directory_.back() == '/')) {
        directory_.pop_back();
    }
    if (!directory_.empty() && !prepareFolder(directory_)) return;
    HANDLE mutex = CreateMutexA(nullptr, FALSE, "Global\\quelcnv-scratch");
    if (mutex == nullptr) mutex = CreateMutexA(nullptr, FALSE, "Local\\quelcnv-scratch");
    if (mutex == nullptr) return;
    DWORD waited = WaitForSingleObject(mutex, INFINITE);
    if (waited != WAIT_OBJECT_0 && waited != WAIT_ABANDONED) {
        CloseHandle(mutex);
        return;
    }
    mutex_ = mutex;
    ready_ = true;
}

ScratchSession::~ScratchSession() {
    if (mutex_ != nullptr) {
        ReleaseMutex(static_cast<HANDLE>(mutex_));
        CloseHandle(static_cast<HANDLE>(mutex_));
    }
}

std::string ScratchSession::path(ScratchFile file) const {
    std::string name(fileName(file));
    if (!directory_.empty()) return directory_ + "\\" + name;
    if (file == ScratchFile::localTemp) return name;
    return "c:\\" + name;
}

#else

namespace {

std::string configuredDirectory() {
    std::string directory = environment("QUELCNV_SCRATCH");
    if (directory.empty()) {
        std::string runtime = environment("XDG_RUNTIME_DIR");
        directory =
            runtime.empty() ? "/tmp/quelcnv-" + std::to_string(geteuid()) : runtime + "/quelcnv";
    }
    // A trailing slash would make the open below follow a symbolic link.
    while (directory.size() > 1 && directory.back() == '/') directory.pop_back();
    return directory;
}

// Creates the directory when missing and opens it, refusing a symbolic link
// and a directory of another user. -1 when refused.
int openOwnDirectory(const std::string& directory) {
    if (mkdir(directory.c_str(), 0700) != 0 && errno != EEXIST) return -1;
    int fd = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0) return -1;
    struct stat status;
    if (fstat(fd, &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != geteuid()) {
        close(fd);
        return -1;
    }
    return fd;
}

int lockDirectory(int directoryFd) {
    int fd = openat(directoryFd, ".quelcnv.lock", O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0) return -1;
    int locked;
    do {
        locked = flock(fd, LOCK_EX);
    } while (locked != 0 && errno == EINTR);
    if (locked != 0) {
        close(fd);
        return -1;
    }
    return fd;
}

}  // namespace

ScratchSession::ScratchSession() {
    directory_ = configuredDirectory();
    int directoryFd = openOwnDirectory(directory_);
    if (directoryFd < 0) return;
    lockFile_ = lockDirectory(directoryFd);
    close(directoryFd);
    ready_ = lockFile_ >= 0;
}

ScratchSession::~ScratchSession() {
    if (lockFile_ >= 0) close(lockFile_);  // closing releases the lock
}

std::string ScratchSession::path(ScratchFile file) const {
    return directory_ + "/" + std::string(fileName(file));
}

#endif

}  // namespace quelcnv
