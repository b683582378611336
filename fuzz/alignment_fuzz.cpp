// Feeds arbitrary bytes to every alignment reader: the RUXO file (both
// comment rules, written back), both NEVO forms with their arc splitting,
// and the five importers. Built with libFuzzer by the fuzz preset, and as a
// plain test that replays tests/data (see tests/CMakeLists.txt).
#include <cstddef>
#include <cstdint>

#include "alignment/clip_plt_alignment.h"
#include "alignment/htrazado_alignment.h"
#include "alignment/ispol_alignment.h"
#include "alignment/istram_alignment.h"
#include "alignment/istram_listing_alignment.h"
#include "alignment/nevo_alignment.h"
#include "alignment/ruxo_alignment_file.h"
#include "fuzz/fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quelcnv::fuzz::FuzzFiles files(data, size);
    const std::string& input = files.input();
    const std::string& output = files.output();
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
    return 0;
}
