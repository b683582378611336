#include "alignment/nevo_alignment.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

#include "alignment/geometry.h"
#include "alignment/ruxo_alignment_file.h"
#include "common/line_reader.h"
#include "common/numbers.h"
#include "common/output_file.h"
#include "common/tokenizer.h"
#include "common/tolerance.h"

namespace quelcnv {

namespace {

using Records = std::vector<AlignmentRecord>;

// ---- Settings ------------------------------------------------------------

std::string settingsPath(const std::string& hostFolder) {
#ifdef _WIN32
    return hostFolder + "\\quelvar.ini";
#else
    return hostFolder + "/quelvar.ini";
#endif
}

// The first token behind the first "=" of the settings file's first line,
// read as a whole number. The key before the "=" is not looked at and may be
// missing ("=100"); a line without "=" gives no value.
std::optional<int> elementFormLimit(const std::string& hostFolder) {
    LineReader reader;
    std::string line;
    if (!reader.open(settingsPath(hostFolder)) || reader.read(line) == ReadStatus::nothing)
        return std::nullopt;
    std::size_t equals = line.find('=');
    if (equals == std::string::npos) return std::nullopt;
    Tokenizer tokens(std::string_view(line).substr(equals + 1));
    auto value = tokens.next(blanksAndTabs);
    if (!value) return std::nullopt;
    return parseWhole(*value);
}

// ---- Splitting long arcs ---------------------------------------------------

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

// ---- Writing -----------------------------------------------------------------

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
    out.print("START %0.3lf, %0.4lf, %0.4lf\n", first.station, first.x, first.y);
}

void writeElements(OutputFile& out, const Records& records) {
    writeStart(out, records.front());
    for (std::size_t i = 0; i + 1 < records.size(); ++i) {
        const AlignmentRecord& r = records[i];
        double length = records[i + 1].station - r.station;
        if (r.type == straightElement) {
            out.print("STRAIGHT  %0.4lf,%0.4lf\n", r.azimuth, length);
        } else if (r.type == arcElement) {
            out.print("ARC  %0.4lf,%0.4lf\n", r.radius, length);
        } else {
            // A clothoid that ends on a straight takes the radius of the curve
            // before it; with none, the element is left out on purpose.
            double radius = r.radius;
            if (radius == 0.0 && i > 0) radius = records[i - 1].radius;
            if (radius != 0.0) out.print("SPIRAL  %0.4lf,%0.4lf\n", radius, length);
        }
    }
    out.print("STRAIGHT  %0.4lf,%0.4lf\n", records.back().azimuth, 0.0);
}

void writeCircle(OutputFile& out, std::optional<PlanePoint> at, double radius) {
    if (at) out.print("PT %0.4lf, %0.4lf, %0.4lf\n", at->x, at->y, std::fabs(radius));
}

void writeClothoids(OutputFile& out, std::optional<PlanePoint> at, double radius, double entry,
                    double exit) {
    if (at) {
        out.print("PT %0.4lf, %0.4lf, %0.4lf, %0.4lf, %0.4lf\n", at->x, at->y, std::fabs(radius),
                  entry, exit);
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
            out.print("PT %0.4lf, %0.4lf\n", r.x, r.y);
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

void splitLongArcs(Records& records, std::size_t capacity) {
    // The first split works on the records in file order, and sorts them.
    if (!splitFirstAndSort(records, capacity)) return;
    if (allWellApart(records))
        splitWalking(records, capacity);
    else
        splitBySorting(records, capacity);
}

Outcome writeElementForm(const std::string& entrada, const std::string& salida) {
    // Comment lines are read as numbers here, deliberately.
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
