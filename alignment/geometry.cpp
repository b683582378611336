#include "alignment/geometry.h"

#include <cmath>

#include "common/tolerance.h"

namespace quelcnv {

namespace {

constexpr double fullCircle = 400.0;
constexpr double halfCircle = 200.0;
constexpr double snapToZeroAbove = 399.99995;

}  // namespace

double normalizeGrads(double angle) {
    // The remainder is what adding or subtracting whole turns one by one
    // gives (each step is exact); fmod just gets there without looping.
    double normal = std::fmod(angle, fullCircle);
    // A whole number of turns below zero ends at +0 that way, not at fmod's -0.
    if (normal == 0.0) return angle == 0.0 ? angle : 0.0;
    if (normal < 0.0) normal += fullCircle;
    if (normal >= fullCircle) normal -= fullCircle;
    return normal > snapToZeroAbove ? 0.0 : normal;
}

PlanePoint pointAlong(PlanePoint base, double distance, double azimuth) {
    return {base.x + distance * std::sin(azimuth * gradsToRadians),
            base.y + distance * std::cos(azimuth * gradsToRadians)};
}

ArcPoint pointOnArc(const AlignmentRecord& arc, double station) {
    double r = arc.radius;
    double turned = (station - arc.station) / r * radiansToGrads;
    double chord = 2.0 * r * std::sin(turned * halfGradsToRadians);
    double direction = (turned / 2.0 + arc.azimuth) * gradsToRadians;
    return {{arc.x + chord * std::sin(direction), arc.y + chord * std::cos(direction)},
            normalizeGrads(arc.azimuth + turned),
            r};
}

bool arcSweepsHalfCircle(const AlignmentRecord& arc, const AlignmentRecord& next) {
    if (arc.type != arcElement) return false;
    double from = arc.azimuth;
    double to = next.azimuth;
    double sweep;
    if (arc.radius <= 0.0) {
        if (from < to) from += fullCircle;
        sweep = from - to;
    } else {
        if (to < from) to += fullCircle;
        sweep = to - from;
    }
    return sweep >= halfCircle;
}

std::optional<PlanePoint> lineIntersection(PlanePoint a1, PlanePoint a2, PlanePoint b1,
                                           PlanePoint b2) {
    for (PlanePoint a : {a1, a2}) {
        for (PlanePoint b : {b1, b2}) {
            if (samePoint(a, b)) return a;
        }
    }
    LineEquation first = lineThrough(a1, a2);
    LineEquation second = lineThrough(b1, b2);
    if (std::fabs(first.slope - second.slope) < pointTolerance) return std::nullopt;
    double x = (second.intercept - first.intercept) / (first.slope - second.slope);
    return PlanePoint{x, x * second.slope + second.intercept};
}

bool samePoint(PlanePoint a, PlanePoint b) {
    return std::fabs(a.x - b.x) < pointTolerance && std::fabs(a.y - b.y) < pointTolerance;
}

int compareStations(const AlignmentRecord& a, const AlignmentRecord& b) {
    if (std::fabs(a.station - b.station) < stationTolerance) return 0;
    return a.station < b.station ? -1 : 1;
}

int findElement(std::span<const AlignmentRecord> records, double station) {
    for (std::size_t k = 0; k + 1 < records.size(); ++k) {
        if (records[k].station <= station && station <= records[k + 1].station)
            return static_cast<int>(k);
    }
    return -1;
}

double headingBetween(PlanePoint from, PlanePoint to) {
    return std::atan2(to.x - from.x, to.y - from.y);
}

PlanePoint pointAtHeading(PlanePoint base, double distance, double heading) {
    return {base.x + distance * std::sin(heading), base.y + distance * std::cos(heading)};
}

}  // namespace quelcnv
