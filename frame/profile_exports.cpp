// The vertical profile and superelevation entry points.
#include "frame/entry_guard.h"
#include "quelcnv.h"

extern "C" {

QUELCNV_API int QUELCNV_CALL MyDll_rvelm2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_rasruxo2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_ristram2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_rispol2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_rascartomap2ruxo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_peralteispol2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_peralteClip2nevo(const char*, const char*) { return 0; }

}  // extern "C"
