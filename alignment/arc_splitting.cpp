#include "alignment/arc_splitting.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <span>

#include "alignment/geometry.h"

namespace quelcnv {

namespace {

using Records = std::vector<AlignmentRecord>;

constexpr double infinity = std::numeric_limits<double>::infinity();

// Whether a record at station s sorts before one at station x, by the
// comparison of stations: true only when s is 0.001 or more above x.
bool sortsAfter(double s, double x) { return compareStations({.station = x}, {.station = s}) < 0; }

// The arc record that splits the element from record `arc` to record `next`
// at its middle station, evaluated on the record that holds that station.
AlignmentRecord middleRecord(const AlignmentRecord& arc, const AlignmentRecord& next,
                             const AlignmentRecord& holder, double middle) {
    ArcPoint at = pointOnArc(holder, middle);
    AlignmentRecord split;
    split.type = arcElement;
    split.station = middle;
    split.x = at.point.x;
    split.y = at.point.y;
    split.azimuth = at.azimuth;
    split.radius = at.radius;
    split.length = (next.station - arc.station) / 2.0;
    return split;
}

// The records as a sequence in a balanced tree (a treap ordered by position),
// each subtree knowing the least and greatest of its stations, whether one is
// not a number, and whether one of its records is an arc that sweeps half a
// circle before its successor. Every step of the splitting is then a walk down
// the tree instead of a scan of the records, and a record is put into its
// sorted place without sorting again.
class RecordTree {
public:
    explicit RecordTree(std::size_t capacity) {
        nodes_.reserve(capacity);
        records_.reserve(capacity);
    }

    std::size_t size() const { return nodes_.size(); }
    AlignmentRecord& record(int i) { return records_[static_cast<std::size_t>(i)]; }

    // Puts the record after every record it does not sort before: the place
    // a stable insertion gives it, equal stations keeping their order.
    void insertSorted(const AlignmentRecord& record) {
        double x = record.station;
        int after = lastWhere([x](double s) { return !sortsAfter(s, x); },
                              [x](const Node& n) { return n.hasNaN || !sortsAfter(n.least, x); });
        insert(record, after);
    }

    // The first record that is an arc sweeping half a circle before the next.
    int firstSweepingArc() const {
        int i = root_;
        while (i >= 0) {
            const Node& n = nodes_[i];
            if (n.left >= 0 && nodes_[n.left].anySweeps)
                i = n.left;
            else if (n.sweeps)
                return i;
            else if (n.right >= 0 && nodes_[n.right].anySweeps)
                i = n.right;
            else
                return -1;
        }
        return -1;
    }

    // The first record k with station(k) <= station <= station(k + 1), or -1.
    int findElement(double station) const {
        auto atMost = [station](double s) { return s <= station; };
        auto atMostIn = [station](const Node& n) { return n.least <= station; };
        auto atLeast = [station](double s) { return s >= station; };
        auto atLeastIn = [station](const Node& n) { return n.greatest >= station; };
        int a = firstWhere(atMost, atMostIn);
        while (a >= 0) {
            int b = firstAfter(a, atLeast, atLeastIn);
            if (b < 0) return -1;
            int before = previous(b);
            if (nodes_[before].station <= station) return before;
            a = nodes_[b].station <= station ? b : firstAfter(b, atMost, atMostIn);
        }
        return -1;
    }

    int next(int i) const {
        if (nodes_[i].right >= 0) return leftmost(nodes_[i].right);
        while (nodes_[i].parent >= 0 && nodes_[nodes_[i].parent].right == i) i = nodes_[i].parent;
        return nodes_[i].parent;
    }

    Records inOrder() const {
        Records records;
        records.reserve(nodes_.size());
        for (int i = root_ < 0 ? -1 : leftmost(root_); i >= 0; i = next(i))
            records.push_back(records_[static_cast<std::size_t>(i)]);
        return records;
    }

private:
    // The tree's own data, apart from the records, so that walks stay in few
    // cache lines.
    struct Node {
        double station = 0.0;
        int left = -1, right = -1, parent = -1;
        std::uint32_t priority = 0;
        bool sweeps = false;     // an arc that sweeps half a circle before the next record
        bool anySweeps = false;  // ... anywhere in the subtree
        double least = infinity,
               greatest = -infinity;  // stations of the subtree, not a number aside
        bool hasNaN = false;
    };

    int leftmost(int i) const {
        while (nodes_[i].left >= 0) i = nodes_[i].left;
        return i;
    }

    int previous(int i) const {
        if (nodes_[i].left >= 0) {
            i = nodes_[i].left;
            while (nodes_[i].right >= 0) i = nodes_[i].right;
            return i;
        }
        while (nodes_[i].parent >= 0 && nodes_[nodes_[i].parent].left == i) i = nodes_[i].parent;
        return nodes_[i].parent;
    }

    // The first record of the subtree at i that satisfies the test.
    template <typename Test, typename SubtreeTest>
    int firstIn(int i, Test test, SubtreeTest subtree) const {
        while (i >= 0) {
            const Node& n = nodes_[i];
            if (n.left >= 0 && subtree(nodes_[n.left]))
                i = n.left;
            else if (test(n.station))
                return i;
            else if (n.right >= 0 && subtree(nodes_[n.right]))
                i = n.right;
            else
                return -1;
        }
        return -1;
    }

    template <typename Test, typename SubtreeTest>
    int firstWhere(Test test, SubtreeTest subtree) const {
        return root_ >= 0 && subtree(nodes_[root_]) ? firstIn(root_, test, subtree) : -1;
    }

    // The first record after record a that satisfies the test.
    template <typename Test, typename SubtreeTest>
    int firstAfter(int a, Test test, SubtreeTest subtree) const {
        int right = nodes_[a].right;
        if (right >= 0 && subtree(nodes_[right])) return firstIn(right, test, subtree);
        for (int child = a, parent = nodes_[a].parent; parent >= 0;
             child = parent, parent = nodes_[parent].parent) {
            if (nodes_[parent].left != child) continue;
            if (test(nodes_[parent].station)) return parent;
            int other = nodes_[parent].right;
            if (other >= 0 && subtree(nodes_[other])) return firstIn(other, test, subtree);
        }
        return -1;
    }

    // The last record of the tree that satisfies the test.
    template <typename Test, typename SubtreeTest>
    int lastWhere(Test test, SubtreeTest subtree) const {
        int i = root_ >= 0 && subtree(nodes_[root_]) ? root_ : -1;
        while (i >= 0) {
            const Node& n = nodes_[i];
            if (n.right >= 0 && subtree(nodes_[n.right]))
                i = n.right;
            else if (test(n.station))
                return i;
            else if (n.left >= 0 && subtree(nodes_[n.left]))
                i = n.left;
            else
                return -1;
        }
        return -1;
    }

    void pull(int i) {
        Node& n = nodes_[i];
        double s = n.station;
        n.hasNaN = std::isnan(s);
        n.least = n.hasNaN ? infinity : s;
        n.greatest = n.hasNaN ? -infinity : s;
        n.anySweeps = n.sweeps;
        for (int child : {n.left, n.right}) {
            if (child < 0) continue;
            const Node& c = nodes_[child];
            n.least = std::min(n.least, c.least);  // never not a number: see hasNaN
            n.greatest = std::max(n.greatest, c.greatest);
            n.hasNaN = n.hasNaN || c.hasNaN;
            n.anySweeps = n.anySweeps || c.anySweeps;
        }
    }

    void pullUp(int i) {
        for (; i >= 0; i = nodes_[i].parent) pull(i);
    }

    void replaceChild(int parent, int from, int to) {
        if (parent < 0)
            root_ = to;
        else if (nodes_[parent].left == from)
            nodes_[parent].left = to;
        else
            nodes_[parent].right = to;
        if (to >= 0) nodes_[to].parent = parent;
    }

    // Turns i into the parent of its parent, the order of records kept.
    void rotateUp(int i) {
        int p = nodes_[i].parent;
        replaceChild(nodes_[p].parent, p, i);
        if (nodes_[p].left == i) {
            nodes_[p].left = nodes_[i].right;
            if (nodes_[p].left >= 0) nodes_[nodes_[p].left].parent = p;
            nodes_[i].right = p;
        } else {
            nodes_[p].right = nodes_[i].left;
            if (nodes_[p].right >= 0) nodes_[nodes_[p].right].parent = p;
            nodes_[i].left = p;
        }
        nodes_[p].parent = i;
        pull(p);
        pull(i);
    }

    void updateSweep(int i) {
        if (i < 0) return;
        int following = next(i);
        nodes_[i].sweeps = following >= 0 && arcSweepsHalfCircle(record(i), record(following));
        pullUp(i);
    }

    // Puts the record right after record `after` (-1: first of all).
    void insert(const AlignmentRecord& record, int after) {
        int i = static_cast<int>(nodes_.size());
        nodes_.push_back(Node{record.station});
        records_.push_back(record);
        nodes_[i].priority = random_();
        if (root_ < 0) {
            root_ = i;
        } else if (after < 0) {
            int first = leftmost(root_);
            nodes_[first].left = i;
            nodes_[i].parent = first;
        } else if (nodes_[after].right < 0) {
            nodes_[after].right = i;
            nodes_[i].parent = after;
        } else {
            int first = leftmost(nodes_[after].right);
            nodes_[first].left = i;
            nodes_[i].parent = first;
        }
        pullUp(i);
        while (nodes_[i].parent >= 0 && nodes_[nodes_[i].parent].priority < nodes_[i].priority)
            rotateUp(i);
        pullUp(i);
        updateSweep(i);
        updateSweep(previous(i));
    }

    std::vector<Node> nodes_;
    std::vector<AlignmentRecord> records_;  // record i belongs to node i
    int root_ = -1;
    std::minstd_rand random_{20061121};  // fixed: the shape, never the order, depends on it
};

std::optional<std::size_t> firstSweepingArc(const Records& records) {
    for (std::size_t k = 0; k + 1 < records.size(); ++k) {
        if (arcSweepsHalfCircle(records[k], records[k + 1])) return k;
    }
    return std::nullopt;
}

// The first split, on the records in the order they were read. False when
// there is none.
bool splitFirst(Records& records, std::size_t capacity) {
    if (records.size() >= capacity) return false;
    auto k = firstSweepingArc(records);
    if (!k) return false;
    double middle = (records[*k].station + records[*k + 1].station) / 2.0;
    int holder = findElement(records, middle);
    if (holder < 0) return false;
    AlignmentRecord split = middleRecord(records[*k], records[*k + 1],
                                         records[static_cast<std::size_t>(holder)], middle);
    records[*k].length = split.length;
    records.push_back(split);
    return true;
}

}  // namespace

// The rule: split the first arc, from the start of the records, that sweeps
// half a circle, at the middle station of its element, evaluated on the
// record that holds that station; sort all the records by station again
// (stations within 0.001 count as equal, and such records keep their order:
// each record goes after every record it does not sort before); repeat until
// no arc is left to split or the records fill their room. Done literally,
// every split scans and sorts all the records again, which is quadratic on a
// long alignment; here the records stand in a tree in which each step is a
// walk of logarithmic length, with the very same records as the result.
void splitLongArcs(Records& records, std::size_t capacity) {
    if (!splitFirst(records, capacity)) return;
    RecordTree tree(capacity);
    for (const AlignmentRecord& record : records) tree.insertSorted(record);
    while (tree.size() < capacity) {
        int k = tree.firstSweepingArc();
        if (k < 0) break;
        int following = tree.next(k);
        double middle = (tree.record(k).station + tree.record(following).station) / 2.0;
        int holder = tree.findElement(middle);
        if (holder < 0) break;
        AlignmentRecord split =
            middleRecord(tree.record(k), tree.record(following), tree.record(holder), middle);
        tree.record(k).length = split.length;
        tree.insertSorted(split);
    }
    records = tree.inOrder();
}

}  // namespace quelcnv
