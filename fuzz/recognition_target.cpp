// The libFuzzer target of the recogniser of file formats: any bytes as a
// file, which the command recognises before converting or drawing it.
#include <cstddef>
#include <cstdint>

#include "fuzz/entry_point_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quelcnv::fuzz::runRecogniser(data, size);
    return 0;
}
