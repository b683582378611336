// The field data entry points: the level book, the points files, the Medrix
// files and the header of robotic readings.
#include <initializer_list>
#include <string>

#include "fielddata/ign_level_book.h"
#include "fielddata/lea_medrix.h"
#include "fielddata/level_upload.h"
#include "fielddata/nevo_medrix.h"
#include "fielddata/nevo_points.h"
#include "fielddata/robotic_header.h"
#include "frame/entry_guard.h"
#include "quelcnv.h"

namespace quelcnv {
namespace {

// The level book's own result for a reading file that cannot be opened.
constexpr int levelBookInputUnreadable = 21;

// The header texts of the level book may be of any length, but must be there.
bool areTexts(std::initializer_list<const char*> texts) {
    for (const char* text : texts)
        if (text == nullptr) return false;
    return true;
}

int levelBookResult(const Outcome& outcome) {
    if (outcome.failure == Failure::inputUnreadable) return levelBookInputUnreadable;
    return outcome.ok() ? 1 : 0;
}

}  // namespace
}  // namespace quelcnv

extern "C" {

using namespace quelcnv;

QUELCNV_API int QUELCNV_CALL MyDll_anivel2ing(const char* entrada, const char* salida,
                                              const char* empresa, const char* operador,
                                              const char* mira1, const char* mira2,
                                              const char* nserie) {
    return guarded(0, [&] {
        if (!areUsablePaths(entrada, salida) ||
            !areTexts({empresa, operador, mira1, mira2, nserie}))
            return 0;
        return levelBookResult(
            convertLevelBook(entrada, salida, {empresa, operador, mira1, mira2, nserie}));
    });
}

QUELCNV_API int QUELCNV_CALL MyDll_puntos2nevo(const char* entrada, const char* salida) {
    return convertFile(convertPointsToNevo, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_puntos2nivel(const char* entrada, const char* salida) {
    return convertFile(convertPointsToLevelUpload, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_topoLea2Medrix(const char* entrada, const char* salida) {
    return convertFile(convertLeaToMedrix, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_lectnevo2medrix(const char* entrada, const char* salida) {
    return convertFile(convertNevoToMedrix, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_procesaCabecera(const char* lecturas, const char* salida) {
    return convertFile(convertRoboticHeader, lecturas, salida);
}

// Processing robotic readings into a report is not provided in this version:
// it reads and writes nothing and returns 0.
QUELCNV_API int QUELCNV_CALL MyDll_procesaRobotizada(const char*, const char*, const char*,
                                                     const char*, const char*, const char*,
                                                     const char*, const char*, const char*) {
    return 0;
}

}  // extern "C"
