#include "cli/svg_drawing_page.h"

#include <algorithm>
#include <cmath>

#include "cli/svg_drawing.h"
#include "common/text_format.h"

namespace quelcnv::cli::svg {

namespace {

const char lineStyle[] = R"( fill="none" vector-effect="non-scaling-stroke")";

}  // namespace

std::string num(double value, int decimals) {
    std::string text = formatFixed(std::isfinite(value) ? value : 0.0, decimals);
    if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos)
        text.erase(0, 1);
    return text;
}

std::string escaped(std::string_view text, TextSource source) {
    return escapedXml(text, source, true);
}

double niceBelow(double value) {
    if (!(value > 0.0) || !std::isfinite(value)) return 1.0;
    double power = std::pow(10.0, std::floor(std::log10(value)));
    for (double step : {5.0, 2.0, 1.0})
        if (step * power <= value * (1.0 + 1e-12)) return step * power;
    return power;
}

double niceAbove(double value) {
    double below = niceBelow(value);
    if (below >= value * (1.0 - 1e-12)) return below;
    for (double step : {2.0, 2.5, 5.0, 10.0})
        if (below * step >= value) return below * step;
    return below * 10.0;
}

void Box::add(PlanePoint p) {
    minX = std::min(minX, p.x), maxX = std::max(maxX, p.x);
    minY = std::min(minY, p.y), maxY = std::max(maxY, p.y);
}

void Box::widen(double least) {
    if (maxX - minX < least) minX -= least / 2, maxX += least / 2;
    if (maxY - minY < least) minY -= least / 2, maxY += least / 2;
}

std::string Mapping::group() const {
    return "data-origen-x=\"" + num(originX) + "\" data-origen-y=\"" + num(originY) +
           "\" transform=\"matrix(" + num(sx, 6) + " 0 0 " + num(-sy, 6) + " " + num(pageX) + " " +
           num(pageY) + ")\"";
}

std::string Mapping::points(const std::vector<PlanePoint>& points) const {
    std::string out;
    for (const PlanePoint& p : points) {
        if (!out.empty()) out += ' ';
        out += num(p.x - originX) + "," + num(p.y - originY);
    }
    return out;
}

Mapping fit(const Box& box, double areaTop, double height, double exaggeration) {
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

void Page::text(double x, double y, const std::string& words, const std::string& attributes) {
    body += "<text x=\"" + num(x, 1) + "\" y=\"" + num(y, 1) + "\"" + attributes + ">" + words +
            "</text>\n";
}

void Page::line(double x1, double y1, double x2, double y2, const std::string& attributes) {
    body += "<line x1=\"" + num(x1, 1) + "\" y1=\"" + num(y1, 1) + "\" x2=\"" + num(x2, 1) +
            "\" y2=\"" + num(y2, 1) + "\" " + attributes + "/>\n";
}

void Page::polyline(const Mapping& m, const std::vector<PlanePoint>& points,
                    const std::string& attributes) {
    body += "<polyline " + attributes + lineStyle + " points=\"" + m.points(points) + "\"/>\n";
}

void Page::dot(const Mapping& m, PlanePoint p, double radius, const std::string& attributes) {
    body += "<ellipse cx=\"" + num(p.x - m.originX) + "\" cy=\"" + num(p.y - m.originY) +
            "\" rx=\"" + num(radius / m.sx, 4) + "\" ry=\"" + num(radius / m.sy, 4) + "\" " +
            attributes + "/>\n";
}

void Page::scaleBar(double x, double y, double length, double scale) {
    double pixels = length * scale;
    body += "<g id=\"escala\" data-longitud=\"" + num(length, 3) + "\" data-unidad=\"" +
            escaped(unit_) + "\" data-px=\"" + num(pixels, 3) + "\">\n";
    for (int i = 0; i < 4; ++i)
        body += "<rect x=\"" + num(x + i * pixels / 4, 2) + "\" y=\"" + num(y, 1) + "\" width=\"" +
                num(pixels / 4, 2) + "\" height=\"6\" stroke=\"black\" fill=\"" +
                (i % 2 == 0 ? "black" : "white") + "\"/>\n";
    text(x, y + 20, "0", R"( font-size="12")");
    text(x + pixels, y + 20, num(length, length < 1 ? 3 : 0) + " " + escaped(unit_),
         R"( font-size="12" text-anchor="middle")");
    body += "</g>\n";
}

void Page::legend(double x, double y, const std::vector<Key>& keys) {
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

void Page::northArrow(double y) {
    body += "<g id=\"norte\"><line x1=\"300\" y1=\"" + num(y + 40, 1) + "\" x2=\"300\" y2=\"" +
            num(y + 5, 1) + "\" stroke=\"black\" stroke-width=\"2\"/><text x=\"294\" y=\"" +
            num(y, 1) + "\" font-size=\"14\">N</text></g>\n";
}

void Page::stationAxis(const Mapping& m, double from, double to, double baseline, double gridTop) {
    long every = labelEvery(m.sx);
    auto [first, last] = hundreds(from, to);
    for (long k = first; k <= last; ++k) {
        double at = 100.0 * static_cast<double>(k);
        line(m.x(at), gridTop, m.x(at), baseline, gridStyle);
        line(m.x(at), baseline, m.x(at), baseline + 6, std::string("class=\"pk\" ") + tickStyle);
        if (k % every == 0)
            text(m.x(at), baseline + 20, station(at),
                 R"( class="pk" font-size="11" text-anchor="middle")");
    }
}

std::string Page::station(double at, int decimals) const {
    return stationLabelIn(at, unit_, decimals);
}

std::string Page::finish(const FileModel& content, const std::string& subject) const {
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

long labelEvery(double pixelsPerUnit) {
    for (long power = 1; power < 1000000000; power *= 10)
        for (long every : {power, 2 * power, 5 * power})
            if (static_cast<double>(every) * 100.0 * pixelsPerUnit >= 40.0) return every;
    return 1000000000;
}

std::pair<long, long> hundreds(double first, double last) {
    long from = static_cast<long>(std::ceil(std::clamp(first, -1e11, 1e11) / 100.0));
    long to = static_cast<long>(std::floor(std::clamp(last, -1e11, 1e11) / 100.0));
    return {from, std::min(to, from + 1999)};
}

}  // namespace quelcnv::cli::svg
