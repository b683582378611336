#include "profile/profile_evaluation.h"

#include <cmath>

namespace quelcnv {

double VerticalCurve::elevationAt(double station) const {
    double d = station - startStation;
    return startElevation + gradeIn * d + (gradeOut - gradeIn) * d * d / (2.0 * length);
}

double VerticalCurve::gradeAt(double station) const {
    return gradeIn + (gradeOut - gradeIn) * (station - startStation) / length;
}

std::vector<VerticalCurve> verticalCurves(const Profile& v) {
    std::vector<VerticalCurve> curves;
    for (std::size_t i = 1; i + 1 < v.size(); ++i) {
        double t = v[i].tangent;
        double g1 = gradeBetween(v[i - 1], v[i]), g2 = gradeBetween(v[i], v[i + 1]);
        if (!(t > 0.0) || !std::isfinite(t) || std::abs(g1) >= verticalGrade ||
            std::abs(g2) >= verticalGrade)
            continue;
        curves.push_back({i, v[i].station - t, v[i].elevation - g1 * t, g1, g2, 2.0 * t});
    }
    return curves;
}

std::optional<ProfilePoint> profileAt(const Profile& v, double station) {
    if (v.empty() || station < v.front().station || station > v.back().station) return std::nullopt;
    for (const VerticalCurve& curve : verticalCurves(v))
        if (station >= curve.startStation && station <= curve.endStation())
            return ProfilePoint{curve.elevationAt(station), curve.gradeAt(station)};
    for (std::size_t i = 0; i + 1 < v.size(); ++i) {
        if (station < v[i].station || station > v[i + 1].station) continue;
        double grade = gradeBetween(v[i], v[i + 1]);
        if (std::abs(grade) >= verticalGrade) return ProfilePoint{v[i + 1].elevation, grade};
        return ProfilePoint{v[i].elevation + grade * (station - v[i].station), grade};
    }
    return ProfilePoint{v.back().elevation, 0.0};  // a single vertex
}

}  // namespace quelcnv
