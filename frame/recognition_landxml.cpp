#include <array>
#include <memory>
#include <optional>
#include <unordered_set>

#include "common/text_case.h"
#include "frame/recognition_rules.h"
#include "landxml/alignment_reader.h"
#include "landxml/cross_section_reader.h"
#include "landxml/profile_reader.h"
#include "landxml/sax_reader.h"

namespace quelcnv::recognition {

namespace {

// One reading of the document for everything the summary tells: the root
// element, the linear unit, and the names of the three selection lists (by
// the listers of the selections themselves) and of the design surfaces.
class ContentsReader : public SaxHandler {
public:
    std::string root;
    std::string linearUnit;
    bool imperialWithoutUnit = false;
    std::unique_ptr<NameLister> alignments = makeAlignmentLister();
    std::unique_ptr<NameLister> profiles = makeProfileLister();
    std::unique_ptr<NameLister> surfaces = makeSurfaceLister();
    // Civil 3D corridors give their cross sections as DesignCrossSectSurf
    // elements, which the conversions do not read: listed apart.
    std::unique_ptr<NameLister> designSurfaces = makeSurfaceLister("DesignCrossSectSurf");

    void startElement(std::string_view name, const XmlAttributes& attributes) override {
        if (root.empty()) root = name;
        if (name == "Metric" || name == "Imperial") readUnit(name, attributes);
        for (NameLister* lister : listers()) lister->startElement(name, attributes);
    }

    void endElement(std::string_view name) override {
        for (NameLister* lister : listers()) lister->endElement(name);
    }

private:
    std::array<NameLister*, 4> listers() {
        return {alignments.get(), profiles.get(), surfaces.get(), designSurfaces.get()};
    }

    void readUnit(std::string_view name, const XmlAttributes& attributes) {
        std::optional<std::string_view> unit = getAttributeText(attributes, "linearUnit");
        linearUnit = unit.value_or("");
        imperialWithoutUnit = !unit && name == "Imperial";
    }
};

bool isMetres(std::string_view unit) {
    return unit.empty() || equalsIgnoringCase(unit, "meter") || equalsIgnoringCase(unit, "metre");
}

LandXmlContents contentsOf(const ContentsReader& reader) {
    return {reader.linearUnit, reader.alignments->names, reader.profiles->names,
            reader.surfaces->names, reader.designSurfaces->names};
}

// A document that breaks off at its last line was cut short; one that goes
// wrong before is malformed.
Problem breakOf(const SaxResult& read, long lines) {
    ProblemKind kind = read.line >= lines ? ProblemKind::cutShort : ProblemKind::malformedXml;
    return {kind, read.line, 0, {}};
}

}  // namespace

void summariseXml(const std::string& path, FileSummary& summary) {
    ContentsReader reader;
    SaxResult read = runSaxParse(reader, path);
    walkFile(path, summary, [](const WalkedLine&) {});
    bool broken = read.created && read.end == SaxEnd::malformed;
    if (!equalsIgnoringCase(reader.root, "LandXML")) {
        if (broken) summary.problems.push_back({ProblemKind::malformedXml, read.line, 0, {}});
        return;
    }
    summary.format = FileFormat::landXml;
    summary.kind = DataKind::landXml;
    summary.certainty = Certainty::certain;
    summary.landXml = contentsOf(reader);
    if (broken) summary.problems.push_back(breakOf(read, summary.lines));
    if (!isMetres(reader.linearUnit))
        summary.problems.push_back({ProblemKind::nonMetricUnit, 0, 0, reader.linearUnit});
    else if (reader.imperialWithoutUnit)
        summary.problems.push_back({ProblemKind::nonMetricUnit, 0, 0, "Imperial"});
}

}  // namespace quelcnv::recognition
