// Feeds arbitrary bytes to every cross-section reader: both line layouts,
// the five importers and CartoMAP. Built with libFuzzer by the fuzz preset,
// and as a plain test that replays tests/data (see tests/CMakeLists.txt).
#include <cstddef>
#include <cstdint>

#include "crosssection/cartomap_sections.h"
#include "crosssection/clip_ter_sections.h"
#include "crosssection/clip_trv_sections.h"
#include "crosssection/htrazado_sections.h"
#include "crosssection/istram_sections.h"
#include "crosssection/mxroad_sections.h"
#include "crosssection/ruxo_sections.h"
#include "fuzz/fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quelcnv::fuzz::FuzzFiles files(data, size);
    using namespace quelcnv;
    for (auto convert : {convertRuxoSectionsToNevo, convertCommaSectionsToFixedWidth,
                         importIstramSections, importMxroadSections, importHtrazadoSections,
                         importClipTerSections, importClipTrvSections, importCartomapSections}) {
        convert(files.input(), files.output());
    }
    return 0;
}
