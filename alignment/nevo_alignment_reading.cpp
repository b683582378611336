#include "alignment/nevo_alignment_reading.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <string_view>

#include "alignment/geometry.h"
#include "common/line_reader.h"
#include "common/tokenizer.h"

namespace quelcnv {

namespace {

constexpr std::size_t maxLines = 10000;  // far more elements than any road has

double turningOf(const PlanElement& e) { return e.length * (e.k0 + e.k1) / 2.0; }

double distanceBetween(PlanePoint a, PlanePoint b) { return std::hypot(b.x - a.x, b.y - a.y); }

// The words of a NEVO alignment line: its keyword, then its numbers.
struct NevoLine {
    std::string_view keyword;
    std::vector<double> numbers;
};

std::vector<NevoLine> readNevoLines(const std::string& path) {
    static constexpr Separators separators = " \t,\r\n";
    std::vector<NevoLine> lines;
    LineReader reader;
    if (!reader.open(path)) return lines;
    std::string text;
    while (readLineThroughEnd(reader, text) && lines.size() < maxLines) {
        Tokenizer tokens(text);
        auto keyword = tokens.next(separators);
        if (!keyword) continue;
        NevoLine line;
        line.keyword = *keyword == "START"      ? "START"
                       : *keyword == "STRAIGHT" ? "STRAIGHT"
                       : *keyword == "SPIRAL"   ? "SPIRAL"
                       : *keyword == "ARC"      ? "ARC"
                       : *keyword == "PT"       ? "PT"
                                                : "";
        double value = 0.0;
        while (line.numbers.size() < 5 && tokens.nextNumber(separators, value))
            line.numbers.push_back(value);
        lines.push_back(std::move(line));
    }
    return lines;
}

// Element form: the curvatures come from the lines; the headings from the
// first STRAIGHT, turned back through the curves before it.
std::vector<PlanElement> elementForm(const std::vector<NevoLine>& lines, double station,
                                     PlanePoint start) {
    std::vector<PlanElement> elements;
    std::optional<double> firstHeading;
    double turned = 0.0, curvature = 0.0;
    for (const NevoLine& line : lines) {
        if (line.numbers.size() < 2 || line.numbers[1] <= 0.0) continue;
        PlanElement e;
        e.length = line.numbers[1];
        if (line.keyword == "STRAIGHT") {
            e.azimuth = line.numbers[0] * gradsToRadians;
            if (!firstHeading) firstHeading = e.azimuth - turned;
        } else if (line.keyword == "ARC" && line.numbers[0] != 0.0) {
            e.kind = ElementKind::arc;
            e.k0 = e.k1 = curvatureOf(line.numbers[0]);
        } else if (line.keyword == "SPIRAL" && line.numbers[0] != 0.0) {
            // The writer gives an exit spiral the radius of the curve it
            // leaves: reaching that curvature already, it runs out to 0.
            e.kind = ElementKind::clothoid;
            e.k0 = curvature;
            double target = curvatureOf(line.numbers[0]);
            e.k1 = std::abs(target - curvature) <= 1e-9 * std::abs(target) ? 0.0 : target;
        } else if (line.keyword != "STRAIGHT") {
            continue;
        }
        curvature = e.k1;
        turned += turningOf(e);
        elements.push_back(e);
    }
    PlanPose pose{start, firstHeading.value_or(0.0)};
    for (PlanElement& e : elements) {
        if (e.kind != ElementKind::straight) e.azimuth = pose.azimuth;
        e.station = station;
        e.start = pose.point;
        pose = poseAt(e, e.length);
        station += e.length;
    }
    return elements;
}

// The curve set into an intersection point: clothoid, arc, clothoid.
struct CornerCurve {
    double t1 = 0.0, t2 = 0.0;  // tangent lengths from the intersection point
    double l1 = 0.0, arc = 0.0, l2 = 0.0;
};

// The shift p and the abscissa xm of the arc's centre for a clothoid of
// parameter a leading into radius r.
std::array<double, 2> clothoidShift(double a, double r) {
    if (a <= 0.0) return {0.0, 0.0};
    double l = a * a / r;
    PlanPose end = poseAt({ElementKind::clothoid, 0.0, {}, 0.0, 0.0, 1.0 / r, l}, l);
    double tau = l / (2.0 * r);
    return {end.point.x - r * (1.0 - std::cos(tau)), end.point.y - r * std::sin(tau)};
}

std::optional<CornerCurve> cornerCurve(double deflection, double r, double a1, double a2) {
    if (r <= 0.0 || deflection < 1e-9 || deflection > std::numbers::pi - 1e-9) return std::nullopt;
    auto [p1, xm1] = clothoidShift(a1, r);
    auto [p2, xm2] = clothoidShift(a2, r);
    CornerCurve c;
    c.l1 = a1 * a1 / r;
    c.l2 = a2 * a2 / r;
    c.arc = r * (deflection - c.l1 / (2.0 * r) - c.l2 / (2.0 * r));
    if (c.arc < -1e-9) return std::nullopt;
    c.arc = std::max(c.arc, 0.0);
    c.t1 = xm1 + (r + p2) / std::sin(deflection) - (r + p1) / std::tan(deflection);
    c.t2 = xm2 + (r + p1) / std::sin(deflection) - (r + p2) / std::tan(deflection);
    return c;
}

class ElementChain {
public:
    ElementChain(double station, PlanePoint start) : station_(station), at_(start) {}
    void straightTo(PlanePoint end) {
        double length = distanceBetween(at_, end);
        if (length > 0.0)
            add({ElementKind::straight, 0, at_, headingBetween(at_, end), 0, 0, length});
        at_ = end;
    }
    PlanPose curve(ElementKind kind, double azimuth, double k0, double k1, double length) {
        PlanElement e{kind, 0.0, at_, azimuth, k0, k1, length};
        PlanPose end = poseAt(e, length);
        if (length > 0.0) add(e);
        at_ = end.point;
        return end;
    }
    void jumpTo(PlanePoint p) { at_ = p; }
    std::vector<PlanElement> take() { return std::move(elements_); }

private:
    void add(PlanElement e) {
        e.station = station_;
        station_ += e.length;
        elements_.push_back(e);
    }
    double station_;
    PlanePoint at_;
    std::vector<PlanElement> elements_;
};

// Intersection-point form: straights between the tangent points, and the
// curve of each point fitted between its two tangents.
std::vector<PlanElement> intersectionForm(const std::vector<NevoLine>& lines, double station,
                                          PlanePoint start) {
    std::vector<PlanePoint> vertices{start};
    std::vector<std::array<double, 3>> curves{{0, 0, 0}};
    for (const NevoLine& line : lines) {
        if (line.keyword != "PT" || line.numbers.size() < 2) continue;
        vertices.push_back({line.numbers[0], line.numbers[1]});
        std::array<double, 3> c{};
        for (std::size_t i = 2; i < line.numbers.size(); ++i) c[i - 2] = line.numbers[i];
        curves.push_back(c);
    }
    ElementChain chain(station, start);
    for (std::size_t i = 1; i + 1 < vertices.size(); ++i) {
        double in = headingBetween(vertices[i - 1], vertices[i]);
        double out = headingBetween(vertices[i], vertices[i + 1]);
        double turn = std::remainder(out - in, 2.0 * std::numbers::pi);
        auto [r, a1, a2] = curves[i];
        auto fit = cornerCurve(std::abs(turn), r, a1, a2);
        if (!fit) {
            chain.straightTo(vertices[i]);
            continue;
        }
        double k = (turn > 0.0 ? 1.0 : -1.0) / r;
        chain.straightTo(pointAtHeading(vertices[i], -fit->t1, in));
        PlanPose pose = chain.curve(ElementKind::clothoid, in, 0.0, k, fit->l1);
        pose = chain.curve(ElementKind::arc, pose.azimuth, k, k, fit->arc);
        chain.curve(ElementKind::clothoid, pose.azimuth, k, 0.0, fit->l2);
        chain.jumpTo(pointAtHeading(vertices[i], fit->t2, out));
    }
    if (vertices.size() > 1) chain.straightTo(vertices.back());
    return chain.take();
}

}  // namespace

std::vector<PlanElement> readNevoAlignment(const std::string& path) {
    std::vector<NevoLine> lines = readNevoLines(path);
    if (lines.empty() || lines[0].keyword != "START" || lines[0].numbers.size() < 3) return {};
    double station = lines[0].numbers[0];
    PlanePoint start{lines[0].numbers[1], lines[0].numbers[2]};
    for (const NevoLine& line : lines)
        if (line.keyword == "PT") return intersectionForm(lines, station, start);
    return elementForm(lines, station, start);
}

}  // namespace quelcnv
