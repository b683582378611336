// The LandXML reading conversions: for alignments, profiles and cross
// sections, a selection that lists what the document holds in the scratch
// file "$$$$.EJE", and the conversions of the item the host then chose.
#include "alignment/nevo_alignment.h"
#include "crosssection/ruxo_sections.h"
#include "frame/conversion.h"
#include "landxml/alignment_reader.h"
#include "landxml/cross_section_reader.h"
#include "landxml/profile_reader.h"

namespace quelcnv {

namespace {

using Lister = Outcome (*)(const std::string& entrada, const std::string& listPath);

// entrada: the selection list written in the scratch folder.
template <Lister list>
Outcome selectionList(Call& a) {
    ScratchSession scratch(a.settings.scratchFolder);
    if (!scratch.ready()) return Outcome::failed(Failure::scratchUnavailable);
    return list(a[0], scratch.path(ScratchFile::selectionList));
}

// A negative selec chooses no alignment: the reader refuses it.
Outcome negativeSelection() {
    Outcome refused = Outcome::failed(Failure::invalidArgument);
    refused.inImport = true;
    return refused;
}

// selec, entrada, salida, pathAp: the alignment through the scratch RUXO file
// of the current folder (on Windows) to the NEVO writer.
Outcome alandxml2nevo(Call& a) {
    int selec = selection(a[0]);
    if (selec < 0) return negativeSelection();
    return chainThroughScratch(
        a.settings,
        [&](const std::string& temp) {
            return importLandXmlAlignment(a[1], selec, temp, a.settings.showMessage);
        },
        [&](const std::string& temp) { return convertRuxoAlignmentToNevo(temp, a[2], a[3]); },
        ScratchAfter::removed, ScratchFile::localTemp);
}

// selec, entrada, salida (the RUXO file), pathAp (not used).
Outcome alandxml2nevoWCE(Call& a) {
    int selec = selection(a[0]);
    if (selec < 0) return negativeSelection();
    Outcome read = importLandXmlAlignment(a[1], selec, a[2], a.settings.showMessage);
    read.inImport = !read.ok();
    return read;
}

// nombreRas, entrada, salida.
template <ProfileColumns columns>
Outcome profileConversion(Call& a) {
    return convertLandXmlProfile(a[0], a[1], a[2], columns);
}

// transver, capa, entrada, salida: the surface's points through the scratch
// RUXO file to the NEVO file.
Outcome tralandxml2nevo(Call& a) {
    return chainThroughScratch(
        a.settings,
        [&](const std::string& temp) { return importLandXmlSections(a[0], a[1], a[2], temp); },
        [&](const std::string& temp) { return convertRuxoSectionsToNevo(temp, a[3]); },
        ScratchAfter::removed);
}

Outcome tralandxml2nevoWCE(Call& a) { return importLandXmlSections(a[0], a[1], a[2], a[3]); }

}  // namespace

QUELCNV_CONVERSION(seleccionaTransverLandXML, selectionList<listLandXmlSurfaces>, HostResult::none,
                   ScratchFile::selectionList)
QUELCNV_CONVERSION(tralandxml2nevo, tralandxml2nevo, HostResult::alwaysDone, ScratchFile::chainTemp)
QUELCNV_CONVERSION(tralandxml2nevoWCE, tralandxml2nevoWCE, HostResult::alwaysDone)
QUELCNV_CONVERSION(seleccionaEjeLandXML, selectionList<listLandXmlAlignments>,
                   HostResult::listWritten, ScratchFile::selectionList)
QUELCNV_CONVERSION(alandxml2nevo, alandxml2nevo, HostResult::readerFlag, ScratchFile::localTemp)
QUELCNV_CONVERSION(alandxml2nevoWCE, alandxml2nevoWCE, HostResult::readerFlag)
QUELCNV_CONVERSION(seleccionaRasanteLandXML, selectionList<listLandXmlProfiles>, HostResult::none,
                   ScratchFile::selectionList)
QUELCNV_CONVERSION(rlandxml2nevo, profileConversion<ProfileColumns::curveLengths>,
                   HostResult::alwaysDone)
QUELCNV_CONVERSION(rlandxml2nevoWCE, profileConversion<ProfileColumns::fiveColumns>,
                   HostResult::alwaysDone)

}  // namespace quelcnv
