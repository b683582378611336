// The cross-section conversions: the two line layouts, the importers that
// reach the NEVO file through the scratch RUXO file, and CartoMAP.
#include "crosssection/cartomap_sections.h"
#include "crosssection/clip_ter_sections.h"
#include "crosssection/clip_trv_sections.h"
#include "crosssection/htrazado_sections.h"
#include "crosssection/istram_sections.h"
#include "crosssection/mxroad_sections.h"
#include "crosssection/ruxo_sections.h"
#include "frame/conversion.h"

namespace quelcnv {

namespace {

// entrada, salida: the importer into the scratch RUXO file, then the NEVO
// file from it.
Outcome importToNevo(FileConversion import, Call& a) {
    return chainThroughScratch(
        a.settings, [&](const std::string& temp) { return import(a[0], temp); },
        [&](const std::string& temp) { return convertRuxoSectionsToNevo(temp, a[1]); },
        ScratchAfter::removed);
}

Outcome ruxo2nevo(Call& a) { return convertRuxoSectionsToNevo(a[0], a[1]); }

Outcome traruxo2nevo(Call& a) { return convertCommaSectionsToFixedWidth(a[0], a[1]); }

Outcome istram2nevo(Call& a) { return importToNevo(importIstramSections, a); }

Outcome mxroad2nevo(Call& a) { return importToNevo(importMxroadSections, a); }

Outcome htrazado2nevo(Call& a) { return importToNevo(importHtrazadoSections, a); }

Outcome clip2nevo(Call& a) { return importToNevo(importClipTerSections, a); }

Outcome cliptrv2nevo(Call& a) { return importToNevo(importClipTrvSections, a); }

Outcome traCartomap2ruxo(Call& a) { return importCartomapSections(a[0], a[1]); }

// The conversion of CLIP cross-section reports is not provided in this
// version: nothing is read or written.
Outcome clipST2ruxo(Call&) { return Outcome::failed(Failure::notProvided); }

}  // namespace

QUELCNV_CONVERSION(ruxo2nevo, ruxo2nevo, HostResult::doneOrFailed)
QUELCNV_CONVERSION(istram2nevo, istram2nevo, HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(mxroad2nevo, mxroad2nevo, HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(htrazado2nevo, htrazado2nevo, HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(clip2nevo, clip2nevo, HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(cliptrv2nevo, cliptrv2nevo, HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(traCartomap2ruxo, traCartomap2ruxo, HostResult::doneOrFailed)
QUELCNV_CONVERSION(traruxo2nevo, traruxo2nevo, HostResult::doneOrFailed)
QUELCNV_CONVERSION(clipST2ruxo, clipST2ruxo, HostResult::doneOrFailed)

}  // namespace quelcnv
