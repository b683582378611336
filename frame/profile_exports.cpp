// The vertical profile and superelevation entry points: each runs one
// converter and returns 1 when it wrote its output, 0 when it failed.
#include <string>

#include "common/outcome.h"
#include "frame/entry_guard.h"
#include "profile/cartomap_profile.h"
#include "profile/clip_superelevation.h"
#include "profile/ispol_profile.h"
#include "profile/ispol_superelevation.h"
#include "profile/istram_profile.h"
#include "profile/ruxo_profile.h"
#include "profile/velm_profile.h"
#include "quelcnv.h"

extern "C" {

using namespace quelcnv;

QUELCNV_API int QUELCNV_CALL MyDll_rvelm2nevo(const char* entrada, const char* salida) {
    return convertFile(convertVelmProfileToNevo, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_rasruxo2nevo(const char* entrada, const char* salida) {
    return convertFile(convertRuxoProfileToVertexFile, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_ristram2nevo(const char* entrada, const char* salida) {
    return convertFile(convertIstramProfileToNevo, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_rispol2nevo(const char* entrada, const char* salida) {
    return convertFile(convertIspolProfileToNevo, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_rascartomap2ruxo(const char* entrada, const char* salida) {
    return convertFile(convertCartomapProfileToVelm, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_peralteispol2nevo(const char* entrada, const char* salida) {
    return convertFile(convertIspolSuperelevation, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_peralteClip2nevo(const char* entrada, const char* salida) {
    return convertFile(convertClipSuperelevation, entrada, salida);
}

}  // extern "C"
