// A surveyed point of a cross section, and the order the importers sort
// their points in.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quelcnv {

struct SectionPoint {
    double station = 0.0;    // chainage of the section, metres
    double offset = 0.0;     // distance across the section from the alignment
    double elevation = 0.0;  // height of the point
    std::string code;        // point code or description; may be empty
};

// A point as a line gives it, its code a view into the line.
struct SectionPointText {
    double station = 0.0;
    double offset = 0.0;
    double elevation = 0.0;
    std::string_view code;

    SectionPoint owned() const { return {station, offset, elevation, std::string(code)}; }
};

// -1 when a goes before b, 1 when after, 0 when they are the same point: by
// offset, offsets closer than 0.001 being the same unless their codes (read
// as whole numbers) differ, and then the higher code first.
int compareByOffsetAndCode(const SectionPoint& a, const SectionPoint& b);

// -1, 1 or 0: the same point when stations and offsets are both within
// 0.001; otherwise the lower station first, compared plainly even when the
// stations are within 0.001; at such stations, the lower offset first unless
// a is the one with the lower station. Deliberately not symmetric.
int compareByStationAndOffset(const SectionPointText& a, const SectionPointText& b);

}  // namespace quelcnv
