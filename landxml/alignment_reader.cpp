#include "landxml/alignment_reader.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "alignment/geometry.h"
#include "common/output_file.h"
#include "common/tolerance.h"
#include "landxml/sax_reader.h"
#include "landxml/selection_list.h"

namespace quelcnv {

namespace {

// Fields still unknown while an element is put together; compared exactly.
constexpr double unknownLength = -987654.0;
constexpr double unknownAzimuth = -543210.0;
// Longer point texts are not read at all.
constexpr std::size_t longestPointText = 127;
// A full turn in radians as the arc lengths are measured: this rounded
// value, which the lengths in the collectors' files have always come from.
constexpr double fullTurnRadians = 6.283185308;

constexpr char clothoidAtStart[] =
    "El eje no puede empezar con una clotoide con radio inicial distinto de infinito. \n"
    "La importacion no es correcta";
constexpr char clothoidAfterLine[] =
    "Hay una recta antes de una clotoide con radio inicial distinto de infinito. \n"
    "La importacion no es correcta";

// One geometry element of the alignment, as read and completed.
struct GeometryElement {
    std::int32_t type = straightElement;
    double station = 0.0;
    PlanePoint start;
    double azimuth = 0.0;
    double radius = 0.0;  // negative when turning counter-clockwise; at a clothoid's end
    double parameter = 0.0;
    double length = 0.0;
};

// The point elements whose text the reader takes, in the order a text
// serves them when several wait for one.
enum PointElement { startPoint, centerPoint, piPoint, endPoint, pointElements };

constexpr std::string_view pointElementNames[pointElements] = {"Start", "Center", "PI", "End"};

// The direction from a to b in grads, clockwise from north; 0 when they are
// the same point.
double azimuthBetween(PlanePoint a, PlanePoint b) {
    if (samePoint(a, b)) return 0.0;
    return normalizeGrads(std::atan2(b.x - a.x, b.y - a.y) * radiansToGrads);
}

// The direction of the tangent of an arc at a point, from the centre.
double arcTangentAt(PlanePoint center, PlanePoint p, double radius) {
    return normalizeGrads(azimuthBetween(center, p) + 100.0 * signWithTolerance(radius));
}

// The angle of the vector from the centre to p, in radians within one turn.
double angleFromCenter(PlanePoint center, PlanePoint p) {
    double angle = std::atan2(p.x - center.x, p.y - center.y);
    if (angle < 0.0) angle += fullTurnRadians;
    if (angle >= fullTurnRadians) angle -= fullTurnRadians;
    return angle;
}

class AlignmentReader : public SaxHandler {
public:
    AlignmentReader(int wanted, const ErrorMessage& showMessage)
        : wanted_(wanted), showMessage_(showMessage) {}

    Outcome outcome() const { return outcome_; }
    bool reachedEnd() const { return reachedEnd_; }
    // The key points of the alignment, as the RUXO file holds them.
    std::vector<AlignmentRecord> records() const;

    void startElement(std::string_view name, const XmlAttributes& attributes) override {
        waiting_[startPoint] = waiting_[endPoint] = false;
        if (name == "Metric") return;
        if (name == "Alignment") return startAlignment(attributes);
        if (!active_) return;
        for (int p = 0; p < pointElements; ++p)
            if (name == pointElementNames[p]) waiting_[p] = true;
        if (name == "Line") startLine(attributes);
        if (name == "Curve") startCurve(attributes);
        if (name == "Spiral") startSpiral(attributes);
    }

    bool wantsText() const override {
        return std::find(std::begin(waiting_), std::end(waiting_), true) != std::end(waiting_);
    }

    void characters(std::string_view text) override {
        if (text.size() > longestPointText) return;
        for (int p = 0; p < pointElements; ++p) {
            if (!waiting_[p]) continue;
            parsePointText(text, points_[p]);
            waiting_[p] = false;
            return;
        }
    }

    void endElement(std::string_view name) override {
        if (active_ && (name == "Line" || name == "Curve" || name == "Spiral")) endGeometry();
    }

    void endDocument() override;

private:
    PlanePoint point(PointElement p) const { return {points_[p].x, points_[p].y}; }

    void startAlignment(const XmlAttributes& attributes);
    void readStationAndLength(const XmlAttributes& attributes);
    void startLine(const XmlAttributes& attributes);
    void startCurve(const XmlAttributes& attributes);
    void startSpiral(const XmlAttributes& attributes);
    void checkClothoidStart();
    void endGeometry();
    void completeDirection();
    void completeLength();
    double endAzimuth() const;
    void closeAlignment();

    int wanted_;
    bool reachedEnd_ = false;
    const ErrorMessage& showMessage_;
    Outcome outcome_;
    int alignments_ = 0;
    bool active_ = false;
    PointText points_[pointElements];
    bool waiting_[pointElements] = {};
    GeometryElement element_;
    double endAzimuth_ = 0.0;
    double startStation_ = 0.0;
    double alignmentLength_ = unknownLength;
    std::vector<GeometryElement> elements_;
};

void AlignmentReader::startAlignment(const XmlAttributes& attributes) {
    active_ = alignments_++ == wanted_;
    if (!active_) return;
    startStation_ = getAttributeNumber(attributes, "staStart").value_or(0.0);
    alignmentLength_ = getAttributeNumber(attributes, "length").value_or(unknownLength);
}

// The station and length a line or an arc gives, its direction (and, with
// no length given, its length) to be worked out from its points.
void AlignmentReader::readStationAndLength(const XmlAttributes& attributes) {
    element_.station = getAttributeNumber(attributes, "staStart").value_or(0.0);
    element_.length = getAttributeNumber(attributes, "length").value_or(unknownLength);
    element_.azimuth = unknownAzimuth;
}

void AlignmentReader::startLine(const XmlAttributes& attributes) {
    element_ = GeometryElement{};
    element_.type = straightElement;
    readStationAndLength(attributes);
}

void AlignmentReader::startCurve(const XmlAttributes& attributes) {
    element_ = GeometryElement{};
    element_.type = arcElement;
    std::optional<double> radius = getAttributeNumber(attributes, "radius");
    // Without a radius the arc stays all zeros: no direction or length is
    // worked out for it.
    if (!radius) return;
    element_.radius = getAttributeText(attributes, "rot") == "ccw" ? -*radius : *radius;
    readStationAndLength(attributes);
}

// A radius of 0 is infinite; "INF", being no number, reads as 0 too.
void AlignmentReader::startSpiral(const XmlAttributes& attributes) {
    element_ = GeometryElement{};
    element_.type = clothoidElement;
    double r1 = getAttributeNumber(attributes, "radiusStart").value_or(0.0);
    double r2 = getAttributeNumber(attributes, "radiusEnd").value_or(0.0);
    if (r1 != 0.0) checkClothoidStart();
    element_.radius = getAttributeText(attributes, "rot") == "ccw" ? -r2 : r2;
    element_.station = getAttributeNumber(attributes, "staStart").value_or(0.0);
    double length = getAttributeNumber(attributes, "length").value_or(0.0);
    element_.length = length;
    if (r1 == 0.0) {
        element_.parameter = std::sqrt(std::fabs(r2) * length);
    } else if (r2 != 0.0) {
        double rMin = std::min(r1, r2);
        double rMax = std::max(r1, r2);
        element_.parameter = std::sqrt(std::fabs(rMax * length / (rMin - rMax)) * std::fabs(rMin));
    } else {
        element_.parameter = std::sqrt(std::fabs(r1) * length);
    }
    element_.azimuth = unknownAzimuth;
}

// A clothoid that starts at a finite radius must follow a curve: at the start
// of the alignment or after a line the import is not correct. The reading
// goes on all the same.
void AlignmentReader::checkClothoidStart() {
    const char* message = nullptr;
    if (elements_.empty())
        message = clothoidAtStart;
    else if (elements_.back().type == straightElement)
        message = clothoidAfterLine;
    if (message == nullptr) return;
    showMessage_(message);
    outcome_ = Outcome::failed(Failure::rejected);
}

void AlignmentReader::endGeometry() {
    element_.start = point(startPoint);
    if (element_.azimuth == unknownAzimuth) completeDirection();
    if (element_.length == unknownLength) completeLength();
    elements_.push_back(element_);
    endAzimuth_ = endAzimuth();
}

void AlignmentReader::completeDirection() {
    if (element_.type == straightElement)
        element_.azimuth = azimuthBetween(point(startPoint), point(endPoint));
    else if (element_.type == arcElement)
        element_.azimuth = arcTangentAt(point(centerPoint), point(startPoint), element_.radius);
    else
        element_.azimuth = azimuthBetween(point(startPoint), point(piPoint));
}

// A clothoid's length is never worked out. An arc's is measured from the
// angles of its ends within one turn, so an arc whose ends lie on both sides
// of north is measured the long way round: kept, as the stations of the
// alignments already set out from such documents depend on it.
void AlignmentReader::completeLength() {
    if (element_.type == straightElement) {
        PlanePoint a = point(startPoint);
        PlanePoint b = point(endPoint);
        element_.length = std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
    } else if (element_.type == arcElement) {
        double turned = angleFromCenter(point(centerPoint), point(endPoint)) -
                        angleFromCenter(point(centerPoint), point(startPoint));
        element_.length = std::fabs(turned * element_.radius);
    }
}

// A clothoid's end direction is taken from the last centre read, which
// belongs to an earlier arc: the rule the instruments' files were always
// made with.
double AlignmentReader::endAzimuth() const {
    if (element_.type == straightElement) return element_.azimuth;
    if (element_.type == arcElement)
        return arcTangentAt(point(centerPoint), point(endPoint), element_.radius);
    return azimuthBetween(point(centerPoint), point(endPoint));
}

// The end point as a last record, unless the last element already ends at
// its station; then the stations from the alignment's start, element after
// element.
void AlignmentReader::closeAlignment() {
    const GeometryElement& last = elements_.back();
    GeometryElement closing;
    closing.type = straightElement;
    closing.station =
        alignmentLength_ != unknownLength ? alignmentLength_ : last.station + last.length;
    closing.start = point(endPoint);
    closing.azimuth = endAzimuth_;
    closing.radius = element_.radius;
    closing.parameter = element_.parameter;
    if (std::fabs(closing.station - last.station) >= pointTolerance) elements_.push_back(closing);
    elements_.front().station = startStation_;
    for (std::size_t i = 1; i < elements_.size(); ++i)
        elements_[i].station = elements_[i - 1].station + elements_[i - 1].length;
}

void AlignmentReader::endDocument() {
    if (!elements_.empty()) closeAlignment();
    reachedEnd_ = true;
}

std::vector<AlignmentRecord> AlignmentReader::records() const {
    std::vector<AlignmentRecord> records;
    for (const GeometryElement& e : elements_) {
        AlignmentRecord record =
            keyPoint(e.station, e.start.x, e.start.y, e.azimuth, e.radius, e.parameter);
        record.type = elementTypeOf(e.parameter, e.radius);
        records.push_back(record);
    }
    return records;
}

// The first attribute of every Alignment.
class AlignmentLister : public NameLister {
public:
    void startElement(std::string_view name, const XmlAttributes& attributes) override {
        if (name != "Alignment") return;
        if (auto first = firstAttributeText(attributes))
            names.emplace_back(*first);
        else
            names.emplace_back();
    }
};

}  // namespace

LandXmlAlignment readLandXmlAlignment(const std::string& entrada, int selec,
                                      const ErrorMessage& showMessage) {
    AlignmentReader reader(selec, showMessage);
    LandXmlAlignment read;
    read.outcome = readWith(reader, entrada);
    read.outcome.refusedBefore =
        read.outcome.failure != Failure::rejected && !reader.outcome().ok();
    read.wholeDocument = reader.reachedEnd();
    read.records = reader.records();
    return read;
}

Outcome importLandXmlAlignment(const std::string& entrada, int selec, const std::string& ruxoPath,
                               const ErrorMessage& showMessage) {
    LandXmlAlignment read = readLandXmlAlignment(entrada, selec, showMessage);
    if (!read.wholeDocument) return read.outcome;
    Outcome written = writeWholeFile(ruxoPath, [&](OutputFile& out) {
        for (const AlignmentRecord& r : read.records)
            out.print("%0.8lf\t%0.8lf\t%0.8lf\t%0.8lf\t%0.8lf\t%0.8lf\n"_fmt, r.station, r.x, r.y,
                      r.azimuth, r.parameter, r.radius);
    });
    if (!written.ok()) {
        // Refused or not, what could not be written is the failure.
        written.refusedBefore = true;
        return written;
    }
    read.outcome.written = written.written;
    read.outcome.written.records = static_cast<long>(read.records.size());
    return read.outcome;
}

Outcome listLandXmlAlignments(const std::string& entrada, const std::string& listPath) {
    AlignmentLister lister;
    return listNames(lister, lister.names, entrada, listPath, WithoutReader::listNotWritten);
}

std::unique_ptr<NameLister> makeAlignmentLister() { return std::make_unique<AlignmentLister>(); }

}  // namespace quelcnv
