// The frame's own entry points: the sample entry point and the ArcView pair.
#include <cstring>
#include <string>

#include "common/output_file.h"
#include "common/scratch.h"
#include "frame/entry_guard.h"
#include "quelcnv.h"

namespace quelcnv {
namespace {

constexpr char sampleText[] = "salva";

// Writes the sample text, with no line break, into its scratch file.
void writeSampleFile(const std::string& path) {
    OutputFile out;
    if (!out.open(path)) return;
    out.print("%s", sampleText);
    out.finish();
}

// The ArcView conversions are declared for the host but not provided.
int arcviewNotProvided() { return 0; }

}  // namespace
}  // namespace quelcnv

extern "C" {

// Deliberately reverses nothing: leaves "salva" in the caller's buffer (which
// must hold 6 bytes) and in the scratch file "prueba.$$$".
QUELCNV_API void QUELCNV_CALL MyDll_ReverseString(char* sMyString) {
    using namespace quelcnv;
    guardedVoid([&] {
        if (sMyString == nullptr) return;
        std::memcpy(sMyString, sampleText, sizeof sampleText);
        ScratchSession scratch;
        if (scratch.ready()) writeSampleFile(scratch.path(ScratchFile::sampleText));
    });
}

QUELCNV_API int QUELCNV_CALL MyDll_velm2arcview(const char*, const char*) {
    return quelcnv::arcviewNotProvided();
}

QUELCNV_API int QUELCNV_CALL MyDll_arcview2velm(const char*, const char*) {
    return quelcnv::arcviewNotProvided();
}

}  // extern "C"
