// Helpers shared by the tests: files, temporary folders, environment, and a
// byte-for-byte comparison that tells where two outputs part.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quelcnv::test {

std::string readBytes(const std::filesystem::path& path);
void writeBytes(const std::filesystem::path& path, std::string_view bytes);

// The text with every LF written as the platform's newline, as the library
// writes its outputs.
std::string withPlatformNewlines(std::string_view text);

// Equal bytes, or a message naming the first differing line and byte offset.
::testing::AssertionResult sameBytes(std::string_view actual, std::string_view expected);

// A path under tests/data.
std::filesystem::path testData(std::string_view relative);

// A fresh folder, removed with everything in it when the object goes.
class TempDir {
public:
    TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    ~TempDir();
    const std::filesystem::path& path() const { return path_; }
    std::string file(std::string_view name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

// Sets (or, with nullopt, unsets) an environment variable for the life of the
// object, then restores it.
class ScopedEnv {
public:
    ScopedEnv(std::string name, std::optional<std::string> value);
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;
    ~ScopedEnv();

private:
    std::string name_;
    std::optional<std::string> previous_;
};

// A test with its own temporary folder, which is also its scratch directory.
class FolderTest : public ::testing::Test {
protected:
    TempDir dir_;
    ScopedEnv scratch_{"QUELCNV_SCRATCH", (dir_.path() / "scratch").string()};
    std::string file(std::string_view name) const { return dir_.file(name); }
    std::string scratchFile(std::string_view name) const {
        return (dir_.path() / "scratch" / name).string();
    }
};

}  // namespace quelcnv::test
