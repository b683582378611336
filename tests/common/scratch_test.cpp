#include "common/scratch.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <thread>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

#include "common/settings.h"
#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

// The folder the environment names, as the host's calls take it.
std::string configured() { return environmentSettings().scratchFolder; }

class ScratchTest : public test::FolderTest {
protected:
    bool readyWith(const std::string& directory) {
        test::ScopedEnv scratch("QUELCNV_SCRATCH", directory);
        return ScratchSession(configured()).ready();
    }
#ifndef _WIN32
    // Another open of the lock file stands for another process.
    bool otherProcessCanLock() const {
        int fd = open(scratchFile(".quelcnv.lock").c_str(), O_RDWR);
        bool locked = fd >= 0 && flock(fd, LOCK_EX | LOCK_NB) == 0;
        if (fd >= 0) close(fd);
        return locked;
    }
#endif
};

TEST_F(ScratchTest, AnotherThreadWaitsForTheSessionToEnd) {
    std::atomic<bool> entered = false;
    std::thread other;
    {
        ScratchSession session(configured());
        ASSERT_TRUE(session.ready());
        other = std::thread([&] {
            ScratchSession theirs(configured());
            entered = theirs.ready();
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EXPECT_FALSE(entered);
    }
    other.join();
    EXPECT_TRUE(entered);
}

TEST_F(ScratchTest, SessionsInDifferentFoldersRunSideBySide) {
    ScratchSession session(configured());
    ASSERT_TRUE(session.ready());
    fs::create_directory(file("other"));
    std::string otherFolder = file("other");
    bool entered = false;
    std::thread([&] { entered = ScratchSession(otherFolder).ready(); }).join();
    EXPECT_TRUE(entered);
}

#ifdef _WIN32

TEST_F(ScratchTest, OriginalPathsUnlessTheEnvironmentNamesAFolder) {
    {
        ScratchSession session(configured());
        ASSERT_TRUE(session.ready());
        EXPECT_EQ(session.path(ScratchFile::chainTemp), file("scratch") + "\\temp.$$$");
        EXPECT_TRUE(fs::is_directory(file("scratch")));
    }
    test::ScopedEnv noScratch("QUELCNV_SCRATCH", std::nullopt);
    ScratchSession session(configured());
    ASSERT_TRUE(session.ready());
    EXPECT_EQ(session.path(ScratchFile::chainTemp), "c:\\temp.$$$");
    EXPECT_EQ(session.path(ScratchFile::localTemp), "temp.$$$");
    EXPECT_EQ(session.path(ScratchFile::selectionList), "c:\\$$$$.EJE");
    EXPECT_EQ(session.path(ScratchFile::sampleText), "c:\\prueba.$$$");
    EXPECT_FALSE(readyWith(file("no/such/folder")));
}

#else

TEST_F(ScratchTest, FixedNamesInAPrivateDirectoryChosenByTheEnvironment) {
    ScratchSession session(configured());
    ASSERT_TRUE(session.ready());
    EXPECT_EQ(session.path(ScratchFile::chainTemp), scratchFile("temp.$$$"));
    EXPECT_EQ(session.path(ScratchFile::selectionList), scratchFile("$$$$.EJE"));
    EXPECT_EQ(session.path(ScratchFile::sampleText), scratchFile("prueba.$$$"));
    EXPECT_EQ(fs::status(file("scratch")).permissions(), fs::perms::owner_all);

    test::ScopedEnv noScratch("QUELCNV_SCRATCH", std::nullopt);
    {
        test::ScopedEnv runtime("XDG_RUNTIME_DIR", dir_.string());
        EXPECT_EQ(ScratchSession(configured()).path(ScratchFile::localTemp),
                  file("quelcnv/temp.$$$"));
    }
    test::ScopedEnv noRuntime("XDG_RUNTIME_DIR", std::nullopt);
    EXPECT_EQ(ScratchSession(configured()).path(ScratchFile::chainTemp),
              "/tmp/quelcnv-" + std::to_string(geteuid()) + "/temp.$$$");
}

TEST_F(ScratchTest, UnsafeDirectoriesAreRefused) {
    fs::create_directory(file("real"));
    fs::create_directory_symlink(file("real"), file("link"));
    EXPECT_FALSE(readyWith(file("link")));
    EXPECT_FALSE(readyWith(file("link") + "/"));
    EXPECT_FALSE(readyWith(file("no/such/folder")));
    fs::create_directory(file("shared"));
    fs::permissions(file("shared"), fs::perms::owner_all | fs::perms::group_write);
    EXPECT_FALSE(readyWith(file("shared")));
    if (geteuid() == 0) {  // only root can give a folder away
        fs::create_directory(file("theirs"));
        ASSERT_EQ(chown(file("theirs").c_str(), 65534, 65534), 0);
        EXPECT_FALSE(readyWith(file("theirs")));
    }
}

TEST_F(ScratchTest, LockIsHeldUntilTheOutermostSessionEnds) {
    {
        ScratchSession outer(configured());
        ASSERT_TRUE(outer.ready());
        EXPECT_FALSE(otherProcessCanLock());
        // A nested session would wait for itself if it took the lock again.
        EXPECT_TRUE(ScratchSession(configured()).ready());
        EXPECT_FALSE(otherProcessCanLock());
    }
    EXPECT_TRUE(otherProcessCanLock());
}

#endif

}  // namespace
}  // namespace quelcnv
