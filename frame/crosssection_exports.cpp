// The cross-section entry points: the two line layouts, the importers that
// reach the NEVO file through the scratch RUXO file, and CartoMAP.
#include <cstdio>
#include <string>

#include "common/scratch.h"
#include "crosssection/cartomap_sections.h"
#include "crosssection/clip_ter_sections.h"
#include "crosssection/clip_trv_sections.h"
#include "crosssection/htrazado_sections.h"
#include "crosssection/istram_sections.h"
#include "crosssection/mxroad_sections.h"
#include "crosssection/ruxo_sections.h"
#include "frame/entry_guard.h"
#include "quelcnv.h"

namespace quelcnv {
namespace {

using Importer = Outcome (*)(const std::string& entrada, const std::string& ruxoPath);

// The importer writes the scratch RUXO file; only when it succeeded is the
// NEVO file written from it. The scratch file is removed and the result is
// 1 whatever happened: the host sees a failed import by salida not being
// written.
int importToNevo(Importer import, const char* entrada, const char* salida) {
    return guarded(1, [&] {
        if (!areUsablePaths(entrada, salida)) return 0;
        ScratchSession scratch;
        if (!scratch.ready()) return 1;
        std::string temp = scratch.path(ScratchFile::chainTemp);
        if (import(entrada, temp).ok()) convertRuxoSectionsToNevo(temp, salida);
        std::remove(temp.c_str());
        return 1;
    });
}

}  // namespace
}  // namespace quelcnv

extern "C" {

using namespace quelcnv;

QUELCNV_API int QUELCNV_CALL MyDll_ruxo2nevo(const char* entrada, const char* salida) {
    return convertFile(convertRuxoSectionsToNevo, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_traruxo2nevo(const char* entrada, const char* salida) {
    return convertFile(convertCommaSectionsToFixedWidth, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_istram2nevo(const char* entrada, const char* salida) {
    return importToNevo(importIstramSections, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_mxroad2nevo(const char* entrada, const char* salida) {
    return importToNevo(importMxroadSections, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_htrazado2nevo(const char* entrada, const char* salida) {
    return importToNevo(importHtrazadoSections, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_clip2nevo(const char* entrada, const char* salida) {
    return importToNevo(importClipTerSections, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_cliptrv2nevo(const char* entrada, const char* salida) {
    return importToNevo(importClipTrvSections, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_traCartomap2ruxo(const char* entrada, const char* salida) {
    return convertFile(importCartomapSections, entrada, salida);
}

// The conversion of CLIP cross-section reports is not provided in this
// version: nothing is read or written.
QUELCNV_API int QUELCNV_CALL MyDll_clipST2ruxo(const char*, const char*, const char*) { return 0; }

}  // extern "C"
