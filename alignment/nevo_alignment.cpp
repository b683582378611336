#include "alignment/nevo_alignment.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

#include "alignment/arc_splitting.h"
#include "alignment/geometry.h"
#include "alignment/ruxo_alignment_file.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"
#include "common/tolerance.h"

namespace quelcnv {

std::string hostSettingsPath(const std::string& hostFolder) {
#ifdef _WIN32
    return hostFolder + "\\quelvar.ini";
#else
    return hostFolder + "/quelvar.ini";
#endif
}

namespace {

using Records = std::vector<AlignmentRecord>;

// The first token behind the first "=" of the settings file's first line,
// read as a whole number. The key before the "=" is not looked at and may be
// missing ("=100"); a line without "=" gives no value.
std::optional<int> elementFormLimit(const std::string& hostFolder) {
    LineReader reader;
    std::string line;
    if (!reader.open(hostSettingsPath(hostFolder)) || reader.read(line) == ReadStatus::nothing)
        return std::nullopt;
    std::size_t equals = line.find('=');
    if (equals == std::string::npos) return std::nullopt;
    Tokenizer tokens(std::string_view(line).substr(equals + 1));
    auto value = tokens.next(blanksAndTabs);
    if (!value) return std::nullopt;
    return parseWhole(*value);
}

PlanePoint pointOf(const AlignmentRecord& record) { return {record.x, record.y}; }

// The key point of record i. The curve rules look up to one record before
// the first and one past the last; such a record reads as all zeros.
PlanePoint pointAt(const Records& records, long i) {
    if (i < 0 || i >= static_cast<long>(records.size())) return {};
    return pointOf(records[static_cast<std::size_t>(i)]);
}

// The tangent at a key point, as the point and the point 10 m along it.
std::optional<PlanePoint> tangentsMeet(const AlignmentRecord& a, const AlignmentRecord& b) {
    return lineIntersection(pointOf(a), pointAlong(pointOf(a), 10.0, a.azimuth), pointOf(b),
                            pointAlong(pointOf(b), 10.0, b.azimuth));
}

void writeStart(OutputFile& out, const AlignmentRecord& first) {
    out.print("START %0.3lf, %0.4lf, %0.4lf\n"_fmt, first.station, first.x, first.y);
}

void writeElements(OutputFile& out, const Records& records) {
    writeStart(out, records.front());
    for (std::size_t i = 0; i + 1 < records.size(); ++i) {
        const AlignmentRecord& r = records[i];
        double length = records[i + 1].station - r.station;
        if (r.type == straightElement) {
            out.print("STRAIGHT  %0.4lf,%0.4lf\n"_fmt, r.azimuth, length);
        } else if (r.type == arcElement) {
            out.print("ARC  %0.4lf,%0.4lf\n"_fmt, r.radius, length);
        } else {
            // A clothoid that ends on a straight takes the radius of the curve
            // before it; with none, the element is left out, as the element
            // files the collectors hold have always been written.
            double radius = r.radius;
            if (radius == 0.0 && i > 0) radius = records[i - 1].radius;
            if (radius != 0.0) out.print("SPIRAL  %0.4lf,%0.4lf\n"_fmt, radius, length);
        }
    }
    out.print("STRAIGHT  %0.4lf,%0.4lf\n"_fmt, records.back().azimuth, 0.0);
}

void writeCircle(OutputFile& out, std::optional<PlanePoint> at, double radius) {
    if (at) out.print("PT %0.4lf, %0.4lf, %0.4lf\n"_fmt, at->x, at->y, std::fabs(radius));
}

void writeClothoids(OutputFile& out, std::optional<PlanePoint> at, double radius, double entry,
                    double exit) {
    if (at) {
        out.print("PT %0.4lf, %0.4lf, %0.4lf, %0.4lf, %0.4lf\n"_fmt, at->x, at->y,
                  std::fabs(radius), entry, exit);
    }
}

// The curve whose arc is record i: set between the incoming straight
// (records i-2, i-1) and the outgoing one when clothoids lead in and out.
// True for the asymmetric case, whose exit is taken from the next straight.
bool writeCurve(OutputFile& out, const Records& records, std::size_t i) {
    long at = static_cast<long>(i);
    const AlignmentRecord& arc = records[i];
    const AlignmentRecord& before = records[i - 1];
    const AlignmentRecord& after = records[i + 1];
    bool entryClothoid = before.type == clothoidElement;
    if (entryClothoid && after.type == clothoidElement && after.radius == 0.0 &&
        i + 2 < records.size()) {
        writeClothoids(out,
                       lineIntersection(pointAt(records, at - 2), pointAt(records, at - 1),
                                        pointAt(records, at + 2), pointAt(records, at + 3)),
                       arc.radius, before.parameter, after.parameter);
        return false;
    }
    if (entryClothoid && !(after.type == clothoidElement && after.radius == arc.radius)) {
        writeClothoids(out,
                       lineIntersection(pointAt(records, at - 2), pointAt(records, at - 1),
                                        pointAt(records, at + 1), pointAt(records, at + 2)),
                       arc.radius, before.parameter, after.parameter);
        return true;
    }
    writeCircle(out, tangentsMeet(arc, after), arc.radius);
    return false;
}

bool writeIntersectionPoints(OutputFile& out, const Records& records) {
    writeStart(out, records.front());
    if (records.front().type == arcElement && records.size() >= 2)
        writeCircle(out, tangentsMeet(records[0], records[1]), records[0].radius);
    bool asymmetric = false;
    for (std::size_t i = 1; i < records.size(); ++i) {
        const AlignmentRecord& r = records[i];
        bool last = i + 1 == records.size();
        if (last || (r.type == straightElement && records[i - 1].type == straightElement)) {
            out.print("PT %0.4lf, %0.4lf\n"_fmt, r.x, r.y);
        } else if (r.type == arcElement) {
            asymmetric |= writeCurve(out, records, i);
        }
    }
    return asymmetric;
}

// Reads the RUXO file and splits its long arcs.
AlignmentFile readForWriting(const std::string& entrada, CommentLines comments) {
    AlignmentFile file = readAlignmentFile(entrada, comments);
    if (file.outcome.ok()) splitLongArcs(file.records, file.capacity);
    return file;
}

}  // namespace

NevoForm chooseNevoForm(const std::string& ruxoPath, const std::string& hostFolder) {
    int lineCount = countLines(ruxoPath);
    auto limit = elementFormLimit(hostFolder);
    return limit && *limit >= lineCount ? NevoForm::elements : NevoForm::intersectionPoints;
}

Outcome writeElementForm(const std::string& entrada, const std::string& salida) {
    // Comment lines are read as numbers here: a six-word comment becomes a
    // record of zeros, as the element files have always shown it.
    AlignmentFile file = readForWriting(entrada, CommentLines::readAsNumbers);
    if (!file.outcome.ok()) return file.outcome;
    OutputFile out;
    if (!out.open(salida)) return Outcome::failed(Failure::outputUnwritable);
    writeElements(out, file.records);
    return withCount(out.complete(), &Written::records, file.records.size());
}

IntersectionForm writeIntersectionForm(const std::string& entrada, const std::string& salida) {
    AlignmentFile file = readForWriting(entrada, CommentLines::skipped);
    if (!file.outcome.ok()) return {file.outcome};
    OutputFile out;
    if (!out.open(salida)) return {Outcome::failed(Failure::outputUnwritable)};
    bool asymmetric = writeIntersectionPoints(out, file.records);
    return {withCount(out.complete(), &Written::records, file.records.size()), asymmetric};
}

Outcome convertRuxoAlignmentToNevo(const std::string& entrada, const std::string& salida,
                                   const std::string& hostFolder) {
    if (chooseNevoForm(entrada, hostFolder) == NevoForm::elements)
        return writeElementForm(entrada, salida);
    return writeIntersectionForm(entrada, salida).outcome;
}

}  // namespace quelcnv
