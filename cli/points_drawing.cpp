// Points drawn in plan, north up, each with its name beside it.
#include "cli/svg_drawing_page.h"

namespace quelcnv::cli::svg {

namespace {

// The dots in true coordinates in one group, the names (page coordinates,
// so that they read upright) after it.
void pointDots(Page& page, const Mapping& m, const std::vector<NamedPoint>& points) {
    page.body += "<g id=\"puntos\" " + m.group() + ">\n";
    for (const NamedPoint& p : points)
        page.dot(m, PlanePoint{p.x, p.y}, 3,
                 "class=\"punto\" data-nombre=\"" + escaped(p.name) + "\" data-cota=\"" + num(p.z) +
                     "\" fill=\"black\"");
    page.body += "</g>\n";
    for (const NamedPoint& p : points)
        page.text(m.x(p.x) + 5, m.y(p.y) - 5, escaped(p.name), R"( class="nombre" font-size="11")");
}

}  // namespace

std::string pointsSvg(const FileModel& content) {
    Page page(content.unit);
    Box box;
    for (const NamedPoint& p : content.points) box.add(PlanePoint{p.x, p.y});
    box.widen(1.0);
    Mapping m = fit(box, top, planHeight);
    pointDots(page, m, content.points);
    double below = m.y(box.minY) + 40;
    page.northArrow(below);
    page.scaleBar(left, below, niceBelow(areaWidth / 5 / m.sx), m.sx);
    page.legend(left + 400, below, {{"Punto, con su nombre", ""}});
    return page.finish(content, "Puntos (" + std::to_string(content.points.size()) + ")");
}

}  // namespace quelcnv::cli::svg
