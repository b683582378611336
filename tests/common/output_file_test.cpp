#include "common/output_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#ifndef _WIN32
#include <sys/resource.h>

#include <csignal>
#endif

#include "tests/test_support.h"

namespace quelcnv {
namespace {

using test::readBytes;

class OutputFileTest : public test::FolderTest {};

TEST_F(OutputFileTest, EveryLineFeedBecomesThePlatformNewline) {
    OutputFile out;
    ASSERT_TRUE(out.open(file("out.txt")));
    out.print("%0.3lf,%s\n", 1.5, "a\nb");
    out.write("lone\rcr\n");
    ASSERT_TRUE(out.finish());
    EXPECT_EQ(readBytes(file("out.txt")), test::withPlatformNewlines("1.500,a\nb\nlone\rcr\n"));
}

#ifndef _WIN32
TEST_F(OutputFileTest, NewlineFollowsTheEnvironment) {
    {
        test::ScopedEnv lf("QUELCNV_NEWLINE", std::nullopt);
        EXPECT_EQ(platformNewline(), "\n");
    }
    test::ScopedEnv crlf("QUELCNV_NEWLINE", "crlf");
    EXPECT_EQ(platformNewline(), "\r\n");
    OutputFile out;
    ASSERT_TRUE(out.open(file("out.txt")));
    out.write("1\n2\n");
    ASSERT_TRUE(out.finish());
    EXPECT_EQ(readBytes(file("out.txt")), "1\r\n2\r\n");
}
#endif

TEST_F(OutputFileTest, AbandonedOrDiscardedOutputIsRemoved) {
    {
        OutputFile out;
        ASSERT_TRUE(out.open(file("abandoned.txt")));
        out.write("half a file\n");
    }
    EXPECT_FALSE(std::filesystem::exists(file("abandoned.txt")));
    OutputFile out;
    ASSERT_TRUE(out.open(file("discarded.txt")));
    out.discard();
    EXPECT_FALSE(std::filesystem::exists(file("discarded.txt")));
}

TEST_F(OutputFileTest, OutputInAMissingFolderCannotBeCreated) {
    OutputFile out;
    EXPECT_FALSE(out.open(file("missing/out.txt")));
    EXPECT_FALSE(out.finish());
}

#ifndef _WIN32
TEST_F(OutputFileTest, FailedWriteRemovesARegularFile) {
    // A file size limit makes the writes fail as a full disk would.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit previous;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &previous), 0);
    rlimit small = previous;
    small.rlim_cur = 1000;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    OutputFile out;
    bool opened = out.open(file("full.txt"));
    for (int i = 0; i < 1000; ++i) out.write("0123456789\n");
    bool finished = out.finish();
    setrlimit(RLIMIT_FSIZE, &previous);
    ASSERT_TRUE(opened);
    EXPECT_FALSE(finished);
    EXPECT_FALSE(std::filesystem::exists(file("full.txt")));
}

TEST_F(OutputFileTest, FailedWriteThroughALinkRemovesTheFileWritten) {
    std::filesystem::create_symlink(file("target.txt"), file("link.txt"));
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit previous;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &previous), 0);
    rlimit small = previous;
    small.rlim_cur = 1000;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    OutputFile out;
    bool opened = out.open(file("link.txt"));
    for (int i = 0; i < 1000; ++i) out.write("0123456789\n");
    bool finished = out.finish();
    setrlimit(RLIMIT_FSIZE, &previous);
    ASSERT_TRUE(opened);
    EXPECT_FALSE(finished);
    EXPECT_FALSE(std::filesystem::exists(file("target.txt")));
    EXPECT_TRUE(std::filesystem::is_symlink(file("link.txt")));
}

TEST_F(OutputFileTest, FailedWriteNeverRemovesADevice) {
    OutputFile out;
    ASSERT_TRUE(out.open("/dev/full"));
    for (int i = 0; i < 10000; ++i) out.write("0123456789\n");
    EXPECT_FALSE(out.finish());
    EXPECT_TRUE(std::filesystem::exists("/dev/full"));
}
#endif

}  // namespace
}  // namespace quelcnv
