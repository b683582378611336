// The cross-section entry points.
#include "frame/entry_guard.h"
#include "quelcnv.h"

extern "C" {

QUELCNV_API int QUELCNV_CALL MyDll_ruxo2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_traruxo2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_istram2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_mxroad2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_htrazado2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_clip2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_cliptrv2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_traCartomap2ruxo(const char*, const char*) { return 0; }

}  // extern "C"
