// What the command adds to the LandXML conversions: the document's contents
// without converting, an alignment chosen by its name, a surface given as
// the list shows it, and a warning on units that are not metres.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quelcnv::cli {

struct LandXmlContents {
    std::vector<std::string> alignments, profiles, surfaces;
};

// The names the three selection lists would offer; nothing when the
// document cannot be read at all.
std::optional<LandXmlContents> readContents(const std::string& path);

// quelcnv contenido FICHERO.xml: prints the contents; the exit status.
int showContents(const std::string& path);

// The alignment's index for a name given in place of selec; nothing when
// the document has no alignment of that name.
std::optional<int> alignmentIndex(const std::string& path, const std::string& name);

// The linear unit a document declares when it is not metres ("foot",
// "USSurveyFoot", ...); nothing for metres or no declaration.
std::optional<std::string> nonMetricUnit(const std::string& path);

// Says on standard error that the document's coordinates are taken as
// metres when it declares another unit.
void warnOfNonMetricUnit(const std::string& path);

}  // namespace quelcnv::cli
