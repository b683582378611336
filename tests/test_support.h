// Helpers shared by the tests: files, a temporary folder that is also the
// scratch directory, environment variables, and byte comparison.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "alignment/alignment_record.h"
#include "common/plane.h"

namespace quelcnv::test {

std::string readBytes(const std::filesystem::path& path);
void writeBytes(const std::filesystem::path& path, std::string_view bytes);
// The text with every LF as the platform's newline, as the library writes it.
std::string withPlatformNewlines(std::string_view text);
std::filesystem::path testData(std::string_view relative);

// The C library's decimal conversion and printf in the "C" locale, whatever
// the process locale: the references the library's own conversions match.
double cStrtod(const char* text);
std::string cPrintf(const char* format, double value);

// Both coordinates within the tolerance.
void expectNear(PlanePoint actual, PlanePoint expected, double tolerance);

// The key points of the sample alignment samples/alignment/eje.ruxo.
std::vector<AlignmentRecord> sampleAlignmentRecords();

// Sets (or, with nullopt, unsets) an environment variable until destroyed.
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

// A test with a fresh folder of its own, whose "scratch" subfolder is the
// scratch directory; the folder is removed afterwards.
class FolderTest : public ::testing::Test {
protected:
    FolderTest();
    ~FolderTest() override;
    std::string file(std::string_view name) const { return (dir_ / name).string(); }
    std::string scratchFile(std::string_view name) const {
        return file("scratch/" + std::string(name));
    }

    std::filesystem::path dir_;
    std::optional<ScopedEnv> scratch_;
};

}  // namespace quelcnv::test
