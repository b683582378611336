// The fixed scratch files and the lock that keeps two conversions from
// overwriting each other's.
#pragma once

#include <mutex>
#include <string>

namespace quelcnv {

enum class ScratchFile {
    chainTemp,      // "temp.$$$": the RUXO file between an importer and its writer
    localTemp,      // "temp.$$$" of the current folder on Windows (LandXML alignments)
    selectionList,  // "$$$$.EJE": the names a LandXML selection lists for the host
    sampleText,     // "prueba.$$$": written by the sample entry point
};

// A scratch folder (Settings::scratchFolder), locked for one conversion
// from its first to its last scratch access. Elsewhere than on Windows the
// folder is created with mode 0700, and one that is a symbolic link, belongs
// to another user, or that others may write in, is refused. On Windows an
// empty folder keeps the files at their original paths ("c:\temp.$$$",
// "temp.$$$", "c:\$$$$.EJE", "c:\prueba.$$$"), where the host looks for them;
// the lock is a named mutex. Two processes converting at once in one folder
// wait for each other, and so do two threads; conversions in different
// folders run side by side. Sessions nest: a conversion that holds the lock
// may run another that asks for it again.
class ScratchSession {
public:
    explicit ScratchSession(const std::string& folder);
    ScratchSession(const ScratchSession&) = delete;
    ScratchSession& operator=(const ScratchSession&) = delete;
    ~ScratchSession();

    // False when the directory was refused or could not be locked: the
    // conversion must then fail without touching any scratch file.
    bool ready() const { return ready_; }
    std::string path(ScratchFile file) const;

    struct FolderLock;

private:
    FolderLock& lock_;
    std::unique_lock<std::recursive_mutex> thread_;
    std::string directory_;
    bool ready_ = false;
#ifdef _WIN32
    void* mutex_ = nullptr;
#else
    bool counted_ = false;  // counted among the sessions sharing the folder's lock file
#endif
};

}  // namespace quelcnv
