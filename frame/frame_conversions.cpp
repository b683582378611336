// The frame's own entry points: the sample entry point and the ArcView pair.
#include <cstring>

#include "common/output_file.h"
#include "frame/conversion.h"
#include "quelcnv.h"

namespace quelcnv {

namespace {

constexpr char sampleText[] = "salva";

// Reverses nothing, as the host's sample has always done: "salva" replaces
// the argument and goes, without a line break, into the scratch file
// "prueba.$$$", whose failure is not told.
Outcome ReverseString(Call& a) {
    a[0] = sampleText;
    ScratchSession scratch(a.settings.scratchFolder);
    if (!scratch.ready()) return Outcome::failed(Failure::scratchUnavailable);
    return writeWholeFile(scratch.path(ScratchFile::sampleText),
                          [](OutputFile& out) { out.write(sampleText); });
}

// The ArcView conversions are declared for the host but not provided.
Outcome arcviewNotProvided(Call&) { return Outcome::failed(Failure::notProvided); }

}  // namespace

QUELCNV_CONVERSION(ReverseString, ReverseString, HostResult::none, ScratchFile::sampleText)
QUELCNV_CONVERSION(velm2arcview, arcviewNotProvided, HostResult::doneOrFailed)
QUELCNV_CONVERSION(arcview2velm, arcviewNotProvided, HostResult::doneOrFailed)

}  // namespace quelcnv

// The one entry point with an argument to write back: the caller's buffer
// must hold the 6 bytes of "salva" and its terminator.
extern "C" QUELCNV_API void QUELCNV_CALL MyDll_ReverseString(char* sMyString) {
    using namespace quelcnv;
    if (sMyString == nullptr) return;
    enterConversion("ReverseString", {argumentOf(sMyString)});
    std::memcpy(sMyString, sampleText, sizeof sampleText);
}
