#include "landxml/profile_reader.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "common/numbers.h"
#include "common/output_file.h"
#include "common/text_case.h"
#include "common/tokenizer.h"
#include "landxml/sax_reader.h"
#include "landxml/selection_list.h"
#include "profile/profile_vertex.h"

namespace quelcnv {

namespace {

constexpr std::size_t maximumListedProfiles = 256;

std::string combinedName(std::string_view alignment, std::string_view profile) {
    std::string name(alignment);
    name += ": ";
    name += profile;
    return name;
}

// The parabola at vertex i: kv from the change of grade, and the sag. The
// last vertex has no grade leaving it.
void parabolaAt(Profile& vertices, std::size_t i) {
    ProfileVertex& v = vertices[i];
    double leaving = i + 1 < vertices.size() ? gradeBetween(v, vertices[i + 1]) : 0.0;
    double change = leaving - gradeBetween(vertices[i - 1], v);
    v.kv = std::fabs(2.0 * v.tangent / change);
    v.external = std::fabs(change * v.tangent * 0.25);
}

// The value as it was computed. Left to itself the optimiser squares |q|
// as q times q, which gives a not-a-number radius (0/0, at a vertex without
// a change of grade and without a curve) a sag of the other sign: "-nan"
// beside "nan". Squared as held, the sag follows its formula step by step.
double held(double value) {
    volatile double kept = value;
    return kept;
}

// The circle at vertex i: its radius in kv, from half the angle the two
// grades make, and the sag. The last vertex gets none.
void circleAt(Profile& vertices, std::size_t i) {
    ProfileVertex& v = vertices[i];
    if (i + 1 == vertices.size()) {
        v.kv = 0.0;
        v.external = 0.0;
        return;
    }
    double arriving = std::atan2(gradeBetween(vertices[i - 1], v), 1.0);
    double leaving = std::atan2(gradeBetween(v, vertices[i + 1]), 1.0);
    double half = (arriving - leaving) / 2.0;
    double radius = held(std::fabs(v.tangent / std::tan(half)));
    v.kv = radius;
    v.external = std::sqrt(radius * radius + v.tangent * v.tangent) - radius;
}

class ProfileReader : public SaxHandler {
public:
    explicit ProfileReader(const std::string& wantedName) : wantedName_(wantedName) {}

    Outcome outcome() const { return Outcome::done(); }
    bool reachedEnd() const { return reachedEnd_; }
    const Profile& vertices() const { return vertices_; }

    void startElement(std::string_view name, const XmlAttributes& attributes) override;

    bool wantsText() const override { return active_ && pointPending_; }

    // Station and elevation pairs; a lone last number is left out.
    void characters(std::string_view text) override {
        constexpr Separators separators = " \n";
        pointPending_ = false;
        Tokenizer tokens(text);
        while (auto pair = nextNumbers<2>(tokens, separators)) {
            ProfileVertex vertex;
            vertex.station = (*pair)[0];
            vertex.elevation = (*pair)[1];
            vertex.tangent = curveLength_ * 0.5;
            vertices_.push_back(vertex);
        }
    }

    void endDocument() override;

private:
    std::string wantedName_;
    bool reachedEnd_ = false;
    std::string alignmentName_;
    bool active_ = false;
    bool pointPending_ = false;
    double curveLength_ = 0.0;
    bool circular_ = false;
    Profile vertices_;
};

// A CircCurve gives its length as its first attribute, whatever its name:
// the position is what counts, as in the documents the host has always
// exchanged.
void ProfileReader::startElement(std::string_view name, const XmlAttributes& attributes) {
    curveLength_ = 0.0;
    circular_ = false;
    if (equalsIgnoringCase(name, "Alignment")) {
        alignmentName_ = firstAttributeText(attributes).value_or("");
        active_ = false;
    } else if (equalsIgnoringCase(name, "ProfAlign")) {
        std::string combined =
            combinedName(alignmentName_, firstAttributeText(attributes).value_or(""));
        active_ = equalsIgnoringCase(combined, wantedName_);
    } else if (!active_) {
        return;
    } else if (equalsIgnoringCase(name, "PVI")) {
        pointPending_ = true;
    } else if (equalsIgnoringCase(name, "ParaCurve")) {
        pointPending_ = true;
        curveLength_ = getAttributeNumber(attributes, "length").value_or(0.0);
    } else if (equalsIgnoringCase(name, "CircCurve")) {
        circular_ = true;
        pointPending_ = true;
        if (auto first = firstAttributeText(attributes)) curveLength_ = parseNumber(*first);
    }
}

// The whole profile is worked out by one rule: circles when the last element
// the document started was a CircCurve, parabolas otherwise; the vertex
// files the collectors received have always been computed so.
void ProfileReader::endDocument() {
    for (std::size_t i = 1; i < vertices_.size(); ++i) {
        if (circular_)
            circleAt(vertices_, i);
        else
            parabolaAt(vertices_, i);
    }
    reachedEnd_ = true;
}

// "alignment: profile" from the attributes named "name". An alignment
// without one leaves the last name standing.
class ProfileLister : public NameLister {
public:
    void startElement(std::string_view name, const XmlAttributes& attributes) override {
        if (equalsIgnoringCase(name, "Alignment")) {
            if (auto alignment = getAttributeText(attributes, "name")) alignment_ = *alignment;
            return;
        }
        if (!equalsIgnoringCase(name, "ProfAlign")) return;
        auto profile = getAttributeText(attributes, "name");
        if (!profile || names.size() >= maximumListedProfiles || isListed(*profile)) return;
        names.push_back(combinedName(alignment_, *profile));
    }

private:
    // The bare profile name is compared with the listed "alignment: profile"
    // texts, so in practice every profile is listed; kept as the host knows it.
    bool isListed(std::string_view profile) const {
        return std::any_of(names.begin(), names.end(), [&](const std::string& listed) {
            return equalsIgnoringCase(listed, profile);
        });
    }

    std::string alignment_;
};

}  // namespace

LandXmlProfile readLandXmlProfile(const std::string& nombreRas, const std::string& entrada) {
    ProfileReader reader(nombreRas);
    LandXmlProfile read;
    read.outcome = readWith(reader, entrada);
    read.wholeDocument = reader.reachedEnd();
    read.vertices = reader.vertices();
    return read;
}

Outcome convertLandXmlProfile(const std::string& nombreRas, const std::string& entrada,
                              const std::string& salida, ProfileColumns columns) {
    LandXmlProfile read = readLandXmlProfile(nombreRas, entrada);
    if (!read.wholeDocument) return read.outcome;
    Outcome written = writeWholeFile(salida, [&](OutputFile& out) {
        for (const ProfileVertex& v : read.vertices) {
            if (columns == ProfileColumns::fiveColumns)
                out.print("%10.3lf %8.3lf %9.3lf %8.3lf %8.3lf\n"_fmt, v.station, v.elevation, v.kv,
                          v.tangent, v.external);
            else
                out.print("%10.3lf %8.3lf %9.3lf\n"_fmt, v.station, v.elevation, 2.0 * v.tangent);
        }
    });
    written.written.vertices = static_cast<long>(read.vertices.size());
    return written;
}

// The list is written even when no reader could be created (it is then empty).
Outcome listLandXmlProfiles(const std::string& entrada, const std::string& listPath) {
    ProfileLister lister;
    return listNames(lister, lister.names, entrada, listPath, WithoutReader::listWritten);
}

std::unique_ptr<NameLister> makeProfileLister() { return std::make_unique<ProfileLister>(); }

}  // namespace quelcnv
