// Vertical profiles (ProfAlign) out of a LandXML document: the list of the
// document's profiles for the host to choose from, and the chosen one's
// vertices with their vertical curves.
#pragma once

#include <memory>
#include <string>

#include "common/outcome.h"
#include "landxml/selection_list.h"
#include "profile/profile_vertex.h"

namespace quelcnv {

enum class ProfileColumns {
    curveLengths,  // "%10.3lf %8.3lf %9.3lf": station, elevation, curve length
    fiveColumns,   // station, elevation, kv, tangent, external, for Windows CE collectors
};

// The vertices of the profile whose combined name (its alignment's first
// attribute, ": ", its own first attribute) equals nombreRas without regard
// to case, with their vertical curves; none for a name that matches
// nothing. The outcome is the reading's: readerUnavailable, or a document
// not read to its end (wholeDocument false), whose vertices count for
// nothing.
struct LandXmlProfile {
    Outcome outcome;
    bool wholeDocument = false;
    Profile vertices;
};
LandXmlProfile readLandXmlProfile(const std::string& nombreRas, const std::string& entrada);

// Writes those vertices to salida, once the whole document has been read. A
// name that matches nothing gives an empty file; a document that cannot be
// read to its end writes nothing. Fails with readerUnavailable or
// outputUnwritable.
Outcome convertLandXmlProfile(const std::string& nombreRas, const std::string& entrada,
                              const std::string& salida, ProfileColumns columns);

// Writes to listPath "alignment: profile" for the first 256 profiles of the
// document, from their attributes named "name". Fails with outputUnwritable.
Outcome listLandXmlProfiles(const std::string& entrada, const std::string& listPath);

// The handler that gathers the names listLandXmlProfiles writes, for a caller that
// reads the document itself, alone or together with other handlers.
std::unique_ptr<NameLister> makeProfileLister();

}  // namespace quelcnv
