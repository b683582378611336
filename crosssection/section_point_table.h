// The points of many sections, held compactly by the importers that must
// keep and sort every point of a file: the station once per section, the
// code once per distinct code, and per point only its offset, elevation and
// two small indices. Points go into blocks of a fixed size, so the table grows
// without copying what it holds.
#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/output_file.h"
#include "common/tolerance.h"
#include "crosssection/section_point.h"

namespace quelcnv {

class SectionPointTable {
public:
    // Points added from now on are at this station.
    void startSection(double station);
    // False when the table is full (four billion points): the point is not
    // kept, and the table remembers that it overflowed.
    bool add(double offset, double elevation, std::string_view code);
    bool overflowed() const { return overflowed_; }

    std::size_t size() const { return size_; }
    SectionPointText at(std::size_t i) const {
        const Point& p = blocks_[i >> blockBits][i & (blockSize - 1)];
        return {stations_[p.section], p.offset, p.elevation, codes_[p.code]};
    }

    // Whether the points already stand in order for a comparison by station,
    // then offset, in which stations or offsets closer than `tolerance` are
    // the same: stations never go down and, where they change, change by the
    // tolerance or more; and at one station no offset is below an earlier
    // one by the tolerance or more. No later point then goes before an
    // earlier one, and a stable sort leaves every point where it is.
    bool inStationOrder(double tolerance) const;

    // The places of the points in the order a stable sort by `before` gives
    // them: equal points keep their input order. `before` compares by
    // station, then offset, with the tolerance given: points already in that
    // order are not sorted at all.
    template <typename Before>
    std::vector<std::uint32_t> stableOrder(Before before, double tolerance) const {
        std::vector<std::uint32_t> order(size_);
        std::iota(order.begin(), order.end(), std::uint32_t{0});
        if (!inStationOrder(tolerance)) {
            std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
                return before(at(a), at(b));
            });
        }
        return order;
    }

private:
    struct Point {
        double offset;
        double elevation;
        std::uint32_t section;
        std::uint32_t code;
    };

    static constexpr std::size_t blockBits = 14;
    static constexpr std::size_t blockSize = std::size_t{1} << blockBits;

    std::uint32_t codeIndex(std::string_view code);

    std::vector<std::unique_ptr<Point[]>> blocks_;
    std::size_t size_ = 0;
    std::vector<double> stations_;
    std::deque<std::string> codeTexts_;  // a deque: the views below stay valid
    std::vector<std::string_view> codes_;
    std::unordered_map<std::string_view, std::uint32_t> codeIndices_;
    std::uint32_t lastCode_ = 0;  // codes come in runs: the last one is tried first
    bool overflowed_ = false;
};

// Writes the points as RUXO cross-section lines, "%8.3lf %8.3lf %8.3lf %s",
// in the order of a stable sort by `before` (see stableOrder). Counts the
// points and the sections: runs of points at one station.
template <typename Before>
Outcome writeSortedPoints(const SectionPointTable& points, const std::string& path, Before before,
                          double tolerance) {
    std::vector<std::uint32_t> order = points.stableOrder(before, tolerance);
    long sections = 0;
    Outcome written = writeWholeFile(path, [&](OutputFile& out) {
        double station = 0.0;
        for (std::uint32_t i : order) {
            SectionPointText p = points.at(i);
            if (sections == 0 || p.station != station) ++sections;
            station = p.station;
            out.print("%8.3lf %8.3lf %8.3lf %s\n"_fmt, p.station, p.offset, p.elevation, p.code);
        }
    });
    return withCount(withCount(written, &Written::points, order.size()), &Written::sections,
                     sections);
}

// The same, sorted by compareByStationAndOffset.
inline Outcome writeSortedPoints(const SectionPointTable& points, const std::string& path) {
    auto before = [](const SectionPointText& a, const SectionPointText& b) {
        return compareByStationAndOffset(a, b) < 0;
    };
    return writeSortedPoints(points, path, before, stationTolerance);
}

}  // namespace quelcnv
