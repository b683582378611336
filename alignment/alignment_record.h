// The alignment model: one record per key point where an element starts.
#pragma once

#include <cstdint>

namespace quelcnv {

// The kinds of element of an alignment in plan.
enum class ElementKind : std::int32_t { straight = 0, arc = 1, clothoid = 2 };

// Element types as the records keep them. Some importers keep other codes in
// `type` for the last record, which starts no element.
inline constexpr std::int32_t straightElement = static_cast<std::int32_t>(ElementKind::straight);
inline constexpr std::int32_t arcElement = static_cast<std::int32_t>(ElementKind::arc);
inline constexpr std::int32_t clothoidElement = static_cast<std::int32_t>(ElementKind::clothoid);

struct AlignmentRecord {
    std::int32_t type = straightElement;
    double station = 0.0;    // chainage of the key point, metres
    double x = 0.0;          // first plane coordinate
    double y = 0.0;          // second plane coordinate
    double aux = 0.0;        // always 0: no reader sets it and no output carries it
    double azimuth = 0.0;    // tangent direction, grads
    double radius = 0.0;     // signed: positive turns towards growing azimuths; 0 straight
    double parameter = 0.0;  // clothoid parameter A; 0 for a straight or an arc
    double length = 0.0;     // next record's station less this one's
};

// A key point's record from its values; type, aux and length are left for
// the reader to set.
inline AlignmentRecord keyPoint(double station, double x, double y, double azimuth, double radius,
                                double parameter) {
    return {straightElement, station, x, y, 0.0, azimuth, radius, parameter, 0.0};
}

// A clothoid when the parameter is not 0, else an arc when the radius is not
// 0, else a straight.
std::int32_t elementTypeOf(double parameter, double radius);

}  // namespace quelcnv
