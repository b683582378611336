#include "tests/test_support.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>

#include "alignment/ruxo_alignment_file.h"
#include "common/output_file.h"

#ifndef _WIN32
#include <locale.h>
#endif

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

#ifdef _WIN32

// MinGW's strtod gives -0.0 for a sign with no number after it; the C
// standard's answer to a text without a number is plain 0.
double cStrtod(const char* text) {
    char* end = nullptr;
    double value = std::strtod(text, &end);
    return end == text ? 0.0 : value;
}

// Finite values through the C++ runtime's exact printf; infinity and
// not-a-number through the system C runtime, which the library leaves them to.
std::string cPrintf(const char* format, double value) {
    char buffer[512];
    if (std::isfinite(value))
        std::snprintf(buffer, sizeof buffer, format, value);
    else
        _snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

namespace {
void setVariable(const std::string& name, const std::optional<std::string>& value) {
    _putenv_s(name.c_str(), value ? value->c_str() : "");  // an empty value removes it
}
}  // namespace

#else

namespace {
locale_t cLocale() {
    static locale_t c = newlocale(LC_ALL_MASK, "C", nullptr);
    return c;
}

void setVariable(const std::string& name, const std::optional<std::string>& value) {
    if (value)
        setenv(name.c_str(), value->c_str(), 1);
    else
        unsetenv(name.c_str());
}
}  // namespace

double cStrtod(const char* text) { return strtod_l(text, nullptr, cLocale()); }

std::string cPrintf(const char* format, double value) {
    locale_t previous = uselocale(cLocale());
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, format, value);
    uselocale(previous);
    return buffer;
}

#endif

ScopedEnv::ScopedEnv(std::string name, std::optional<std::string> value) : name_(std::move(name)) {
    if (const char* old = std::getenv(name_.c_str())) previous_ = old;
    setVariable(name_, value);
}

ScopedEnv::~ScopedEnv() { setVariable(name_, previous_); }

FolderTest::FolderTest() {
    std::random_device entropy;
    std::mt19937_64 random(entropy());
    std::filesystem::path base = std::filesystem::temp_directory_path();
    do {
        dir_ = base / ("quelcnv-test-" + std::to_string(random() % 1000000000));
    } while (!std::filesystem::create_directory(dir_));
    scratch_.emplace("QUELCNV_SCRATCH", file("scratch"));
}

FolderTest::~FolderTest() {
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
}

void expectNear(PlanePoint actual, PlanePoint expected, double tolerance) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
}

std::vector<AlignmentRecord> sampleAlignmentRecords() {
    return readAlignmentFile(std::string(QUELCNV_SAMPLES) + "/alignment/eje.ruxo",
                             CommentLines::skipped)
        .records;
}

}  // namespace quelcnv::test
