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

namespace fs = std::filesystem;

class OutputFileTest : public test::FolderTest {
protected:
#ifndef _WIN32
    // Writes 11000 bytes to the path under a 1000-byte file size limit, which
    // fails the writes as a full disk would. The result of finish().
    bool writeTooMuch(const std::string& path) {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit previous, small;
        getrlimit(RLIMIT_FSIZE, &previous);
        small = previous;
        small.rlim_cur = 1000;
        setrlimit(RLIMIT_FSIZE, &small);
        OutputFile out;
        bool opened = out.open(path);
        for (int i = 0; i < 1000; ++i) out.write("0123456789\n");
        bool finished = out.finish();
        setrlimit(RLIMIT_FSIZE, &previous);
        EXPECT_TRUE(opened);
        return finished;
    }
#endif
};

TEST_F(OutputFileTest, EveryLineFeedBecomesTheChosenNewline) {
    test::ScopedEnv newline("QUELCNV_NEWLINE", "crlf");
    OutputFile out;
    ASSERT_TRUE(out.open(file("out.txt")));
    out.print("%0.3lf,%s\n"_fmt, 1.5, "a\nb");
    out.write("lone\rcr\n");
    ASSERT_TRUE(out.finish());
    EXPECT_EQ(test::readBytes(file("out.txt")), "1.500,a\r\nb\r\nlone\rcr\r\n");
}

TEST_F(OutputFileTest, OutputThatIsNotFinishedOrFailsIsRemoved) {
    {
        OutputFile abandoned;
        ASSERT_TRUE(abandoned.open(file("abandoned.txt")));
        abandoned.write("half a file\n");
    }
    EXPECT_FALSE(fs::exists(file("abandoned.txt")));
    EXPECT_FALSE(OutputFile().open(file("missing/out.txt")));

#ifndef _WIN32  // a full disk is simulated with a file size limit
    EXPECT_FALSE(writeTooMuch(file("full.txt")));
    EXPECT_FALSE(fs::exists(file("full.txt")));
    // Through a link, the file written goes and the link stays.
    fs::create_symlink(file("target.txt"), file("link.txt"));
    EXPECT_FALSE(writeTooMuch(file("link.txt")));
    EXPECT_FALSE(fs::exists(file("target.txt")));
    EXPECT_TRUE(fs::is_symlink(file("link.txt")));
#endif
}

#ifndef _WIN32
TEST_F(OutputFileTest, FailedWriteNeverRemovesADevice) {
    OutputFile out;
    ASSERT_TRUE(out.open("/dev/full"));
    for (int i = 0; i < 10000; ++i) out.write("0123456789\n");
    EXPECT_FALSE(out.finish());
    EXPECT_TRUE(fs::exists("/dev/full"));
}
#endif

}  // namespace
}  // namespace quelcnv
