#include "cli/svg_drawing.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "cli/svg_drawing_page.h"
#include "common/output_file.h"
#include "profile/profile_evaluation.h"

namespace quelcnv::cli {

namespace svg {

namespace {

constexpr double profileHeight = 320.0;
constexpr std::size_t maxPanels = 300;

std::string elementAttributes(ElementKind kind) {
    switch (kind) {
        case ElementKind::arc: return std::string("class=\"curva\" ") + arcStyle;
        case ElementKind::clothoid: return std::string("class=\"clotoide\" ") + clothoidStyle;
        default: return std::string("class=\"recta\" ") + straightStyle;
    }
}

// Every 100 units along the alignment: a tick across it, and the station by
// the tick as far apart as the labels fit. The ticks go in true coordinates
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
        std::optional<PlanPose> found = poseAtStation(elements, station);
        if (!found) continue;
        const PlanPose& pose = *found;
        double nx = std::cos(pose.azimuth), ny = -std::sin(pose.azimuth);  // to the right
        PlanePoint a{pose.point.x - nx * half, pose.point.y - ny * half};
        PlanePoint b{pose.point.x + nx * half, pose.point.y + ny * half};
        page.polyline(m, {a, b},
                      std::string("class=\"pk\" data-pk=\"") + num(station) + "\" " + tickStyle);
        if (k % every != 0) continue;
        PlanePoint at{pose.point.x + nx * 2.5 * half, pose.point.y + ny * 2.5 * half};
        labels.text(m.x(at.x), m.y(at.y) + 4, page.station(station),
                    R"( class="pk" font-size="11" text-anchor="middle")");
    }
}

// Each element's points: a point a metre, or fewer on alignments of more
// than 200 km of curves.
std::vector<std::vector<std::vector<PlanePoint>>> planSamples(const FileModel& content, Box& box) {
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
    return samples;
}

void planAlignment(Page& page, const Mapping& m, const NamedAlignment& alignment,
                   const std::vector<std::vector<PlanePoint>>& samples) {
    page.body +=
        "<g class=\"eje\" data-nombre=\"" + escaped(alignment.name) + "\" " + m.group() + ">\n";
    for (std::size_t i = 0; i < alignment.elements.size(); ++i) {
        const PlanElement& e = alignment.elements[i];
        page.polyline(m, samples[i],
                      elementAttributes(e.kind) + " data-pk=\"" + num(e.station) + "\"");
        page.dot(m, e.start, 3, "class=\"tangencia\" fill=\"black\"");
    }
    page.dot(m, samples.back().back(), 3, "class=\"tangencia\" fill=\"black\"");
    Page labels(page.unit());
    planStations(page, labels, m, alignment.elements);
    page.body += "</g>\n" + labels.body;
    if (!alignment.name.empty()) {
        PlanePoint start = alignment.elements.front().start;
        page.text(m.x(start.x) + 6, m.y(start.y) - 6, escaped(alignment.name),
                  R"( font-size="13" font-weight="bold")");
    }
}

}  // namespace

std::string planSvg(const FileModel& content) {
    Page page(content.unit);
    Box box;
    auto samples = planSamples(content, box);
    box.widen(1.0);
    Mapping m = fit(box, top, planHeight);
    for (std::size_t a = 0; a < content.alignments.size(); ++a)
        planAlignment(page, m, content.alignments[a], samples[a]);
    double below = m.y(box.minY) + 40;
    page.northArrow(below);
    page.scaleBar(left, below, niceBelow(areaWidth / 5 / m.sx), m.sx);
    page.legend(left + 400, below,
                {{"Recta", straightStyle},
                 {"Curva circular", arcStyle},
                 {"Clotoide", clothoidStyle},
                 {"Punto de tangencia", ""},
                 {"PK cada 100 " + escaped(content.unit), tickStyle}});
    return page.finish(content, "Eje en planta");
}

namespace {

// The grade line as drawn: straight grades between the vertical curves,
// each curve a parabola sampled at most a metre apart.
struct ProfilePieces {
    std::vector<std::vector<PlanePoint>> grades, curves;
};

ProfilePieces profilePieces(const Profile& v) {
    ProfilePieces pieces;
    std::vector<VerticalCurve> curves = verticalCurves(v);
    // A point a metre, or fewer when the curves run over 200 km in all (a
    // file of nonsense tangents).
    double total = 0.0;
    for (const VerticalCurve& curve : curves) total += std::min(curve.length, 1e9);
    double spacing = std::max(1.0, total / 200000.0);
    PlanePoint at{v.front().station, v.front().elevation};
    auto curve = curves.begin();
    for (std::size_t i = 1; i + 1 < v.size(); ++i) {
        if (curve == curves.end() || curve->vertex != i) {
            pieces.grades.push_back({at, {v[i].station, v[i].elevation}});
            at = {v[i].station, v[i].elevation};
            continue;
        }
        pieces.grades.push_back({at, {curve->startStation, curve->startElevation}});
        int steps = static_cast<int>(std::clamp(std::ceil(curve->length / spacing), 16.0, 2000.0));
        auto& points = pieces.curves.emplace_back();
        for (int k = 0; k <= steps; ++k) {
            double station = curve->startStation + curve->length * k / steps;
            points.push_back({station, curve->elevationAt(station)});
        }
        at = points.back();
        ++curve;
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
    page.stationAxis(m, box.minX, box.maxX, m.y(box.minY), m.y(box.maxY));
    double step = niceAbove((box.maxY - box.minY) / 5.0);
    for (long k = static_cast<long>(std::ceil(box.minY / step)); k * step <= box.maxY; ++k) {
        double z = static_cast<double>(k) * step;
        page.line(left, m.y(z), left + m.sx * (box.maxX - box.minX), m.y(z), gridStyle);
        page.text(left - 6, m.y(z) + 4, num(z, step < 1 ? 2 : 0),
                  R"( class="cota" font-size="11" text-anchor="end")");
    }
}

void profileLines(Page& page, const Mapping& m, const Profile& v, const ProfilePieces& pieces) {
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
}

}  // namespace

std::string profileSvg(const FileModel& content) {
    Page page(content.unit);
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
    profileLines(page, m, v, pieces);
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

namespace {

// The panels' common layout: the offsets every panel spans, and the
// tallest section.
struct PanelLayout {
    std::size_t count = 0, columns = 1;
    Box across;
    double width = 0.0, height = 0.0, scale = 1.0;
};

constexpr double panelGap = 20.0;

PanelLayout panelLayout(const std::vector<CrossSection>& sections) {
    PanelLayout layout;
    layout.count = std::min(sections.size(), maxPanels);
    double tallest = 0.5;
    for (std::size_t i = 0; i < layout.count; ++i) {
        double low = std::numeric_limits<double>::infinity(), high = -low;
        for (const SectionPoint& p : sections[i].points) {
            layout.across.add({p.offset, 0.0});
            low = std::min(low, p.elevation), high = std::max(high, p.elevation);
        }
        layout.across.add({0.0, 0.0});
        tallest = std::max(tallest, high - low);
    }
    layout.across.widen(1.0);
    layout.columns = std::min<std::size_t>(3, layout.count);
    double columns = static_cast<double>(layout.columns);
    layout.width = (areaWidth - panelGap * (columns - 1)) / columns;
    layout.scale = std::min((layout.width - 20.0) / (layout.across.maxX - layout.across.minX),
                            240.0 / tallest);
    layout.height = layout.scale * tallest + 50.0;
    return layout;
}

void sectionPanel(Page& page, const PanelLayout& layout, std::size_t i,
                  const CrossSection& section) {
    double x0 = left + static_cast<double>(i % layout.columns) * (layout.width + panelGap);
    double y0 = top + static_cast<double>(i / layout.columns) * (layout.height + panelGap);
    double low = std::numeric_limits<double>::infinity();
    for (const SectionPoint& p : section.points) low = std::min(low, p.elevation);
    Mapping m;
    m.sx = m.sy = layout.scale;
    m.originX = 0.0;
    m.originY = std::floor(low);
    m.pageX = x0 + 10.0 - layout.scale * layout.across.minX;
    m.pageY = y0 + layout.height - 15.0 + layout.scale * (low - m.originY);
    page.body += "<rect x=\"" + num(x0, 1) + "\" y=\"" + num(y0, 1) + "\" width=\"" +
                 num(layout.width, 1) + "\" height=\"" + num(layout.height, 1) +
                 "\" fill=\"none\" stroke=\"#a0a0a0\"/>\n";
    page.text(x0 + 8, y0 + 16, "PK " + page.station(section.station, 3),
              R"( class="pk" font-size="12" font-weight="bold")");
    page.line(m.x(0.0), y0 + 22, m.x(0.0), y0 + layout.height - 4,
              std::string("class=\"eje\" ") + axisStyle);
    page.body +=
        "<g class=\"seccion\" data-pk=\"" + num(section.station) + "\" " + m.group() + ">\n";
    std::vector<PlanePoint> line;
    for (const SectionPoint& p : section.points) line.push_back({p.offset, p.elevation});
    page.polyline(m, line, std::string("class=\"perfil\" ") + straightStyle);
    for (const PlanePoint& p : line) page.dot(m, p, 2.5, "class=\"punto\" fill=\"black\"");
    page.body += "</g>\n";
    page.bottom = std::max(page.bottom, y0 + layout.height);
}

}  // namespace

// Every section on one scale, undistorted; the offsets line up from panel
// to panel (offset 0, the alignment, at the same place in each) and each
// panel has its own height datum.
std::string sectionsSvg(const FileModel& content) {
    Page page(content.unit);
    PanelLayout layout = panelLayout(content.sections);
    for (std::size_t i = 0; i < layout.count; ++i)
        sectionPanel(page, layout, i, content.sections[i]);
    double below = page.bottom + 40;
    if (layout.count < content.sections.size()) {
        page.text(left, below - 12,
                  "Se dibujan las " + std::to_string(layout.count) + " primeras de " +
                      std::to_string(content.sections.size()) + " secciones",
                  R"( font-size="12")");
    }
    page.scaleBar(left, below, niceBelow(areaWidth / 5 / layout.scale), layout.scale);
    page.legend(left + 400, below,
                {{"Perfil de la secci&#243;n", straightStyle},
                 {"Punto", ""},
                 {"Eje (desplazamiento 0)", axisStyle}});
    return page.finish(content,
                       "Secciones transversales (" + std::to_string(content.sections.size()) + ")");
}

}  // namespace svg

namespace {

// A station as blocks of `block` units and the rest, padded to `digits`:
// kilometres and metres, or stations of 100 feet and feet.
std::string blockLabel(double station, int decimals, double block, std::size_t digits) {
    double rounded = std::round(station * std::pow(10.0, decimals)) / std::pow(10.0, decimals);
    std::string sign = rounded < 0 ? "-" : "";
    rounded = std::abs(rounded);
    double blocks = std::floor(rounded / block + 1e-9);
    std::string rest = svg::num(rounded - blocks * block, decimals);
    std::size_t whole = rest.find('.') == std::string::npos ? rest.size() : rest.find('.');
    if (whole < digits) rest.insert(0, digits - whole, '0');
    return sign + svg::num(blocks, 0) + "+" + rest;
}

}  // namespace

std::string stationLabel(double station, int decimals) {
    return blockLabel(station, decimals, 1000.0, 3);
}

std::string stationLabelIn(double station, std::string_view unit, int decimals) {
    return unit == feetWord ? blockLabel(station, decimals, 100.0, 2)
                            : stationLabel(station, decimals);
}

std::string svgDrawing(const FileModel& content) {
    switch (content.kind) {
        case ModelKind::profile: return svg::profileSvg(content);
        case ModelKind::superelevation: return svg::superelevationSvg(content);
        case ModelKind::sections: return svg::sectionsSvg(content);
        case ModelKind::points: return svg::pointsSvg(content);
        case ModelKind::plan: break;
    }
    return svg::planSvg(content);
}

Outcome writeSvgDrawing(const FileModel& content, const std::string& path) {
    std::string svg = svgDrawing(content);
    return writeWholeFile(path, [&svg](OutputFile& out) { out.write(svg); });
}

}  // namespace quelcnv::cli
