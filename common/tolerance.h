// Comparing numbers with the library's fixed tolerances.
#pragma once

namespace quelcnv {

// Two coordinates (or a sign) within this are the same.
inline constexpr double pointTolerance = 0.0001;
// Two stations within this are the same station.
inline constexpr double stationTolerance = 0.001;

// -1 below -0.0001, 1 above 0.0001, else 0 (both bounds give 0).
int signWithTolerance(double value);

struct OrderedPair {
    double low;
    double high;
};

// The smaller and the larger of two values (a first when they are equal).
OrderedPair orderPair(double a, double b);

// min(a, b) - tolerance <= v <= max(a, b) + tolerance.
bool isBetween(double a, double v, double b, double tolerance);

}  // namespace quelcnv
