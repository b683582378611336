// The alignment entry points: the NEVO writer, and the importers chained to
// it through the scratch file.
#include <cstdio>
#include <string>

#include "alignment/clip_plt_alignment.h"
#include "alignment/htrazado_alignment.h"
#include "alignment/ispol_alignment.h"
#include "alignment/istram_alignment.h"
#include "alignment/istram_listing_alignment.h"
#include "alignment/nevo_alignment.h"
#include "common/scratch.h"
#include "frame/entry_guard.h"
#include "quelcnv.h"

namespace quelcnv {
namespace {

using Importer = Outcome (*)(const std::string& entrada, const std::string& salida);

// What a chained conversion does with the scratch file afterwards.
enum class Scratch { removed, left };

// Imports entrada into the scratch file, writes the NEVO alignment from it
// when the import succeeded, and removes the scratch file or leaves it for
// the next conversion to overwrite. The importer's outcome.
Outcome chainToNevo(Importer import, const char* entrada, const char* salida, const char* pathAp,
                    Scratch scratchFile) {
    ScratchSession scratch;
    if (!scratch.ready()) return Outcome::failed(Failure::scratchUnavailable);
    std::string temp = scratch.path(ScratchFile::chainTemp);
    Outcome imported = import(entrada, temp);
    if (imported.ok()) convertRuxoAlignmentToNevo(temp, salida, pathAp);
    if (scratchFile == Scratch::removed) std::remove(temp.c_str());
    return imported;
}

// The chained conversions that return 1 whatever happened.
int chainAlwaysDone(Importer import, const char* entrada, const char* salida, const char* pathAp,
                    Scratch scratchFile) {
    return guarded(1, [&] {
        if (!areUsablePaths(entrada, salida, pathAp)) return 0;
        chainToNevo(import, entrada, salida, pathAp, scratchFile);
        return 1;
    });
}

}  // namespace
}  // namespace quelcnv

extern "C" {

using namespace quelcnv;

QUELCNV_API int QUELCNV_CALL MyDll_aruxo2nevo(const char* entrada, const char* salida,
                                              const char* pathAp) {
    return guarded(1, [&] {
        if (!areUsablePaths(entrada, salida, pathAp)) return 0;
        convertRuxoAlignmentToNevo(entrada, salida, pathAp);
        return 1;
    });
}

QUELCNV_API int QUELCNV_CALL MyDll_aruxo2nevoWCE(const char* entrada, const char* salida) {
    return guarded(1, [&] {
        if (!areUsablePaths(entrada, salida)) return 0;
        writeIntersectionForm(entrada, salida);
        return 1;
    });
}

QUELCNV_API int QUELCNV_CALL MyDll_aistram2nevo(const char* entrada, const char* salida,
                                                const char* pathAp) {
    return chainAlwaysDone(importIstramAlignment, entrada, salida, pathAp, Scratch::removed);
}

// The MXROAD alignment conversion is not provided in this version.
QUELCNV_API int QUELCNV_CALL MyDll_amxroad2nevo(const char*, const char*, const char*) { return 1; }

QUELCNV_API int QUELCNV_CALL MyDll_ahtrazado2nevo(const char* entrada, const char* salida,
                                                  const char* pathAp) {
    return chainAlwaysDone(importHtrazadoAlignment, entrada, salida, pathAp, Scratch::removed);
}

QUELCNV_API int QUELCNV_CALL MyDll_aclipplt2nevo(const char* entrada, const char* salida,
                                                 const char* pathAp) {
    return guarded(0, [&] {
        if (!areUsablePaths(entrada, salida, pathAp)) return 0;
        Outcome imported =
            chainToNevo(importClipPltAlignment, entrada, salida, pathAp, Scratch::removed);
        return imported.ok() ? 1 : 0;
    });
}

// These two leave the scratch file behind on purpose.
QUELCNV_API int QUELCNV_CALL MyDll_aistramList2nevo(const char* entrada, const char* salida,
                                                    const char* pathAp) {
    return chainAlwaysDone(importIstramListingAlignment, entrada, salida, pathAp, Scratch::left);
}

QUELCNV_API int QUELCNV_CALL MyDll_aispol2nevo(const char* entrada, const char* salida,
                                               const char* pathAp) {
    return chainAlwaysDone(importIspolAlignment, entrada, salida, pathAp, Scratch::left);
}

QUELCNV_API int QUELCNV_CALL MyDll_aclipplt2ruxo(const char* entrada, const char* salida) {
    return convertFile(importClipPltAlignment, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_aistram2ruxo(const char* entrada, const char* salida) {
    return convertFile(importIstramAlignment, entrada, salida);
}

}  // extern "C"
