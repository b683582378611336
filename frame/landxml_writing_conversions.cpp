// The conversions that write LandXML: alignments from a RUXO alignment file
// or through an alignment importer, profiles from the profile files the NEVO
// conversions read, cross sections from comma-separated points or through a
// cross-section importer.
#include "alignment/clip_plt_alignment.h"
#include "alignment/htrazado_alignment.h"
#include "alignment/ispol_alignment.h"
#include "alignment/istram_alignment.h"
#include "alignment/istram_listing_alignment.h"
#include "crosssection/clip_ter_sections.h"
#include "crosssection/clip_trv_sections.h"
#include "crosssection/htrazado_sections.h"
#include "crosssection/istram_sections.h"
#include "crosssection/mxroad_sections.h"
#include "crosssection/ruxo_sections.h"
#include "frame/conversion.h"
#include "landxml/alignment_writer.h"
#include "landxml/cross_section_writer.h"
#include "landxml/profile_writer.h"
#include "profile/ispol_profile.h"
#include "profile/istram_profile.h"
#include "profile/velm_profile.h"

namespace quelcnv {

namespace {

using ProfileReader = ProfileRead (*)(const std::string& path);

// entrada, salida: the importer writes the scratch RUXO alignment file, and
// only when it succeeded is the document written from it.
template <FileConversion import>
Outcome alignmentToLandXml(Call& a) {
    return chainThroughScratch(
        a.settings, [&](const std::string& temp) { return import(a[0], temp); },
        [&](const std::string& temp) { return convertRuxoAlignmentToLandXml(temp, a[1]); },
        ScratchAfter::removed);
}

Outcome aVELM2LandXML(Call& a) { return convertRuxoAlignmentToLandXml(a[0], a[1]); }

template <ProfileReader read>
Outcome profileToLandXml(Call& a) {
    ProfileRead profile = read(a[0]);
    if (!profile.outcome.ok()) return profile.outcome;
    return writeLandXmlProfile(profile.vertices, a[1]);
}

using SectionsReader = Outcome (*)(const std::string& path, const EachPoint& each);

// The points of a cross-section file as a document whose surface is named
// after entrada.
template <SectionsReader read>
Outcome sectionsToLandXml(const std::string& points, Call& a) {
    LandXmlSections sections;
    Outcome reading = read(points, [&](const SectionPointText& p) { sections.add(p); });
    if (!reading.ok()) return reading;
    return writeLandXmlSections(sections, a[0], a[1]);
}

template <FileConversion import>
Outcome importedSectionsToLandXml(Call& a) {
    return chainThroughScratch(
        a.settings, [&](const std::string& temp) { return import(a[0], temp); },
        [&](const std::string& temp) { return sectionsToLandXml<readRuxoSections>(temp, a); },
        ScratchAfter::removed);
}

Outcome travelm2landxml(Call& a) { return sectionsToLandXml<readCommaSections>(a[0], a); }

}  // namespace

QUELCNV_CONVERSION(travelm2landxml, travelm2landxml, HostResult::doneOrFailed)
QUELCNV_CONVERSION(tracliptrv2landxml, importedSectionsToLandXml<importClipTrvSections>,
                   HostResult::doneOrFailed, ScratchFile::chainTemp)
QUELCNV_CONVERSION(traclip2landxml, importedSectionsToLandXml<importClipTerSections>,
                   HostResult::doneOrFailed, ScratchFile::chainTemp)
QUELCNV_CONVERSION(traistram2landxml, importedSectionsToLandXml<importIstramSections>,
                   HostResult::doneOrFailed, ScratchFile::chainTemp)
QUELCNV_CONVERSION(tramxroad2landxml, importedSectionsToLandXml<importMxroadSections>,
                   HostResult::doneOrFailed, ScratchFile::chainTemp)
// The name keeps its transposed letters: the host binds by it.
QUELCNV_CONVERSION(trahtrazado2lamdxml, importedSectionsToLandXml<importHtrazadoSections>,
                   HostResult::doneOrFailed, ScratchFile::chainTemp)
QUELCNV_CONVERSION(aVELM2LandXML, aVELM2LandXML, HostResult::alwaysDone)
QUELCNV_CONVERSION(aistram2LandXML, alignmentToLandXml<importIstramAlignment>,
                   HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(ahtrazado2LandXML, alignmentToLandXml<importHtrazadoAlignment>,
                   HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(aclipplt2LandXML, alignmentToLandXml<importClipPltAlignment>,
                   HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(aistramList2LandXML, alignmentToLandXml<importIstramListingAlignment>,
                   HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(aispol2LandXML, alignmentToLandXml<importIspolAlignment>, HostResult::alwaysDone,
                   ScratchFile::chainTemp)
// The VELM profile conversion gives 1 whatever happened, as the host
// expects of it; the two listings tell a failure.
QUELCNV_CONVERSION(rvelm2landxml, profileToLandXml<readVelmProfile>, HostResult::alwaysDone)
QUELCNV_CONVERSION(ristram2landxml, profileToLandXml<readIstramProfile>, HostResult::doneOrFailed)
QUELCNV_CONVERSION(rispol2landxml, profileToLandXml<readIspolProfile>, HostResult::doneOrFailed)

}  // namespace quelcnv
