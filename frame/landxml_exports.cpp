// The LandXML reading entry points: for alignments, profiles and cross
// sections, a selection that lists what the document holds in the scratch
// file "$$$$.EJE", and the conversions of the item the host then chose.
#include <cstdio>
#include <string>

#include "alignment/nevo_alignment.h"
#include "common/scratch.h"
#include "crosssection/ruxo_sections.h"
#include "frame/entry_guard.h"
#include "landxml/alignment_reader.h"
#include "landxml/cross_section_reader.h"
#include "landxml/profile_reader.h"
#include "quelcnv.h"

namespace quelcnv {
namespace {

using Lister = Outcome (*)(const std::string& entrada, const std::string& listPath);

// Writes the selection list of entrada. False when the list could not be
// written.
bool writeList(Lister list, const char* entrada) {
    if (!isUsablePath(entrada)) return false;
    ScratchSession scratch;
    if (!scratch.ready()) return false;
    Outcome listed = list(entrada, scratch.path(ScratchFile::selectionList));
    return listed.ok() || listed.failure == Failure::readerUnavailable;
}

// A scratch file left by an earlier conversion must never pass for this
// one's: it is removed before the reader runs, which writes it only when it
// reads the whole document.
std::string freshScratchFile(const ScratchSession& scratch, ScratchFile file) {
    std::string path = scratch.path(file);
    std::remove(path.c_str());
    return path;
}

// The alignment through the scratch RUXO file to the NEVO writer, when the
// reader succeeded. The reader's result.
int alignmentToNevo(int selec, const char* entrada, const char* salida, const char* pathAp) {
    ScratchSession scratch;
    if (!scratch.ready()) return 0;
    std::string temp = freshScratchFile(scratch, ScratchFile::localTemp);
    Outcome read = importLandXmlAlignment(entrada, selec, temp);
    if (read.ok()) convertRuxoAlignmentToNevo(temp, salida, pathAp);
    std::remove(temp.c_str());
    return read.ok() ? 1 : 0;
}

// The surface's points through the scratch RUXO file to the NEVO file.
void sectionsToNevo(const char* transver, const char* capa, const char* entrada,
                    const char* salida) {
    ScratchSession scratch;
    if (!scratch.ready()) return;
    std::string temp = freshScratchFile(scratch, ScratchFile::chainTemp);
    importLandXmlSections(transver, capa, entrada, temp);
    convertRuxoSectionsToNevo(temp, salida);
    std::remove(temp.c_str());
}

}  // namespace
}  // namespace quelcnv

extern "C" {

using namespace quelcnv;

QUELCNV_API int QUELCNV_CALL MyDll_seleccionaEjeLandXML(const char* entrada) {
    return guarded(0, [&] { return writeList(listLandXmlAlignments, entrada) ? 1 : 0; });
}

QUELCNV_API int QUELCNV_CALL MyDll_alandxml2nevo(int selec, const char* entrada, const char* salida,
                                                 const char* pathAp) {
    return guarded(0, [&] {
        if (selec < 0 || !areUsablePaths(entrada, salida, pathAp)) return 0;
        return alignmentToNevo(selec, entrada, salida, pathAp);
    });
}

QUELCNV_API int QUELCNV_CALL MyDll_alandxml2nevoWCE(int selec, const char* entrada,
                                                    const char* salida, const char* pathAp) {
    return guarded(0, [&] {
        if (selec < 0 || !areUsablePaths(entrada, salida, pathAp)) return 0;
        return importLandXmlAlignment(entrada, selec, salida).ok() ? 1 : 0;
    });
}

QUELCNV_API void QUELCNV_CALL MyDll_seleccionaRasanteLandXML(const char* entrada) {
    guardedVoid([&] { writeList(listLandXmlProfiles, entrada); });
}

QUELCNV_API int QUELCNV_CALL MyDll_rlandxml2nevo(const char* nombreRas, const char* entrada,
                                                 const char* salida) {
    return guarded(1, [&] {
        if (nombreRas == nullptr || !areUsablePaths(entrada, salida)) return 0;
        convertLandXmlProfile(nombreRas, entrada, salida, ProfileColumns::curveLengths);
        return 1;
    });
}

QUELCNV_API int QUELCNV_CALL MyDll_rlandxml2nevoWCE(const char* nombreRas, const char* entrada,
                                                    const char* salida) {
    return guarded(1, [&] {
        if (nombreRas == nullptr || !areUsablePaths(entrada, salida)) return 0;
        convertLandXmlProfile(nombreRas, entrada, salida, ProfileColumns::fiveColumns);
        return 1;
    });
}

QUELCNV_API void QUELCNV_CALL MyDll_seleccionaTransverLandXML(const char* entrada) {
    guardedVoid([&] { writeList(listLandXmlSurfaces, entrada); });
}

QUELCNV_API int QUELCNV_CALL MyDll_tralandxml2nevo(const char* transver, const char* capa,
                                                   const char* entrada, const char* salida) {
    return guarded(1, [&] {
        if (transver == nullptr || capa == nullptr || !areUsablePaths(entrada, salida)) return 0;
        sectionsToNevo(transver, capa, entrada, salida);
        return 1;
    });
}

QUELCNV_API int QUELCNV_CALL MyDll_tralandxml2nevoWCE(const char* transver, const char* capa,
                                                      const char* entrada, const char* salida) {
    return guarded(1, [&] {
        if (transver == nullptr || capa == nullptr || !areUsablePaths(entrada, salida)) return 0;
        importLandXmlSections(transver, capa, entrada, salida);
        return 1;
    });
}

}  // extern "C"
