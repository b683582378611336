// Feeds arbitrary bytes to every cross-section reader: both line layouts,
// the five importers and CartoMAP. Built with libFuzzer by the fuzz preset,
// and as a plain test that replays tests/data (see tests/CMakeLists.txt).
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "crosssection/cartomap_sections.h"
#include "crosssection/clip_ter_sections.h"
#include "crosssection/clip_trv_sections.h"
#include "crosssection/htrazado_sections.h"
#include "crosssection/istram_sections.h"
#include "crosssection/mxroad_sections.h"
#include "crosssection/ruxo_sections.h"

namespace {

std::string scratchPath(const char* name) {
    return (std::filesystem::temp_directory_path() /
            ("quelcnv-fuzz-" + std::to_string(::getpid()) + "-" + name))
        .string();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string input = scratchPath("input.txt");
    static const std::string output = scratchPath("output.txt");
    if (std::FILE* file = std::fopen(input.c_str(), "wb")) {
        std::fwrite(data, 1, size, file);
        std::fclose(file);
    }
    using namespace quelcnv;
    for (auto convert : {ruxoSectionsToNevo, commaSectionsToFixedWidth, importIstramSections,
                         importMxroadSections, importHtrazadoSections, importClipTerSections,
                         importClipTrvSections, importCartomapSections}) {
        convert(input, output);
    }
    std::remove(input.c_str());
    std::remove(output.c_str());
    return 0;
}
