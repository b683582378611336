// Feeds arbitrary bytes to every field-data reader: the level book, the
// points conversions, both Medrix conversions and the robotic readings
// header. Built with libFuzzer by the fuzz preset, and as a plain test that
// replays tests/data (see tests/CMakeLists.txt).
#include <cstddef>
#include <cstdint>
#include <filesystem>

#include "fielddata/ign_level_book.h"
#include "fielddata/lea_medrix.h"
#include "fielddata/level_upload.h"
#include "fielddata/nevo_medrix.h"
#include "fielddata/nevo_points.h"
#include "fielddata/robotic_header.h"
#include "fuzz/fuzz_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quelcnv::fuzz::FuzzFiles files(data, size);
    using namespace quelcnv;
    convertLevelBook(files.input(), files.output(), {"Empresa", "Operador", "M1", "M2", "123"});
    for (auto convert : {convertPointsToNevo, convertPointsToLevelUpload, convertLeaToMedrix,
                         convertNevoToMedrix, convertRoboticHeader}) {
        convert(files.input(), files.output());
    }
    // The Medrix code file written beside the output.
    std::filesystem::remove(std::filesystem::path(files.output()).replace_extension("cod"));
    return 0;
}
