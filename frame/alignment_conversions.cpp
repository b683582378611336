// The alignment conversions: the NEVO writer, and the importers chained to it
// through the scratch file.
#include "alignment/clip_plt_alignment.h"
#include "alignment/htrazado_alignment.h"
#include "alignment/ispol_alignment.h"
#include "alignment/istram_alignment.h"
#include "alignment/istram_listing_alignment.h"
#include "alignment/nevo_alignment.h"
#include "frame/conversion.h"

namespace quelcnv {

namespace {

// entrada, salida, pathAp: the importer into the scratch file, then the NEVO
// writer from it.
Outcome chainToNevo(FileConversion import, Call& a, ScratchAfter after) {
    return chainThroughScratch(
        a.settings, [&](const std::string& temp) { return import(a[0], temp); },
        [&](const std::string& temp) { return convertRuxoAlignmentToNevo(temp, a[1], a[2]); },
        after);
}

Outcome aruxo2nevo(Call& a) { return convertRuxoAlignmentToNevo(a[0], a[1], a[2]); }

Outcome aruxo2nevoWCE(Call& a) { return writeIntersectionForm(a[0], a[1]).outcome; }

Outcome aistram2nevo(Call& a) {
    return chainToNevo(importIstramAlignment, a, ScratchAfter::removed);
}

Outcome ahtrazado2nevo(Call& a) {
    return chainToNevo(importHtrazadoAlignment, a, ScratchAfter::removed);
}

Outcome aclipplt2nevo(Call& a) {
    return chainToNevo(importClipPltAlignment, a, ScratchAfter::removed);
}

// These two leave the scratch file behind, as the host has always found it.
Outcome aistramList2nevo(Call& a) {
    return chainToNevo(importIstramListingAlignment, a, ScratchAfter::left);
}

Outcome aispol2nevo(Call& a) { return chainToNevo(importIspolAlignment, a, ScratchAfter::left); }

Outcome aclipplt2ruxo(Call& a) { return importClipPltAlignment(a[0], a[1]); }

Outcome aistram2ruxo(Call& a) { return importIstramAlignment(a[0], a[1]); }

// The MXROAD alignment conversion is not provided in this version.
Outcome amxroad2nevo(Call&) { return Outcome::failed(Failure::notProvided); }

}  // namespace

QUELCNV_CONVERSION(aruxo2nevo, aruxo2nevo, HostResult::alwaysDone)
QUELCNV_CONVERSION(aruxo2nevoWCE, aruxo2nevoWCE, HostResult::alwaysDone)
QUELCNV_CONVERSION(aistram2nevo, aistram2nevo, HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(amxroad2nevo, amxroad2nevo, HostResult::alwaysDone)
QUELCNV_CONVERSION(ahtrazado2nevo, ahtrazado2nevo, HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(aclipplt2nevo, aclipplt2nevo, HostResult::importer, ScratchFile::chainTemp)
QUELCNV_CONVERSION(aistramList2nevo, aistramList2nevo, HostResult::alwaysDone,
                   ScratchFile::chainTemp)
QUELCNV_CONVERSION(aispol2nevo, aispol2nevo, HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(aclipplt2ruxo, aclipplt2ruxo, HostResult::doneOrFailed)
QUELCNV_CONVERSION(aistram2ruxo, aistram2ruxo, HostResult::doneOrFailed)

}  // namespace quelcnv
