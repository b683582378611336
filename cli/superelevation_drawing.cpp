// The superelevation drawn: the first and the second cross-fall of each row,
// in percent, against the station, with the zero line between them. Which
// side of the road each is, the files do not say: the drawing names them by
// their column.
#include <algorithm>
#include <cmath>

#include "cli/svg_drawing_page.h"

namespace quelcnv::cli::svg {

namespace {

constexpr double diagramHeight = 300.0;
constexpr char firstStyle[] = R"(stroke="#1f4e9c" stroke-width="2")";
constexpr char secondStyle[] = R"(stroke="#c0392b" stroke-width="2")";
constexpr char zeroStyle[] = R"(stroke="black" stroke-width="1")";

// Stations across, cross-falls up: the cross-falls get the diagram's height
// whatever the length of the road, and never less than 2 % either side of 0.
Mapping diagramMapping(const std::vector<SuperelevationRow>& rows, Box& box) {
    for (const SuperelevationRow& row : rows) {
        box.add({row.station, row.firstFall});
        box.add({row.station, row.secondFall});
    }
    box.add({box.minX, 2.0});
    box.add({box.minX, -2.0});
    box.widen(1.0);
    double flat = areaWidth / (box.maxX - box.minX);
    double exaggeration = diagramHeight / (box.maxY - box.minY) / flat;
    return fit(box, top, diagramHeight, exaggeration);
}

void fallAxis(Page& page, const Mapping& m, const Box& box) {
    double right = left + m.sx * (box.maxX - box.minX);
    double step = niceAbove((box.maxY - box.minY) / 6.0);
    for (long k = static_cast<long>(std::ceil(box.minY / step)); k * step <= box.maxY; ++k) {
        double fall = static_cast<double>(k) * step;
        page.line(left, m.y(fall), right, m.y(fall), gridStyle);
        page.text(left - 6, m.y(fall) + 4, num(fall, step < 1 ? 1 : 0) + " %",
                  R"( class="pendiente" font-size="11" text-anchor="end")");
    }
    page.line(left, m.y(0.0), right, m.y(0.0), std::string("class=\"cero\" ") + zeroStyle);
}

void fallLines(Page& page, const Mapping& m, const std::vector<SuperelevationRow>& rows) {
    std::vector<PlanePoint> first, second;
    for (const SuperelevationRow& row : rows) {
        first.push_back({row.station, row.firstFall});
        second.push_back({row.station, row.secondFall});
    }
    page.body += "<g id=\"peralte\" " + m.group() + ">\n";
    page.polyline(m, first, std::string("class=\"primero\" ") + firstStyle);
    page.polyline(m, second, std::string("class=\"segundo\" ") + secondStyle);
    for (const auto* side : {&first, &second})
        for (const PlanePoint& p : *side) page.dot(m, p, 2.5, "class=\"fila\" fill=\"black\"");
    page.body += "</g>\n";
}

}  // namespace

std::string superelevationSvg(const FileModel& content) {
    Page page(content.unit);
    Box box;
    Mapping m = diagramMapping(content.superelevation, box);
    fallAxis(page, m, box);
    page.stationAxis(m, box.minX, box.maxX, m.y(box.minY), m.y(box.maxY));
    fallLines(page, m, content.superelevation);
    double below = m.y(box.minY) + 50;
    page.scaleBar(left, below, niceBelow(areaWidth / 5 / m.sx), m.sx);
    page.legend(left + 400, below,
                {{"Primer peralte de la fila", firstStyle},
                 {"Segundo peralte de la fila", secondStyle},
                 {"Peralte nulo (0 %)", zeroStyle},
                 {"Fila de la tabla", ""}});
    return page.finish(content, "Peralte");
}

}  // namespace quelcnv::cli::svg
