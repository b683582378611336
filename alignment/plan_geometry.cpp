#include "alignment/plan_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "alignment/geometry.h"

namespace quelcnv {

namespace {

// The eight-point Gauss-Legendre rule on [-1, 1]: nodes and weights of the
// positive half (the rule is symmetric).
constexpr std::array<double, 4> gaussNodes = {0.1834346424956498, 0.5255324099163290,
                                              0.7966664774136267, 0.9602898564975363};
constexpr std::array<double, 4> gaussWeights = {0.3626837833783620, 0.3137066458778873,
                                                0.2223810344533745, 0.1012285362903763};

// A panel turns through at most this many radians and is at most this long:
// the rule is then exact to far below a micrometre.
constexpr double panelTurn = 0.2;
constexpr double panelLength = 200.0;
// A hostile file of huge elements must not hang an evaluation.
constexpr double maxPanels = 20000.0;
constexpr int maxSamples = 5000;

// The displacement along the element from distance a to distance b.
PlanePoint panelDisplacement(const PlanElement& e, double a, double b) {
    double half = (b - a) / 2.0, middle = (a + b) / 2.0;
    PlanePoint moved;
    for (std::size_t i = 0; i < gaussNodes.size(); ++i) {
        for (double side : {-1.0, 1.0}) {
            double heading = e.headingAt(middle + side * gaussNodes[i] * half);
            moved.x += gaussWeights[i] * std::sin(heading);
            moved.y += gaussWeights[i] * std::cos(heading);
        }
    }
    return {moved.x * half, moved.y * half};
}

// The pose moved from distance a to distance b along the element.
PlanPose advance(const PlanElement& e, PlanPose pose, double a, double b) {
    double span = std::abs(b - a);
    double turn = std::max(std::abs(e.curvatureAt(a)), std::abs(e.curvatureAt(b))) * span;
    double panels = std::ceil(std::max({turn / panelTurn, span / panelLength, 1.0}));
    // An endless curvature over no length gives no number: the most panels.
    int count = static_cast<int>(panels < maxPanels ? panels : maxPanels);
    for (int i = 0; i < count; ++i) {
        double from = a + (b - a) * i / count, to = a + (b - a) * (i + 1) / count;
        PlanePoint moved = panelDisplacement(e, from, to);
        pose.point.x += moved.x;
        pose.point.y += moved.y;
    }
    pose.azimuth = e.headingAt(b);
    pose.curvature = e.curvatureAt(b);
    return pose;
}

PlanPose startPose(const PlanElement& e) { return {e.start, e.azimuth, e.k0}; }

}  // namespace

double curvatureOf(double radius) { return radius != 0.0 ? 1.0 / radius : 0.0; }

double PlanElement::curvatureAt(double s) const {
    return length > 0.0 ? k0 + (k1 - k0) * s / length : k0;
}

double PlanElement::headingAt(double s) const {
    double bend = length > 0.0 ? (k1 - k0) * s * s / (2.0 * length) : 0.0;
    return azimuth + k0 * s + bend;
}

PlanPose poseAt(const PlanElement& element, double s) {
    if (element.kind == ElementKind::straight)
        return {pointAtHeading(element.start, s, element.azimuth), element.azimuth, 0.0};
    return advance(element, startPose(element), 0.0, s);
}

std::vector<PlanePoint> samplePoints(const PlanElement& element, double spacing) {
    std::vector<PlanePoint> points{element.start};
    double wanted =
        element.kind == ElementKind::straight ? 1.0 : std::ceil(element.length / spacing);
    int steps = static_cast<int>(std::clamp(wanted, 1.0, static_cast<double>(maxSamples)));
    PlanPose pose = startPose(element);
    for (int i = 0; i < steps; ++i) {
        pose = element.kind == ElementKind::straight
                   ? poseAt(element, element.length)
                   : advance(element, pose, element.length * i / steps,
                             element.length * (i + 1) / steps);
        points.push_back(pose.point);
    }
    return points;
}

std::optional<PlanPose> poseAtStation(const std::vector<PlanElement>& elements, double station,
                                      double offset) {
    for (auto e = elements.rbegin(); e != elements.rend(); ++e) {
        if (station < e->station || station > e->station + e->length) continue;
        PlanPose pose = poseAt(*e, station - e->station);
        // The right of the direction of travel: the heading turned a quarter
        // turn towards growing azimuths.
        pose.point = pointAtHeading(pose.point, offset, pose.azimuth + std::numbers::pi / 2.0);
        return pose;
    }
    return std::nullopt;
}

std::vector<PlanElement> elementsFromRecords(const std::vector<AlignmentRecord>& records) {
    std::vector<PlanElement> elements;
    double curvature = 0.0;
    for (std::size_t i = 0; i + 1 < records.size(); ++i) {
        const AlignmentRecord& r = records[i];
        PlanElement e{ElementKind::straight,
                      r.station,
                      {r.x, r.y},
                      r.azimuth * gradsToRadians,
                      0.0,
                      0.0,
                      records[i + 1].station - r.station};
        if (r.type == clothoidElement) {
            e.kind = ElementKind::clothoid;
            e.k0 = curvature;
            e.k1 = curvatureOf(r.radius);
        } else if (r.type == arcElement && r.radius != 0.0) {
            e.kind = ElementKind::arc;
            e.k0 = e.k1 = curvatureOf(r.radius);
        }
        curvature = e.k1;
        if (e.length > 0.0 && std::isfinite(e.length)) elements.push_back(e);
    }
    return elements;
}

}  // namespace quelcnv
