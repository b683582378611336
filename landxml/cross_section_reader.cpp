#include "landxml/cross_section_reader.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <vector>

#include "common/output_file.h"
#include "common/text_case.h"
#include "common/tokenizer.h"
#include "common/tolerance.h"
#include "crosssection/section_point_table.h"
#include "landxml/sax_reader.h"
#include "landxml/selection_list.h"

namespace quelcnv {

namespace {

bool hasName(const XmlAttributes& attributes, std::string_view wanted) {
    auto name = getAttributeText(attributes, "name");
    return name && equalsIgnoringCase(*name, wanted);
}

// Same point when stations and offsets are both within 0.0001; otherwise the
// lower station first, compared plainly even within 0.0001; at such stations
// the lower offset first unless a is the one with the lower station.
bool sortsBefore(const SectionPointText& a, const SectionPointText& b) {
    bool sameStation = std::fabs(a.station - b.station) < pointTolerance;
    if (sameStation && std::fabs(a.offset - b.offset) < pointTolerance) return false;
    if (a.station < b.station) return true;
    return sameStation && a.offset < b.offset;
}

class SectionReader : public SaxHandler {
public:
    SectionReader(const std::string& alignment, const std::string& surface,
                  const std::string& ruxoPath)
        : wantedAlignment_(alignment), wantedSurface_(surface), ruxoPath_(ruxoPath) {}

    Outcome outcome() const { return outcome_; }

    void startElement(std::string_view name, const XmlAttributes& attributes) override {
        if (equalsIgnoringCase(name, "Alignment")) {
            if (hasName(attributes, wantedAlignment_)) inAlignment_ = true;
        } else if (equalsIgnoringCase(name, "CrossSectSurf")) {
            if (hasName(attributes, wantedSurface_)) inSurface_ = true;
            surfaceDescription_ = getAttributeText(attributes, "desc").value_or("");
        } else if (equalsIgnoringCase(name, "PntList2D")) {
            inPointList_ = true;
        } else if (equalsIgnoringCase(name, "CrossSect")) {
            if (auto station = getAttributeNumber(attributes, "sta")) station_ = *station;
            sectionStarted_ = false;
        }
    }

    void endElement(std::string_view name) override {
        if (equalsIgnoringCase(name, "Alignment")) inAlignment_ = false;
        if (equalsIgnoringCase(name, "CrossSectSurf")) inSurface_ = false;
        if (equalsIgnoringCase(name, "PntList2D")) inPointList_ = false;
    }

    bool wantsText() const override { return inAlignment_ && inSurface_ && inPointList_; }

    // Offset and elevation pairs; a lone last number is left out. The points
    // of a surface described as "left" have their offsets negated.
    void characters(std::string_view text) override {
        constexpr Separators separators = " \n";
        inPointList_ = false;
        bool left = equalsIgnoringCase(surfaceDescription_, "left");
        Tokenizer tokens(text);
        if (!sectionStarted_) points_.startSection(station_);
        sectionStarted_ = true;
        while (auto pair = nextNumbers<2>(tokens, separators)) {
            double offset = left ? -(*pair)[0] : (*pair)[0];
            points_.add(offset, (*pair)[1], surfaceDescription_);
        }
    }

    void endDocument() override {
        if (points_.overflowed()) {
            outcome_ = Outcome::failed(Failure::rejected);
            return;
        }
        auto before = [](const auto& a, const auto& b) { return sortsBefore(a, b); };
        outcome_ = writeSortedPoints(points_, ruxoPath_, before, pointTolerance);
    }

private:
    std::string wantedAlignment_;
    std::string wantedSurface_;
    std::string ruxoPath_;
    Outcome outcome_;
    bool inAlignment_ = false;
    bool inSurface_ = false;
    bool inPointList_ = false;
    double station_ = 0.0;
    std::string surfaceDescription_;
    bool sectionStarted_ = false;  // the current section has a place in the table
    SectionPointTable points_;
};

// "alignment: surface" for each surface named under a named alignment, each
// combination once (names that differ only in letter case, which select the
// same points, being one), in the order the document first gives it. An
// alignment without a name leaves the last name standing.
class SurfaceLister : public NameLister {
public:
    explicit SurfaceLister(std::string_view surfaceElement) : surfaceElement_(surfaceElement) {}

    void startElement(std::string_view name, const XmlAttributes& attributes) override {
        if (equalsIgnoringCase(name, "Alignment")) {
            if (auto alignment = getAttributeText(attributes, "name")) alignment_ = *alignment;
            return;
        }
        if (!equalsIgnoringCase(name, surfaceElement_) || alignment_.empty()) return;
        auto surface = getAttributeText(attributes, "name");
        if (!surface) return;
        std::string combined = alignment_ + ": ";
        combined += *surface;
        if (listed_.insert(lowerCase(combined)).second) names.push_back(std::move(combined));
    }

private:
    std::string_view surfaceElement_;
    std::string alignment_;
    std::unordered_set<std::string> listed_;
};

}  // namespace

Outcome importLandXmlSections(const std::string& transver, const std::string& capa,
                              const std::string& entrada, const std::string& ruxoPath) {
    SectionReader reader(transver, capa, ruxoPath);
    return readWith(reader, entrada);
}

// The list is written even when no reader could be created (it is then empty).
Outcome listLandXmlSurfaces(const std::string& entrada, const std::string& listPath) {
    SurfaceLister lister("CrossSectSurf");
    return listNames(lister, lister.names, entrada, listPath, WithoutReader::listWritten);
}

std::unique_ptr<NameLister> makeSurfaceLister(std::string_view surfaceElement) {
    return std::make_unique<SurfaceLister>(surfaceElement);
}

}  // namespace quelcnv
