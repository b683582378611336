#include "tests/test_support.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "common/output_file.h"

namespace quelcnv::test {

std::string readBytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeBytes(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string withPlatformNewlines(std::string_view text) {
    std::string out;
    for (char c : text) c == '\n' ? out.append(platformNewline()) : out.append(1, c);
    return out;
}

std::filesystem::path testData(std::string_view relative) {
    return std::filesystem::path(QUELCNV_TEST_DATA) / relative;
}

ScopedEnv::ScopedEnv(std::string name, std::optional<std::string> value) : name_(std::move(name)) {
    if (const char* old = std::getenv(name_.c_str())) previous_ = old;
    if (value)
        setenv(name_.c_str(), value->c_str(), 1);
    else
        unsetenv(name_.c_str());
}

ScopedEnv::~ScopedEnv() {
    if (previous_)
        setenv(name_.c_str(), previous_->c_str(), 1);
    else
        unsetenv(name_.c_str());
}

FolderTest::FolderTest() {
    std::string name = (std::filesystem::temp_directory_path() / "quelcnv-test-XXXXXX").string();
    dir_ = mkdtemp(name.data());
    scratch_.emplace("QUELCNV_SCRATCH", file("scratch"));
}

FolderTest::~FolderTest() {
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
}

}  // namespace quelcnv::test
