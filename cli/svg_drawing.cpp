#include "cli/svg_drawing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "common/output_file.h"
#include "common/text_format.h"
#include "landxml/xml_writer.h"

namespace quelcnv::cli {

namespace {

constexpr double pageWidth = 1200.0;
constexpr double left = 60.0;
constexpr double top = 80.0;
constexpr double areaWidth = 1080.0;
constexpr double planHeight = 700.0;
constexpr double profileHeight = 320.0;
constexpr std::size_t maxPanels = 300;

// A number with fixed decimals, as the library prints them whatever the
// locale; never "-0.000".
std::string num(double value, int decimals = 3) {
    std::string text = formatFixed(std::isfinite(value) ? value : 0.0, decimals);
    if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos)
        text.erase(0, 1);
    return text;
}

// A name or a file name as SVG text or attribute value.
std::string escaped(std::string_view text, TextSource source = TextSource::codePage) {
    return escapedXml(text, source, true);
}

// 1, 2 or 5 times a power of ten, the largest not above value.
double niceBelow(double value) {
    if (!(value > 0.0) || !std::isfinite(value)) return 1.0;
    double power = std::pow(10.0, std::floor(std::log10(value)));
    for (double step : {5.0, 2.0, 1.0})
        if (step * power <= value * (1.0 + 1e-12)) return step * power;
    return power;
}

// The same, the smallest not below value.
double niceAbove(double value) {
    double below = niceBelow(value);
    if (below >= value * (1.0 - 1e-12)) return below;
    for (double step : {2.0, 2.5, 5.0, 10.0})
        if (below * step >= value) return below * step;
    return below * 10.0;
}

struct Box {
    double minX = std::numeric_limits<double>::infinity(), minY = minX;
    double maxX = -minX, maxY = -minX;
    void add(PlanePoint p) {
        minX = std::min(minX, p.x), maxX = std::max(maxX, p.x);
        minY = std::min(minY, p.y), maxY = std::max(maxY, p.y);
    }
    // At least `least` wide and high, about the same centre.
    void widen(double least) {
        if (maxX - minX < least) minX -= least / 2, maxX += least / 2;
        if (maxY - minY < least) minY -= least / 2, maxY += least / 2;
    }
};

// From metres to the page: x grows right, y grows up, scales sx and sy.
// Coordinates are written less the origin, so they stay short and exact.
struct Mapping {
    double sx = 1.0, sy = 1.0;
    double originX = 0.0, originY = 0.0;  // the metres written as 0
    double pageX = 0.0, pageY = 0.0;      // where the origin falls on the page
    double x(double metres) const { return pageX + sx * (metres - originX); }
    double y(double metres) const { return pageY - sy * (metres - originY); }
    // The group attributes that put its true coordinates on the page.
    std::string group() const {
        return "data-origen-x=\"" + num(originX) + "\" data-origen-y=\"" + num(originY) +
               "\" transform=\"matrix(" + num(sx, 6) + " 0 0 " + num(-sy, 6) + " " + num(pageX) +
               " " + num(pageY) + ")\"";
    }
    std::string points(const std::vector<PlanePoint>& points) const {
        std::string out;
        for (const PlanePoint& p : points) {
            if (!out.empty()) out += ' ';
            out += num(p.x - originX) + "," + num(p.y - originY);
        }
        return out;
    }
};

// The box fitted into the area from (left, areaTop), width areaWidth and at
// most the height given, y scaled by exaggeration.
Mapping fit(const Box& box, double areaTop, double height, double exaggeration = 1.0) {
    Mapping m;
    m.sx = std::min(areaWidth / (box.maxX - box.minX),
                    height / ((box.maxY - box.minY) * exaggeration));
    m.sy = m.sx * exaggeration;
    m.originX = std::floor(box.minX);
    m.originY = std::floor(box.minY);
    m.pageX = left + m.sx * (m.originX - box.minX);
    m.pageY = areaTop + m.sy * (box.maxY - m.originY);
    return m;
}

const char lineStyle[] = R"( fill="none" vector-effect="non-scaling-stroke")";

class Page {
public:
    std::string body;
    double bottom = top;  // the lowest thing drawn so far

    void text(double x, double y, const std::string& words, const std::string& attributes = "") {
        body += "<text x=\"" + num(x, 1) + "\" y=\"" + num(y, 1) + "\"" + attributes + ">" + words +
                "</text>\n";
    }
    void line(double x1, double y1, double x2, double y2, const std::string& attributes) {
        body += "<line x1=\"" + num(x1, 1) + "\" y1=\"" + num(y1, 1) + "\" x2=\"" + num(x2, 1) +
                "\" y2=\"" + num(y2, 1) + "\" " + attributes + "/>\n";
    }
    void polyline(const Mapping& m, const std::vector<PlanePoint>& points,
                  const std::string& attributes) {
        body += "<polyline " + attributes + lineStyle + " points=\"" + m.points(points) + "\"/>\n";
    }
    void dot(const Mapping& m, PlanePoint p, double radius, const std::string& attributes) {
        body += "<ellipse cx=\"" + num(p.x - m.originX) + "\" cy=\"" + num(p.y - m.originY) +
                "\" rx=\"" + num(radius / m.sx, 4) + "\" ry=\"" + num(radius / m.sy, 4) + "\" " +
                attributes + "/>\n";
    }

    // A bar of `metres` on the page at (x, y), in four black and white parts.
    void scaleBar(double x, double y, double metres, double scale) {
        double length = metres * scale;
        body += "<g id=\"escala\" data-metros=\"" + num(metres, 3) + "\" data-px=\"" +
                num(length, 3) + "\">\n";
        for (int i = 0; i < 4; ++i)
            body += "<rect x=\"" + num(x + i * length / 4, 2) + "\" y=\"" + num(y, 1) +
                    "\" width=\"" + num(length / 4, 2) +
                    "\" height=\"6\" stroke=\"black\" fill=\"" + (i % 2 == 0 ? "black" : "white") +
                    "\"/>\n";
        text(x, y + 20, "0", R"( font-size="12")");
        text(x + length, y + 20, num(metres, metres < 1 ? 3 : 0) + " m",
             R"( font-size="12" text-anchor="middle")");
        body += "</g>\n";
    }

    struct Key {
        std::string label;
        std::string style;  // the swatch's stroke attributes; empty: a dot
    };
    void legend(double x, double y, const std::vector<Key>& keys) {
        body += "<g id=\"leyenda\">\n";
        text(x, y, "Leyenda", R"( font-size="13" font-weight="bold")");
        for (std::size_t i = 0; i < keys.size(); ++i) {
            double row = y + 20 + 18 * static_cast<double>(i);
            if (keys[i].style.empty())
                body += "<circle cx=\"" + num(x + 15, 1) + "\" cy=\"" + num(row - 4, 1) +
                        "\" r=\"3\" fill=\"black\"/>\n";
            else
                line(x, row - 4, x + 30, row - 4, keys[i].style);
            text(x + 40, row, keys[i].label, R"( font-size="12")");
        }
        body += "</g>\n";
        bottom = std::max(bottom, y + 20 + 18 * static_cast<double>(keys.size()));
    }

    std::string finish(const DrawingContent& content, const std::string& subject) const {
        double height = bottom + 30;
        std::string head =
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
            num(pageWidth, 0) + "\" height=\"" + num(height, 0) + "\" viewBox=\"0 0 " +
            num(pageWidth, 0) + " " + num(height, 0) +
            "\" font-family=\"DejaVu Sans, Arial, sans-serif\">\n";
        std::string title = escaped(content.file, TextSource::fileName);
        if (!content.name.empty()) title += " - " + escaped(content.name);
        head += "<title>" + subject + ": " + title + "</title>\n";
        head += "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
        head += "<text x=\"60\" y=\"30\" font-size=\"18\" font-weight=\"bold\">" + subject +
                "</text>\n<text x=\"60\" y=\"52\" font-size=\"13\">" + title + "</text>\n";
        return head + body + "</svg>\n";
    }
};

const char straightStyle[] = R"(stroke="#1f4e9c" stroke-width="2")";
const char arcStyle[] = R"(stroke="#c0392b" stroke-width="2")";
const char clothoidStyle[] = R"(stroke="#1e8449" stroke-width="2")";
const char tickStyle[] = R"(stroke="black" stroke-width="1")";
const char gridStyle[] = R"(stroke="#d0d0d0" stroke-width="1")";

std::string elementAttributes(ElementKind kind) {
    switch (kind) {
        case ElementKind::arc: return std::string("class=\"curva\" ") + arcStyle;
        case ElementKind::clothoid: return std::string("class=\"clotoide\" ") + clothoidStyle;
        default: return std::string("class=\"recta\" ") + straightStyle;
    }
}

// Labels at least 40 px apart: at every 100 m tick, or every 2nd, 5th, 10th...
long labelEvery(double pixelsPerMetre) {
    for (long power = 1; power < 1000000000; power *= 10)
        for (long every : {power, 2 * power, 5 * power})
            if (static_cast<double>(every) * 100.0 * pixelsPerMetre >= 40.0) return every;
    return 1000000000;
}

// The multiples of 100 m from first to last, the first 2,000 of them (200 km:
// more than any road, and a bound for a file of nonsense stations).
std::pair<long, long> hundreds(double first, double last) {
    long from = static_cast<long>(std::ceil(std::clamp(first, -1e12, 1e12) / 100.0));
    long to = static_cast<long>(std::floor(std::clamp(last, -1e12, 1e12) / 100.0));
    return {from, std::min(to, from + 1999)};
}

// Every 100 m along the alignment: a tick across it, and the station by the
// tick as far apart as the labels fit. The ticks go in true coordinates
// into the alignment's group, the labels (page coordinates) after it.
void planStations(Page& page, Page& labels, const Mapping& m,
                  const std::vector<PlanElement>& elements) {
    double first = elements.front().station;
    double last = elements.back().station + elements.back().length;
    long every = labelEvery(m.sx);
    double half = 8.0 / m.sx;
    auto [from, to] = hundreds(first, last);
    for (long k = from; k <= to; ++k) {
        double station = 100.0 * static_cast<double>(k);
        PlanPose pose;
        if (!poseAtStation(elements, station, pose)) continue;
        double nx = std::cos(pose.azimuth), ny = -std::sin(pose.azimuth);  // to the left
        PlanePoint a{pose.point.x - nx * half, pose.point.y - ny * half};
        PlanePoint b{pose.point.x + nx * half, pose.point.y + ny * half};
        page.polyline(m, {a, b},
                      std::string("class=\"pk\" data-pk=\"") + num(station) + "\" " + tickStyle);
        if (k % every != 0) continue;
        PlanePoint at{pose.point.x + nx * 2.5 * half, pose.point.y + ny * 2.5 * half};
        labels.text(m.x(at.x), m.y(at.y) + 4, stationLabel(station),
                    R"( class="pk" font-size="11" text-anchor="middle")");
    }
}

std::string planSvg(const DrawingContent& content) {
    Page page;
    Box box;
    // A point a metre, or fewer on alignments of more than 200 km of curves.
    double curved = 0.0;
    for (const NamedAlignment& alignment : content.alignments)
        for (const PlanElement& e : alignment.elements)
            if (e.kind != ElementKind::straight) curved += std::min(e.length, 1e9);
    double spacing = std::max(1.0, curved / 200000.0);
    std::vector<std::vector<std::vector<PlanePoint>>> samples;
    for (const NamedAlignment& alignment : content.alignments) {
        auto& pieces = samples.emplace_back();
        for (const PlanElement& e : alignment.elements) {
            pieces.push_back(samplePoints(e, spacing));
            for (const PlanePoint& p : pieces.back()) box.add(p);
        }
    }
    box.widen(1.0);
    Mapping m = fit(box, top, planHeight);
    for (std::size_t a = 0; a < content.alignments.size(); ++a) {
        const NamedAlignment& alignment = content.alignments[a];
        page.body +=
            "<g class=\"eje\" data-nombre=\"" + escaped(alignment.name) + "\" " + m.group() + ">\n";
        for (std::size_t i = 0; i < alignment.elements.size(); ++i) {
            const PlanElement& e = alignment.elements[i];
            page.polyline(m, samples[a][i],
                          elementAttributes(e.kind) + " data-pk=\"" + num(e.station) + "\"");
            page.dot(m, e.start, 3, "class=\"tangencia\" fill=\"black\"");
        }
        page.dot(m, samples[a].back().back(), 3, "class=\"tangencia\" fill=\"black\"");
        Page labels;
        planStations(page, labels, m, alignment.elements);
        page.body += "</g>\n" + labels.body;
        if (!alignment.name.empty()) {
            PlanePoint start = alignment.elements.front().start;
            page.text(m.x(start.x) + 6, m.y(start.y) - 6, escaped(alignment.name),
                      R"( font-size="13" font-weight="bold")");
        }
    }
    double below = m.y(box.minY) + 40;
    // North is up: the drawing's y axis.
    page.body += "<g id=\"norte\"><line x1=\"300\" y1=\"" + num(below + 40, 1) +
                 "\" x2=\"300\" y2=\"" + num(below + 5, 1) +
                 "\" stroke=\"black\" stroke-width=\"2\"/><text x=\"294\" y=\"" + num(below, 1) +
                 "\" font-size=\"14\">N</text></g>\n";
    page.scaleBar(left, below, niceBelow(areaWidth / 5 / m.sx), m.sx);
    page.legend(left + 400, below,
                {{"Recta", straightStyle},
                 {"Curva circular", arcStyle},
                 {"Clotoide", clothoidStyle},
                 {"Punto de tangencia", ""},
                 {"PK cada 100 m", tickStyle}});
    return page.finish(content, "Eje en planta");
}

// The grade line as drawn: straight grades between the vertical curves,
// each curve a parabola sampled at most a metre apart.
struct ProfilePieces {
    std::vector<std::vector<PlanePoint>> grades, curves;
};

ProfilePieces profilePieces(const Profile& v) {
    ProfilePieces pieces;
    // A point a metre, or fewer when the curves run over 200 km in all (a
    // file of nonsense tangents).
    double curves = 0.0;
    for (const ProfileVertex& vertex : v)
        if (vertex.tangent > 0.0) curves += std::min(2.0 * vertex.tangent, 1e9);
    double spacing = std::max(1.0, curves / 200000.0);
    PlanePoint at{v.front().station, v.front().elevation};
    for (std::size_t i = 1; i + 1 < v.size(); ++i) {
        double t = v[i].tangent;
        double g1 = gradeBetween(v[i - 1], v[i]), g2 = gradeBetween(v[i], v[i + 1]);
        if (!(t > 0.0) || !std::isfinite(t) || std::abs(g1) >= verticalGrade ||
            std::abs(g2) >= verticalGrade) {
            pieces.grades.push_back({at, {v[i].station, v[i].elevation}});
            at = {v[i].station, v[i].elevation};
            continue;
        }
        PlanePoint begin{v[i].station - t, v[i].elevation - g1 * t};
        pieces.grades.push_back({at, begin});
        int steps = static_cast<int>(std::clamp(std::ceil(2.0 * t / spacing), 16.0, 2000.0));
        auto& curve = pieces.curves.emplace_back();
        for (int k = 0; k <= steps; ++k) {
            double d = 2.0 * t * k / steps;
            curve.push_back({begin.x + d, begin.y + g1 * d + (g2 - g1) * d * d / (4.0 * t)});
        }
        at = curve.back();
    }
    pieces.grades.push_back({at, {v.back().station, v.back().elevation}});
    return pieces;
}

// The vertical scale over the horizontal one: a round factor that makes the
// drawing about profileHeight high, never below 1.
double exaggerationFor(const Box& box) {
    double flat = std::min(areaWidth / (box.maxX - box.minX), 500.0 / (box.maxY - box.minY));
    double wanted = profileHeight / (flat * (box.maxY - box.minY));
    return wanted >= 1.0 ? std::min(niceBelow(wanted), 1000.0) : 1.0;
}

void profileAxes(Page& page, const Mapping& m, const Box& box) {
    double base = m.y(box.minY);
    long every = labelEvery(m.sx);
    auto [from, to] = hundreds(box.minX, box.maxX);
    for (long k = from; k <= to; ++k) {
        double st = 100.0 * static_cast<double>(k);
        page.line(m.x(st), m.y(box.maxY), m.x(st), base, gridStyle);
        page.line(m.x(st), base, m.x(st), base + 6, std::string("class=\"pk\" ") + tickStyle);
        if (k % every == 0)
            page.text(m.x(st), base + 20, stationLabel(st),
                      R"( class="pk" font-size="11" text-anchor="middle")");
    }
    double step = niceAbove((box.maxY - box.minY) / 5.0);
    for (long k = static_cast<long>(std::ceil(box.minY / step)); k * step <= box.maxY; ++k) {
        double z = static_cast<double>(k) * step;
        page.line(left, m.y(z), left + m.sx * (box.maxX - box.minX), m.y(z), gridStyle);
        page.text(left - 6, m.y(z) + 4, num(z, step < 1 ? 2 : 0),
                  R"( class="cota" font-size="11" text-anchor="end")");
    }
}

std::string profileSvg(const DrawingContent& content) {
    Page page;
    const Profile& v = content.profile;
    ProfilePieces pieces = profilePieces(v);
    Box box;
    for (const auto* set : {&pieces.grades, &pieces.curves})
        for (const auto& piece : *set)
            for (const PlanePoint& p : piece) box.add(p);
    for (const ProfileVertex& vertex : v) box.add({vertex.station, vertex.elevation});
    box.widen(0.5);
    double exaggeration = exaggerationFor(box);
    Mapping m = fit(box, top, 500.0, exaggeration);
    profileAxes(page, m, box);
    page.body += "<g id=\"rasante\" " + m.group() + ">\n";
    std::vector<PlanePoint> polygon;
    for (const ProfileVertex& vertex : v) polygon.push_back({vertex.station, vertex.elevation});
    page.polyline(m, polygon,
                  R"(class="poligonal" stroke="#808080" stroke-width="1" stroke-dasharray="6 4")");
    for (const auto& piece : pieces.grades)
        page.polyline(m, piece, std::string("class=\"pendiente\" ") + straightStyle);
    for (const auto& piece : pieces.curves)
        page.polyline(m, piece, std::string("class=\"acuerdo\" ") + arcStyle);
    for (const PlanePoint& p : polygon) page.dot(m, p, 3, "class=\"vertice\" fill=\"black\"");
    page.body += "</g>\n";
    double below = m.y(box.minY) + 50;
    page.scaleBar(left, below, niceBelow(areaWidth / 5 / m.sx), m.sx);
    std::string factor = num(exaggeration, exaggeration < 10 ? 1 : 0);
    page.text(left, below + 45,
              exaggeration > 1.0
                  ? "Escala vertical exagerada " + factor + " veces respecto a la horizontal"
                  : "Escala vertical igual a la horizontal",
              " id=\"exageracion\" data-factor=\"" + num(exaggeration, 3) + "\" font-size=\"13\"");
    page.bottom = std::max(page.bottom, below + 45);
    page.legend(left + 400, below,
                {{"Pendiente", straightStyle},
                 {"Acuerdo vertical", arcStyle},
                 {"Poligonal de v&#233;rtices",
                  R"(stroke="#808080" stroke-width="1" stroke-dasharray="6 4")"},
                 {"V&#233;rtice", ""}});
    return page.finish(content, "Rasante");
}

// Every section on one scale, undistorted; the offsets line up from panel
// to panel (offset 0, the alignment, at the same place in each) and each
// panel has its own height datum.
std::string sectionsSvg(const DrawingContent& content) {
    Page page;
    std::size_t count = std::min(content.sections.size(), maxPanels);
    Box across;
    double tallest = 0.5;
    for (std::size_t i = 0; i < count; ++i) {
        double low = std::numeric_limits<double>::infinity(), high = -low;
        for (const SectionPoint& p : content.sections[i].points) {
            across.add({p.offset, 0.0});
            low = std::min(low, p.elevation), high = std::max(high, p.elevation);
        }
        across.add({0.0, 0.0});
        tallest = std::max(tallest, high - low);
    }
    across.widen(1.0);
    std::size_t columns = std::min<std::size_t>(3, count);
    double gap = 20.0, panelWidth = (areaWidth - gap * static_cast<double>(columns - 1)) / columns;
    double scale = std::min((panelWidth - 20.0) / (across.maxX - across.minX), 240.0 / tallest);
    double panelHeight = scale * tallest + 50.0;
    for (std::size_t i = 0; i < count; ++i) {
        const CrossSection& section = content.sections[i];
        double x0 = left + static_cast<double>(i % columns) * (panelWidth + gap);
        double y0 = top + static_cast<double>(i / columns) * (panelHeight + gap);
        double low = std::numeric_limits<double>::infinity();
        for (const SectionPoint& p : section.points) low = std::min(low, p.elevation);
        Mapping m;
        m.sx = m.sy = scale;
        m.originX = 0.0;
        m.originY = std::floor(low);
        m.pageX = x0 + 10.0 - scale * across.minX;
        m.pageY = y0 + panelHeight - 15.0 + scale * (low - m.originY);
        page.body += "<rect x=\"" + num(x0, 1) + "\" y=\"" + num(y0, 1) + "\" width=\"" +
                     num(panelWidth, 1) + "\" height=\"" + num(panelHeight, 1) +
                     "\" fill=\"none\" stroke=\"#a0a0a0\"/>\n";
        page.text(x0 + 8, y0 + 16, "PK " + stationLabel(section.station, 3),
                  R"( class="pk" font-size="12" font-weight="bold")");
        page.line(m.x(0.0), y0 + 22, m.x(0.0), y0 + panelHeight - 4,
                  R"(class="eje" stroke="#808080" stroke-dasharray="4 3")");
        page.body +=
            "<g class=\"seccion\" data-pk=\"" + num(section.station) + "\" " + m.group() + ">\n";
        std::vector<PlanePoint> line;
        for (const SectionPoint& p : section.points) line.push_back({p.offset, p.elevation});
        page.polyline(m, line, std::string("class=\"perfil\" ") + straightStyle);
        for (const PlanePoint& p : line) page.dot(m, p, 2.5, "class=\"punto\" fill=\"black\"");
        page.body += "</g>\n";
        page.bottom = std::max(page.bottom, y0 + panelHeight);
    }
    double below = page.bottom + 40;
    if (count < content.sections.size()) {
        page.text(left, below - 12,
                  "Se dibujan las " + std::to_string(count) + " primeras de " +
                      std::to_string(content.sections.size()) + " secciones",
                  R"( font-size="12")");
    }
    page.scaleBar(left, below, niceBelow(areaWidth / 5 / scale), scale);
    page.legend(left + 400, below,
                {{"Perfil de la secci&#243;n", straightStyle},
                 {"Punto", ""},
                 {"Eje (desplazamiento 0)", R"(stroke="#808080" stroke-dasharray="4 3")"}});
    return page.finish(content,
                       "Secciones transversales (" + std::to_string(content.sections.size()) + ")");
}

}  // namespace

std::string stationLabel(double station, int decimals) {
    double rounded = std::round(station * std::pow(10.0, decimals)) / std::pow(10.0, decimals);
    std::string sign = rounded < 0 ? "-" : "";
    rounded = std::abs(rounded);
    double kilometres = std::floor(rounded / 1000.0 + 1e-9);
    std::string metres = num(rounded - kilometres * 1000.0, decimals);
    std::size_t whole = metres.find('.') == std::string::npos ? metres.size() : metres.find('.');
    if (whole < 3) metres.insert(0, 3 - whole, '0');
    return sign + num(kilometres, 0) + "+" + metres;
}

std::string svgDrawing(const DrawingContent& content) {
    switch (content.kind) {
        case DrawingKind::profile: return profileSvg(content);
        case DrawingKind::sections: return sectionsSvg(content);
        default: return planSvg(content);
    }
}

Outcome writeSvgDrawing(const DrawingContent& content, const std::string& path) {
    std::string svg = svgDrawing(content);
    return writeWholeFile(path, [&svg](OutputFile& out) { out.write(svg); });
}

}  // namespace quelcnv::cli
