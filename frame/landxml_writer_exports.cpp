// The entry points that write LandXML: alignments from a RUXO alignment file
// or through an alignment importer, profiles from the profile files the NEVO
// conversions read, cross sections from comma-separated points or through a
// cross-section importer.
#include <cstdio>
#include <string>

#include "alignment/clip_plt_alignment.h"
#include "alignment/htrazado_alignment.h"
#include "alignment/ispol_alignment.h"
#include "alignment/istram_alignment.h"
#include "alignment/istram_listing_alignment.h"
#include "common/scratch.h"
#include "crosssection/clip_ter_sections.h"
#include "crosssection/clip_trv_sections.h"
#include "crosssection/htrazado_sections.h"
#include "crosssection/istram_sections.h"
#include "crosssection/mxroad_sections.h"
#include "crosssection/ruxo_sections.h"
#include "frame/entry_guard.h"
#include "landxml/alignment_writer.h"
#include "landxml/cross_section_writer.h"
#include "landxml/profile_writer.h"
#include "profile/ispol_profile.h"
#include "profile/istram_profile.h"
#include "profile/velm_profile.h"
#include "quelcnv.h"

namespace quelcnv {
namespace {

using Importer = Outcome (*)(const std::string& entrada, const std::string& ruxoPath);
using ProfileReader = ProfileRead (*)(const std::string& path);

// The importer writes the scratch RUXO alignment file, and only when it
// succeeded is the document written from it. 1 whatever happened.
int alignmentToLandXml(Importer import, const char* entrada, const char* salida) {
    return guarded(1, [&] {
        if (!areUsablePaths(entrada, salida)) return 0;
        ScratchSession scratch;
        if (!scratch.ready()) return 1;
        std::string temp = scratch.path(ScratchFile::chainTemp);
        if (import(entrada, temp).ok()) convertRuxoAlignmentToLandXml(temp, salida);
        std::remove(temp.c_str());
        return 1;
    });
}

Outcome profileToLandXml(ProfileReader read, const std::string& entrada,
                         const std::string& salida) {
    ProfileRead profile = read(entrada);
    if (!profile.outcome.ok()) return profile.outcome;
    return writeLandXmlProfile(profile.vertices, salida);
}

// The points the importer writes to the scratch RUXO file, as a document
// whose surface is named after entrada.
Outcome importedSectionsToLandXml(Importer import, const std::string& entrada,
                                  const std::string& salida) {
    ScratchSession scratch;
    if (!scratch.ready()) return Outcome::failed(Failure::scratchUnavailable);
    std::string temp = scratch.path(ScratchFile::chainTemp);
    Outcome imported = import(entrada, temp);
    SectionPoints read = imported.ok() ? readRuxoSections(temp) : SectionPoints{imported, {}};
    std::remove(temp.c_str());
    if (!read.outcome.ok()) return read.outcome;
    return writeLandXmlSections(read.points, entrada, salida);
}

// 1 when the document was written, 0 when the input could not be read or
// gave nothing.
int sectionsToLandXml(Importer import, const char* entrada, const char* salida) {
    return guarded(0, [&] {
        if (!areUsablePaths(entrada, salida)) return 0;
        return importedSectionsToLandXml(import, entrada, salida).ok() ? 1 : 0;
    });
}

Outcome commaSectionsToLandXml(const std::string& entrada, const std::string& salida) {
    SectionPoints read = readCommaSections(entrada);
    if (!read.outcome.ok()) return read.outcome;
    return writeLandXmlSections(read.points, entrada, salida);
}

Outcome velmProfileToLandXml(const std::string& entrada, const std::string& salida) {
    return profileToLandXml(readVelmProfile, entrada, salida);
}

Outcome istramProfileToLandXml(const std::string& entrada, const std::string& salida) {
    return profileToLandXml(readIstramProfile, entrada, salida);
}

Outcome ispolProfileToLandXml(const std::string& entrada, const std::string& salida) {
    return profileToLandXml(readIspolProfile, entrada, salida);
}

}  // namespace
}  // namespace quelcnv

extern "C" {

using namespace quelcnv;

QUELCNV_API int QUELCNV_CALL MyDll_aVELM2LandXML(const char* entrada, const char* salida) {
    return guarded(1, [&] {
        if (!areUsablePaths(entrada, salida)) return 0;
        convertRuxoAlignmentToLandXml(entrada, salida);
        return 1;
    });
}

QUELCNV_API int QUELCNV_CALL MyDll_aistram2LandXML(const char* entrada, const char* salida) {
    return alignmentToLandXml(importIstramAlignment, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_ahtrazado2LandXML(const char* entrada, const char* salida) {
    return alignmentToLandXml(importHtrazadoAlignment, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_aclipplt2LandXML(const char* entrada, const char* salida) {
    return alignmentToLandXml(importClipPltAlignment, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_aistramList2LandXML(const char* entrada, const char* salida) {
    return alignmentToLandXml(importIstramListingAlignment, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_aispol2LandXML(const char* entrada, const char* salida) {
    return alignmentToLandXml(importIspolAlignment, entrada, salida);
}

// The VELM profile conversion returns 1 whatever happened, as the host
// expects of it; the two listings tell a failure.
QUELCNV_API int QUELCNV_CALL MyDll_rvelm2landxml(const char* entrada, const char* salida) {
    return guarded(1, [&] {
        if (!areUsablePaths(entrada, salida)) return 0;
        velmProfileToLandXml(entrada, salida);
        return 1;
    });
}

QUELCNV_API int QUELCNV_CALL MyDll_ristram2landxml(const char* entrada, const char* salida) {
    return convertFile(istramProfileToLandXml, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_rispol2landxml(const char* entrada, const char* salida) {
    return convertFile(ispolProfileToLandXml, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_travelm2landxml(const char* entrada, const char* salida) {
    return convertFile(commaSectionsToLandXml, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_traistram2landxml(const char* entrada, const char* salida) {
    return sectionsToLandXml(importIstramSections, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_tramxroad2landxml(const char* entrada, const char* salida) {
    return sectionsToLandXml(importMxroadSections, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_traclip2landxml(const char* entrada, const char* salida) {
    return sectionsToLandXml(importClipTerSections, entrada, salida);
}

QUELCNV_API int QUELCNV_CALL MyDll_tracliptrv2landxml(const char* entrada, const char* salida) {
    return sectionsToLandXml(importClipTrvSections, entrada, salida);
}

// The name keeps its transposed letters: the host binds by it.
QUELCNV_API int QUELCNV_CALL MyDll_trahtrazado2lamdxml(const char* entrada, const char* salida) {
    return sectionsToLandXml(importHtrazadoSections, entrada, salida);
}

}  // extern "C"
