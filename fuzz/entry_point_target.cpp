// The libFuzzer target of one entry point, the one QUELCNV_FUZZ_OPERATION
// names; fuzz/CMakeLists.txt builds one per entry point that reads a file.
#include <cstddef>
#include <cstdint>

#include "fuzz/entry_point_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quelcnv::fuzz::runEntryPoint(QUELCNV_FUZZ_OPERATION, data, size);
    return 0;
}
