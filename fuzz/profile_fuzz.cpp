// Feeds arbitrary bytes to every profile and superelevation reader. Built
// with libFuzzer by the fuzz preset, and as a plain test that replays
// tests/data (see tests/CMakeLists.txt).
#include <cstddef>
#include <cstdint>

#include "fuzz/fuzz_files.h"
#include "profile/cartomap_profile.h"
#include "profile/clip_superelevation.h"
#include "profile/ispol_profile.h"
#include "profile/ispol_superelevation.h"
#include "profile/istram_profile.h"
#include "profile/ruxo_profile.h"
#include "profile/velm_profile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quelcnv::fuzz::FuzzFiles files(data, size);
    using namespace quelcnv;
    for (auto convert :
         {convertVelmProfileToNevo, convertRuxoProfileToVertexFile, convertIstramProfileToNevo,
          convertIspolProfileToNevo, convertCartomapProfileToVelm, convertIspolSuperelevation,
          convertClipSuperelevation}) {
        convert(files.input(), files.output());
    }
    return 0;
}
