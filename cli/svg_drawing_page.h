// What every SVG drawing is made of, shared by the drawings of each kind:
// numbers as the library prints them, the mapping of true coordinates onto
// the page, and the page with its scale bar, legend and station labels.
// Private to the drawings.
#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/plane.h"
#include "frame/file_models.h"
#include "landxml/xml_writer.h"

namespace quelcnv::cli::svg {

inline constexpr double pageWidth = 1200.0;
inline constexpr double left = 60.0;
inline constexpr double top = 80.0;
inline constexpr double areaWidth = 1080.0;
inline constexpr double planHeight = 700.0;  // the most a drawing in plan takes

// A number with fixed decimals, as the library prints them whatever the
// locale; never "-0.000".
std::string num(double value, int decimals = 3);

// A name or a file name as SVG text or attribute value.
std::string escaped(std::string_view text, TextSource source = TextSource::codePage);

// 1, 2 or 5 times a power of ten, the largest not above value.
double niceBelow(double value);
// The same, the smallest not below value.
double niceAbove(double value);

struct Box {
    double minX = std::numeric_limits<double>::infinity(), minY = minX;
    double maxX = -minX, maxY = -minX;
    void add(PlanePoint p);
    // At least `least` wide and high, about the same centre.
    void widen(double least);
};

// From true coordinates to the page: x grows right, y grows up, scales sx
// and sy. Coordinates are written less the origin, so they stay short and
// exact.
struct Mapping {
    double sx = 1.0, sy = 1.0;
    double originX = 0.0, originY = 0.0;  // the coordinates written as 0
    double pageX = 0.0, pageY = 0.0;      // where the origin falls on the page
    double x(double along) const { return pageX + sx * (along - originX); }
    double y(double up) const { return pageY - sy * (up - originY); }
    // The group attributes that put its true coordinates on the page.
    std::string group() const;
    std::string points(const std::vector<PlanePoint>& points) const;
};

// The box fitted into the area from (left, areaTop), width areaWidth and at
// most the height given, y scaled by exaggeration.
Mapping fit(const Box& box, double areaTop, double height, double exaggeration = 1.0);

// Stroke styles of the lines drawn.
inline constexpr char straightStyle[] = R"(stroke="#1f4e9c" stroke-width="2")";
inline constexpr char arcStyle[] = R"(stroke="#c0392b" stroke-width="2")";
inline constexpr char clothoidStyle[] = R"(stroke="#1e8449" stroke-width="2")";
inline constexpr char tickStyle[] = R"(stroke="black" stroke-width="1")";
inline constexpr char gridStyle[] = R"(stroke="#d0d0d0" stroke-width="1")";
inline constexpr char axisStyle[] = R"(stroke="#808080" stroke-dasharray="4 3")";

class Page {
public:
    explicit Page(std::string unit) : unit_(std::move(unit)) {}

    std::string body;
    double bottom = top;  // the lowest thing drawn so far

    void text(double x, double y, const std::string& words, const std::string& attributes = "");
    void line(double x1, double y1, double x2, double y2, const std::string& attributes);
    void polyline(const Mapping& m, const std::vector<PlanePoint>& points,
                  const std::string& attributes);
    void dot(const Mapping& m, PlanePoint p, double radius, const std::string& attributes);

    // A bar of `length` in the drawing's unit on the page at (x, y), in four
    // black and white parts.
    void scaleBar(double x, double y, double length, double scale);

    struct Key {
        std::string label;
        std::string style;  // the swatch's stroke attributes; empty: a dot
    };
    void legend(double x, double y, const std::vector<Key>& keys);

    // An arrow pointing up, the drawing's y axis, marked N.
    void northArrow(double y);

    // Ticks every 100 units of station from `from` to `to` below the
    // baseline, a grid line up to `gridTop`, and the station by the ticks
    // as far apart as the labels fit.
    void stationAxis(const Mapping& m, double from, double to, double baseline, double gridTop);

    // A station as the drawing's unit writes it (stationIn).
    std::string station(double at, int decimals = 0) const;
    // "m", "pies", or the unit as a LandXML document declares it.
    const std::string& unit() const { return unit_; }

    // The whole SVG document: the page with its title above what was drawn.
    std::string finish(const FileModel& content, const std::string& subject) const;

private:
    std::string unit_;
};

// Labels at least 40 px apart: at every 100-unit tick, or every 2nd, 5th,
// 10th...
long labelEvery(double pixelsPerUnit);

// The multiples of 100 units from first to last, the first 2,000 of them
// (200 km: more than any road, and a bound for a file of nonsense stations).
std::pair<long, long> hundreds(double first, double last);

// The drawings of each kind, as whole SVG documents.
std::string planSvg(const FileModel& content);
std::string profileSvg(const FileModel& content);
std::string superelevationSvg(const FileModel& content);
std::string sectionsSvg(const FileModel& content);
std::string pointsSvg(const FileModel& content);

}  // namespace quelcnv::cli::svg
