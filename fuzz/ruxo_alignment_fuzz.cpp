// Feeds arbitrary bytes to the RUXO alignment reader (both comment rules)
// and writes back what it read. Built with libFuzzer by the fuzz preset, and
// as a plain test that replays tests/data (see tests/CMakeLists.txt).
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "alignment/ruxo_alignment_file.h"

namespace {

std::string scratchPath(const char* name) {
    return (std::filesystem::temp_directory_path() /
            ("quelcnv-fuzz-" + std::to_string(::getpid()) + "-" + name))
        .string();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string input = scratchPath("input.ruxo");
    static const std::string output = scratchPath("output.ruxo");
    if (std::FILE* file = std::fopen(input.c_str(), "wb")) {
        std::fwrite(data, 1, size, file);
        std::fclose(file);
    }
    for (auto comments : {quelcnv::CommentLines::skipped, quelcnv::CommentLines::readAsNumbers}) {
        quelcnv::AlignmentFile read = quelcnv::readAlignmentFile(input, comments);
        if (read.outcome.ok()) quelcnv::writeAlignmentFile(read.records, output);
    }
    std::remove(input.c_str());
    std::remove(output.c_str());
    return 0;
}
