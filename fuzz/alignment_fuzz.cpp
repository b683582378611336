// Feeds arbitrary bytes to every alignment reader: the RUXO file (both
// comment rules, written back), both NEVO forms with their arc splitting,
// and the five importers. Built with libFuzzer by the fuzz preset, and as a
// plain test that replays tests/data (see tests/CMakeLists.txt).
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "alignment/clip_plt_alignment.h"
#include "alignment/htrazado_alignment.h"
#include "alignment/ispol_alignment.h"
#include "alignment/istram_alignment.h"
#include "alignment/istram_listing_alignment.h"
#include "alignment/nevo_alignment.h"
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
    using namespace quelcnv;
    for (auto comments : {CommentLines::skipped, CommentLines::readAsNumbers}) {
        AlignmentFile read = readAlignmentFile(input, comments);
        if (read.outcome.ok()) writeAlignmentFile(read.records, output);
    }
    writeElementForm(input, output);
    writeIntersectionForm(input, output);
    for (auto import : {importIstramAlignment, importIstramListingAlignment, importIspolAlignment,
                        importClipPltAlignment, importHtrazadoAlignment}) {
        import(input, output);
    }
    std::remove(input.c_str());
    std::remove(output.c_str());
    return 0;
}
