#include "common/scratch.h"

#include <cstdint>
#include <cstdio>
#include <map>
#include <memory>
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

}  // namespace

// What this process holds of one scratch folder. Threads wait on `threads`
// before they take the inter-process lock, and the thread that holds it may
// ask again; the lock file, open while sessions hold it, is guarded by
// `threads`. One per folder used, kept for the life of the process.
struct ScratchSession::FolderLock {
    std::recursive_mutex threads;
    int file = -1;
    int sessions = 0;
};

namespace {

ScratchSession::FolderLock& folderLock(const std::string& folder) {
    static std::mutex guard;
    static std::map<std::string, std::unique_ptr<ScratchSession::FolderLock>> locks;
    std::lock_guard<std::mutex> held(guard);
    auto& lock = locks[folder];
    if (!lock) lock = std::make_unique<ScratchSession::FolderLock>();
    return *lock;
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

// One mutex per scratch folder, named alike by every build of the library
// (a 32-bit hash of the folder's name in upper case).
std::string mutexName(const std::string& folder) {
    if (folder.empty()) return "quelcnv-scratch";
    std::uint32_t hash = 2166136261u;
    for (char c : folder) {
        char upper = (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
        hash = (hash ^ static_cast<unsigned char>(upper)) * 16777619u;
    }
    char name[40];
    std::snprintf(name, sizeof name, "quelcnv-scratch-%08x", static_cast<unsigned>(hash));
    return name;
}

HANDLE openMutex(const std::string& name) {
    HANDLE mutex = CreateMutexA(nullptr, FALSE, ("Global\\" + name).c_str());
    if (mutex == nullptr) mutex = CreateMutexA(nullptr, FALSE, ("Local\\" + name).c_str());
    return mutex;
}

}  // namespace

ScratchSession::ScratchSession(const std::string& folder)
    : lock_(folderLock(folder)), thread_(lock_.threads), directory_(folder) {
    if (!directory_.empty() && !prepareFolder(directory_)) return;
    HANDLE mutex = openMutex(mutexName(directory_));
    if (mutex == nullptr) return;
    DWORD waited = WaitForSingleObject(mutex, INFINITE);  // owned again by the same thread
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

// Creates the directory when missing and opens it, refusing a symbolic link,
// a directory of another user and one that others may write in. -1 when refused.
int openOwnDirectory(const std::string& directory) {
    if (mkdir(directory.c_str(), 0700) != 0 && errno != EEXIST) return -1;
    int fd = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0) return -1;
    struct stat status;
    if (fstat(fd, &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != geteuid() ||
        (status.st_mode & (S_IWGRP | S_IWOTH)) != 0) {
        close(fd);
        return -1;
    }
    return fd;
}

// Takes the exclusive lock of a scratch directory, waiting for another
// process that holds it. The open lock file, or -1.
int lockDirectory(const std::string& directory) {
    int directoryFd = openOwnDirectory(directory);
    if (directoryFd < 0) return -1;
    int fd = openat(directoryFd, ".quelcnv.lock", O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600);
    close(directoryFd);
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

ScratchSession::ScratchSession(const std::string& folder)
    : lock_(folderLock(folder)), thread_(lock_.threads), directory_(folder) {
    if (lock_.sessions == 0) lock_.file = lockDirectory(directory_);
    if (lock_.file < 0) return;
    ++lock_.sessions;
    counted_ = ready_ = true;
}

ScratchSession::~ScratchSession() {
    if (counted_ && --lock_.sessions == 0) {
        close(lock_.file);  // closing releases the lock
        lock_.file = -1;
    }
}

std::string ScratchSession::path(ScratchFile file) const {
    return directory_ + "/" + std::string(fileName(file));
}

#endif

}  // namespace quelcnv
