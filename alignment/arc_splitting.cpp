#include "alignment/arc_splitting.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

#include "alignment/geometry.h"
#include "common/tolerance.h"

namespace quelcnv {

namespace {

using Records = std::vector<AlignmentRecord>;

bool byStation(const AlignmentRecord& a, const AlignmentRecord& b) {
    return compareStations(a, b) < 0;
}

std::optional<std::size_t> firstSweepingArc(const Records& records) {
    for (std::size_t k = 0; k + 1 < records.size(); ++k) {
        if (arcSweepsHalfCircle(records[k], records[k + 1])) return k;
    }
    return std::nullopt;
}

// The arc record that splits the element from record k to record k + 1 at
// its middle station, evaluated on the record that holds that station.
std::optional<AlignmentRecord> middleOf(std::span<const AlignmentRecord> records, std::size_t k) {
    double middle = (records[k].station + records[k + 1].station) / 2.0;
    int holder = findElement(records, middle);
    if (holder < 0) return std::nullopt;
    ArcPoint at = pointOnArc(records[static_cast<std::size_t>(holder)], middle);
    AlignmentRecord split;
    split.type = arcElement;
    split.station = middle;
    split.x = at.point.x;
    split.y = at.point.y;
    split.azimuth = at.azimuth;
    split.radius = at.radius;
    split.length = (records[k + 1].station - records[k].station) / 2.0;
    return split;
}

struct Split {
    std::size_t arc;            // where the arc split stands
    AlignmentRecord arcRecord;  // the arc and its next record, as the split left them
    AlignmentRecord next;
    AlignmentRecord middle;  // the record added
};

// One split as the rule states it: the first arc that sweeps half a circle,
// from the start of the records, then all records sorted by station (ties
// keep their order). Nothing when nothing was split.
std::optional<Split> splitFirstAndSort(Records& records, std::size_t capacity) {
    if (records.size() >= capacity) return std::nullopt;
    auto k = firstSweepingArc(records);
    if (!k) return std::nullopt;
    auto middle = middleOf(records, *k);
    if (!middle) return std::nullopt;
    records[*k].length = middle->length;
    Split split{*k, records[*k], records[*k + 1], *middle};
    records.push_back(*middle);
    std::stable_sort(records.begin(), records.end(), byStation);
    return split;
}

bool sameRecord(const AlignmentRecord& a, const AlignmentRecord& b) {
    return a.type == b.type && a.station == b.station && a.x == b.x && a.y == b.y &&
           a.aux == b.aux && a.azimuth == b.azimuth && a.radius == b.radius &&
           a.parameter == b.parameter && a.length == b.length;
}

// Whether stations compared within their tolerance order these records as
// a plain order would: every run of stations closer than the tolerance to
// the one before spans less than the tolerance.
bool stationsCompareConsistently(const Records& records) {
    std::vector<double> stations;
    for (const AlignmentRecord& r : records) stations.push_back(r.station);
    if (std::any_of(stations.begin(), stations.end(), [](double s) { return std::isnan(s); }))
        return false;
    std::sort(stations.begin(), stations.end());
    double runStart = stations.front();
    for (std::size_t i = 1; i < stations.size(); ++i) {
        if (stations[i] - stations[i - 1] >= stationTolerance)
            runStart = stations[i];
        else if (stations[i] - runStart >= stationTolerance)
            return false;
    }
    return true;
}

// When the record a split added sorted after the arc's next record (an arc of
// no length, or almost none), the same arc is the first to split again, and
// again the same record is added after the last one: the splits that remain
// until the records fill their room are all that one. They are added at once.
bool repeatsUntilFull(Records& records, const Split& split, std::size_t capacity) {
    if (!sameRecord(records[split.arc], split.arcRecord) ||
        !sameRecord(records[split.arc + 1], split.next) || !stationsCompareConsistently(records))
        return false;
    // Stations order the records consistently: the record added stands last
    // among those at its station, and so will every copy.
    auto after = std::upper_bound(records.begin(), records.end(), split.middle, byStation);
    if (after - records.begin() <= static_cast<std::ptrdiff_t>(split.arc) + 2) return false;
    records.insert(after, capacity - records.size(), split.middle);
    return true;
}

// The splits as the rule states them, until none is left or the records
// fill their room.
void splitBySorting(Records& records, std::size_t capacity) {
    while (auto split = splitFirstAndSort(records, capacity)) {
        if (records.size() < capacity && repeatsUntilFull(records, *split, capacity)) return;
    }
}

// Neighbours farther apart than two station tolerances never compare equal,
// and neither does the middle of their element with either of them.
bool wellApart(const AlignmentRecord& a, const AlignmentRecord& b) {
    return b.station - a.station > 2.0 * stationTolerance;
}

bool allWellApart(const Records& records) {
    return std::adjacent_find(records.begin(), records.end(), [](const auto& a, const auto& b) {
               return !wellApart(a, b);
           }) == records.end();
}

// The same splits in one walk along records sorted by station and well
// apart: there a split only puts the new record right after its arc, and the
// records before the arc never change, so the search goes on from the arc
// instead of from the start, and nothing is sorted again. Where a new record
// would come too close to a neighbour, the rest is left to the rule itself.
void splitWalking(Records& records, std::size_t capacity) {
    Records done;
    done.reserve(capacity);
    Records ahead(records.rbegin(), records.rend());  // the next record at the back
    done.push_back(ahead.back());
    ahead.pop_back();
    while (!ahead.empty()) {
        AlignmentRecord& arc = done.back();
        const AlignmentRecord& next = ahead.back();
        if (done.size() + ahead.size() < capacity && arcSweepsHalfCircle(arc, next)) {
            AlignmentRecord pair[] = {arc, next};
            auto middle = middleOf(pair, 0);
            if (!middle || !wellApart(arc, *middle) || !wellApart(*middle, next)) break;
            arc.length = middle->length;
            ahead.push_back(*middle);
            continue;
        }
        done.push_back(next);
        ahead.pop_back();
    }
    done.insert(done.end(), ahead.rbegin(), ahead.rend());
    records = std::move(done);
    splitBySorting(records, capacity);
}

}  // namespace

// The rule splits the first arc that sweeps half a circle and sorts all the
// records again, split after split: on a long alignment that is quadratic.
// Where the stations are sorted and well apart, one walk along the records
// gives the very same records; anywhere else (stations close together or out
// of order) the rule itself runs.
void splitLongArcs(Records& records, std::size_t capacity) {
    // The first split works on the records in file order, and sorts them.
    if (!splitFirstAndSort(records, capacity)) return;
    if (allWellApart(records))
        splitWalking(records, capacity);
    else
        splitBySorting(records, capacity);
}

}  // namespace quelcnv
