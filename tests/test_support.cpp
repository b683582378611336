#include "tests/test_support.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

#include "common/output_file.h"

namespace quelcnv::test {

std::string readBytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeBytes(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string withPlatformNewlines(std::string_view text) {
    std::string out;
    for (char c : text) {
        if (c == '\n')
            out += platformNewline();
        else
            out += c;
    }
    return out;
}

::testing::AssertionResult sameBytes(std::string_view actual, std::string_view expected) {
    if (actual == expected) return ::testing::AssertionSuccess();
    std::size_t offset = 0;
    while (offset < actual.size() && offset < expected.size() &&
           actual[offset] == expected[offset]) {
        ++offset;
    }
    std::size_t line =
        1 + static_cast<std::size_t>(std::count(
                expected.begin(), expected.begin() + static_cast<std::ptrdiff_t>(offset), '\n'));
    auto lineAt = [](std::string_view text, std::size_t at) {
        std::size_t start = text.rfind('\n', at == 0 ? 0 : at - 1);
        start = (start == std::string_view::npos || at == 0) ? 0 : start + 1;
        std::size_t end = text.find('\n', at);
        return std::string(text.substr(start, end == std::string_view::npos ? end : end - start));
    };
    return ::testing::AssertionFailure()
           << "outputs differ at line " << line << ", byte offset " << offset << "\n  actual:   \""
           << lineAt(actual, std::min(offset, actual.size())) << "\"\n  expected: \""
           << lineAt(expected, std::min(offset, expected.size())) << "\"\n  (sizes "
           << actual.size() << " and " << expected.size() << ")";
}

std::filesystem::path testData(std::string_view relative) {
    return std::filesystem::path(QUELCNV_TEST_DATA) / relative;
}

TempDir::TempDir() {
    std::random_device seed;
    std::mt19937_64 random(seed());
    auto base = std::filesystem::temp_directory_path();
    do {
        path_ = base / ("quelcnv-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

namespace {

void setVariable(const std::string& name, const std::optional<std::string>& value) {
#ifdef _WIN32
    _putenv_s(name.c_str(), value ? value->c_str() : "");
#else
    if (value)
        setenv(name.c_str(), value->c_str(), 1);
    else
        unsetenv(name.c_str());
#endif
}

}  // namespace

ScopedEnv::ScopedEnv(std::string name, std::optional<std::string> value) : name_(std::move(name)) {
    if (const char* old = std::getenv(name_.c_str())) previous_ = old;
    setVariable(name_, value);
}

ScopedEnv::~ScopedEnv() { setVariable(name_, previous_); }

}  // namespace quelcnv::test
