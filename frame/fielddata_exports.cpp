// The field data entry points.
#include "frame/entry_guard.h"
#include "quelcnv.h"

extern "C" {

QUELCNV_API int QUELCNV_CALL MyDll_anivel2ing(const char*, const char*, const char*, const char*,
                                              const char*, const char*, const char*) {
    return 0;
}

QUELCNV_API int QUELCNV_CALL MyDll_puntos2nevo(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_puntos2nivel(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_topoLea2Medrix(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_lectnevo2medrix(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_procesaCabecera(const char*, const char*) { return 0; }

QUELCNV_API int QUELCNV_CALL MyDll_procesaRobotizada(const char*, const char*, const char*,
                                                     const char*, const char*, const char*,
                                                     const char*, const char*, const char*) {
    return 0;
}

}  // extern "C"
