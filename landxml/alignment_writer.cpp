#include "landxml/alignment_writer.h"

#include <cmath>
#include <optional>
#include <vector>

#include "alignment/geometry.h"
#include "alignment/ruxo_alignment_file.h"
#include "common/file_path.h"
#include "common/text_format.h"

namespace quelcnv {

namespace {

using Records = std::vector<AlignmentRecord>;

// Lines through a key point are drawn to the point this far along them.
constexpr double constructionLength = 1000.0;
// The parameter a clothoid without one is given.
constexpr double missingParameter = 9000000000.0;

// A point element: northing first, then easting. Lines that meet nowhere
// give a point of zeros.
void writePoint(XmlWriter& writer, std::string_view name, std::optional<PlanePoint> point) {
    PlanePoint p = point.value_or(PlanePoint{});
    writer.clearAttributes();
    writer.writeStartElement(name);
    writer.writeText(formatText("%0.6lf %0.6lf"_fmt, p.y, p.x));
    writer.writeEndElement(name);
}

PlanePoint pointOf(const AlignmentRecord& r) { return {r.x, r.y}; }

// Where the lines through two key points at these directions meet.
std::optional<PlanePoint> meeting(const AlignmentRecord& a, double azimuthA,
                                  const AlignmentRecord& b, double azimuthB) {
    PlanePoint p = pointOf(a);
    PlanePoint q = pointOf(b);
    return lineIntersection(p, pointAlong(p, constructionLength, azimuthA), q,
                            pointAlong(q, constructionLength, azimuthB));
}

// The PI: where the tangents at both ends meet.
std::optional<PlanePoint> tangentsMeeting(const AlignmentRecord& a, const AlignmentRecord& b) {
    return meeting(a, a.azimuth, b, b.azimuth);
}

const char* rotation(double radius) { return radius > 0.0 ? "cw" : "ccw"; }

void writeLine(XmlWriter& writer, const AlignmentRecord& r, const AlignmentRecord& next) {
    writer.clearAttributes();
    writer.addNumberAttribute("length", r.length, 6);
    writer.addNumberAttribute("dir", r.azimuth, 8);
    writer.writeStartElement("Line");
    writePoint(writer, "Start", pointOf(r));
    writePoint(writer, "End", pointOf(next));
    writer.writeEndElement("Line");
}

// The centre is where the normals at both ends meet.
void writeCurve(XmlWriter& writer, const AlignmentRecord& r, const AlignmentRecord& next) {
    double radius = std::fabs(r.radius);
    writer.clearAttributes();
    writer.addTextAttribute("rot", rotation(r.radius));
    writer.addNumberAttribute("radius", radius, 6);
    writer.addNumberAttribute("length", r.length, 6);
    writer.addTextAttribute("crvType", "arc");
    writer.addNumberAttribute("chord", 2.0 * radius * std::sin(r.length / (2.0 * radius)), 8);
    writer.addNumberAttribute("dirStart", r.azimuth, 8);
    writer.addNumberAttribute("dirEnd", next.azimuth, 8);
    writer.writeStartElement("Curve");
    writePoint(writer, "Start", pointOf(r));
    writePoint(writer, "Center", meeting(r, r.azimuth + 100.0, next, next.azimuth + 100.0));
    writePoint(writer, "End", pointOf(next));
    writePoint(writer, "PI", tangentsMeeting(r, next));
    writer.writeEndElement("Curve");
}

// Which end of a clothoid is straight follows from the radius the key point
// before it holds: none (the first element) or 0, and the clothoid starts
// straight and ends at its own radius; any other, and it starts at that
// radius and ends straight. An exit clothoid holds 0, so an entry clothoid
// right after it, as in a reverse curve of two clothoids back to back,
// starts straight. The curved end's radius gives the turning direction,
// the angle and the tangents.
void writeSpiral(XmlWriter& writer, const Records& records, std::size_t i) {
    const AlignmentRecord& r = records[i];
    const AlignmentRecord& next = records[i + 1];
    bool startsStraight = i == 0 || records[i - 1].radius == 0.0;
    double curvedRadius = startsStraight ? r.radius : records[i - 1].radius;
    ClothoidTangents tangents = clothoidTangents(r.length, r.parameter, curvedRadius);
    writer.clearAttributes();
    if (startsStraight) {
        writer.addTextAttribute("radiusStart", "INF");
        writer.addNumberAttribute("radiusEnd", std::fabs(curvedRadius), 6);
    } else {
        writer.addNumberAttribute("radiusStart", std::fabs(curvedRadius), 6);
        writer.addTextAttribute("radiusEnd", "INF");
    }
    writer.addTextAttribute("rot", rotation(curvedRadius));
    writer.addTextAttribute("spiType", "clothoid");
    writer.addNumberAttribute("length", r.length, 6);
    writer.addNumberAttribute("tanLong", tangents.tanLong, 8);
    writer.addNumberAttribute("tanShort", tangents.tanShort, 8);
    writer.writeStartElement("Spiral");
    writePoint(writer, "Start", pointOf(r));
    writePoint(writer, "End", pointOf(next));
    writePoint(writer, "PI", tangentsMeeting(r, next));
    writer.writeEndElement("Spiral");
}

void writeElement(XmlWriter& writer, const Records& records, std::size_t i) {
    const AlignmentRecord& r = records[i];
    if (r.type == straightElement) writeLine(writer, r, records[i + 1]);
    if (r.type == arcElement) writeCurve(writer, r, records[i + 1]);
    if (r.type == clothoidElement) writeSpiral(writer, records, i);
}

void writeAlignment(XmlWriter& writer, const Records& records, const std::string& name) {
    writeAlignmentStart(writer, name, records.front().station,
                        records.back().station - records.front().station);
    writer.clearAttributes();
    writer.writeStartElement("CoordGeom");
    for (std::size_t i = 0; i + 1 < records.size(); ++i) writeElement(writer, records, i);
    writer.writeEndElement("CoordGeom");
    writeAlignmentEnd(writer);
}

}  // namespace

// The local coordinates at the end of the clothoid come from the truncated
// series; the last divisor of X is 7620480 where the textbook has 76204800,
// and it stays so: the documents the collectors know were written with it.
ClothoidTangents clothoidTangents(double length, double parameter, double curvedRadius) {
    double tau = curvedRadius == 0.0 ? 0.0 : length / (2.0 * curvedRadius);
    double a = parameter == 0.0 ? missingParameter : parameter;
    double s = a * std::sqrt(2.0 * std::fabs(tau));
    double x =
        s * (1.0 - std::pow(tau, 2) / 10.0 + std::pow(tau, 4) / 216.0 - std::pow(tau, 6) / 9360.0 +
             std::pow(tau, 8) / 685440.0 - std::pow(tau, 10) / 7620480.0);
    double y = s * (tau / 3.0 - std::pow(tau, 3) / 42.0 + std::pow(tau, 5) / 1320.0 -
                    std::pow(tau, 7) / 75600.0 + std::pow(tau, 9) / 6894720.0);
    ClothoidTangents tangents;
    tangents.tanShort = y / std::sin(tau);
    tangents.tanLong = x - tangents.tanShort * std::cos(tau);
    return tangents;
}

Outcome convertRuxoAlignmentToLandXml(const std::string& entrada, const std::string& salida,
                                      const Clock& clock) {
    // Read as the element-form NEVO writer reads: a line starting with "*"
    // is numbers like any other.
    AlignmentFile read = readAlignmentFile(entrada, CommentLines::readAsNumbers);
    if (!read.outcome.ok()) return read.outcome;
    Records& records = read.records;
    for (std::size_t i = 0; i + 1 < records.size(); ++i)
        records[i].length = records[i + 1].station - records[i].station;
    std::string name = baseName(salida);
    Outcome written = writeLandXmlDocument(
        salida, [&](XmlWriter& writer) { writeAlignment(writer, records, name); }, clock);
    if (written.ok()) written.written.records = static_cast<long>(records.size());
    return written;
}

}  // namespace quelcnv
