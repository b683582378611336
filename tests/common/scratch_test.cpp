#include "common/scratch.h"

#include <gtest/gtest.h>

#include <filesystem>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "tests/test_support.h"

namespace quelcnv {
namespace {

namespace fs = std::filesystem;

#ifndef _WIN32

class ScratchTest : public ::testing::Test {
protected:
    test::TempDir dir_;
    std::string folder(std::string_view name) const { return dir_.file(name); }

    // Another open of the lock file stands for another process.
    bool otherProcessCanLock() const {
        int fd = open((folder("scratch") + "/.quelcnv.lock").c_str(), O_RDWR);
        bool locked = fd >= 0 && flock(fd, LOCK_EX | LOCK_NB) == 0;
        if (fd >= 0) close(fd);
        return locked;
    }
};

TEST_F(ScratchTest, FixedNamesLiveInTheConfiguredDirectory) {
    test::ScopedEnv scratch("QUELCNV_SCRATCH", folder("scratch") + "/");
    ScratchSession session;
    ASSERT_TRUE(session.ready());
    EXPECT_EQ(session.path(ScratchFile::chainTemp), folder("scratch") + "/temp.$$$");
    EXPECT_EQ(session.path(ScratchFile::localTemp), folder("scratch") + "/temp.$$$");
    EXPECT_EQ(session.path(ScratchFile::selectionList), folder("scratch") + "/$$$$.EJE");
    EXPECT_EQ(session.path(ScratchFile::sampleText), folder("scratch") + "/prueba.$$$");
    EXPECT_EQ(fs::status(folder("scratch")).permissions() & fs::perms::all, fs::perms::owner_all);
}

TEST_F(ScratchTest, DirectoryFallsBackToTheRuntimeDirectoryThenTmp) {
    test::ScopedEnv noScratch("QUELCNV_SCRATCH", std::nullopt);
    {
        test::ScopedEnv runtime("XDG_RUNTIME_DIR", dir_.path().string());
        ScratchSession session;
        ASSERT_TRUE(session.ready());
        EXPECT_EQ(session.path(ScratchFile::chainTemp), folder("quelcnv") + "/temp.$$$");
    }
    test::ScopedEnv noRuntime("XDG_RUNTIME_DIR", std::nullopt);
    ScratchSession session;
    ASSERT_TRUE(session.ready());
    EXPECT_EQ(session.path(ScratchFile::chainTemp),
              "/tmp/quelcnv-" + std::to_string(geteuid()) + "/temp.$$$");
}

TEST_F(ScratchTest, SymbolicLinkIsRefused) {
    fs::create_directory(folder("real"));
    fs::create_directory_symlink(folder("real"), folder("link"));
    test::ScopedEnv scratch("QUELCNV_SCRATCH", folder("link"));
    EXPECT_FALSE(ScratchSession().ready());
    test::ScopedEnv slash("QUELCNV_SCRATCH", folder("link") + "/");
    EXPECT_FALSE(ScratchSession().ready());
}

TEST_F(ScratchTest, DirectoryOfAnotherUserIsRefused) {
    if (geteuid() != 0) GTEST_SKIP() << "needs root to give a folder away";
    fs::create_directory(folder("theirs"));
    ASSERT_EQ(chown(folder("theirs").c_str(), 65534, 65534), 0);
    test::ScopedEnv scratch("QUELCNV_SCRATCH", folder("theirs"));
    EXPECT_FALSE(ScratchSession().ready());
}

TEST_F(ScratchTest, DirectoryOthersMayWriteInIsRefused) {
    fs::create_directory(folder("shared"));
    fs::permissions(folder("shared"), fs::perms::owner_all | fs::perms::group_all);
    test::ScopedEnv scratch("QUELCNV_SCRATCH", folder("shared"));
    EXPECT_FALSE(ScratchSession().ready());
    fs::permissions(folder("shared"), fs::perms::owner_all | fs::perms::others_read);
    EXPECT_TRUE(ScratchSession().ready());
}

TEST_F(ScratchTest, MissingParentIsRefused) {
    test::ScopedEnv scratch("QUELCNV_SCRATCH", folder("no/such/folder"));
    EXPECT_FALSE(ScratchSession().ready());
}

TEST_F(ScratchTest, SessionHoldsAnExclusiveLockUntilItEnds) {
    test::ScopedEnv scratch("QUELCNV_SCRATCH", folder("scratch"));
    {
        ScratchSession session;
        ASSERT_TRUE(session.ready());
        EXPECT_FALSE(otherProcessCanLock());
    }
    EXPECT_TRUE(otherProcessCanLock());
}

TEST_F(ScratchTest, NestedSessionsShareTheLockUntilTheOuterOneEnds) {
    test::ScopedEnv scratch("QUELCNV_SCRATCH", folder("scratch"));
    {
        ScratchSession outer;
        ASSERT_TRUE(outer.ready());
        {
            ScratchSession inner;  // would wait for itself if the lock were taken again
            EXPECT_TRUE(inner.ready());
        }
        EXPECT_FALSE(otherProcessCanLock());
    }
    EXPECT_TRUE(otherProcessCanLock());
}

#endif

}  // namespace
}  // namespace quelcnv
