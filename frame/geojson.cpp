#include "frame/geojson.h"

#include <charconv>
#include <cmath>

#include "frame/report_text.h"

namespace quelcnv {

namespace {

// The shortest decimal text, without an exponent, that reads back as the
// same number; null for a number JSON cannot hold.
std::string number(double value) {
    if (!std::isfinite(value)) return "null";
    char text[400];  // room for the longest fixed form of a double
    auto [end, error] = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed);
    return error == std::errc() ? std::string(text, end) : "null";
}

void addPosition(std::string& text, PlanePoint p) {
    if (text.back() != '[') text += ", ";
    text += '[';
    text += number(p.x);
    text += ", ";
    text += number(p.y);
    text += ']';
}

void addFeatureStart(std::string& text, std::string_view name) {
    text += R"({"type": "Feature", "properties": {"name": )";
    text += jsonString(nameText(name));
}

std::string alignmentFeature(const NamedAlignment& alignment, double spacing) {
    std::string text;
    addFeatureStart(text, alignment.name);
    if (!alignment.elements.empty()) {
        const PlanElement& last = alignment.elements.back();
        text += R"(, "firstStation": )";
        text += number(alignment.elements.front().station);
        text += R"(, "lastStation": )";
        text += number(last.station + last.length);
    }
    text += R"(}, "geometry": {"type": "LineString", "coordinates": [)";
    bool first = true;
    for (const PlanElement& e : alignment.elements) {
        std::vector<PlanePoint> points = samplePoints(e, spacing);
        // Each element starts where the one before it ended.
        for (std::size_t i = first ? 0 : 1; i < points.size(); ++i) addPosition(text, points[i]);
        first = false;
    }
    text += "]}}";
    return text;
}

std::string pointFeature(const NamedPoint& point) {
    std::string text;
    addFeatureStart(text, point.name);
    text += R"(, "code": )";
    text += jsonString(nameText(point.code));
    text += R"(}, "geometry": {"type": "Point", "coordinates": [)";
    text += number(point.x);
    text += ", ";
    text += number(point.y);
    text += ", ";
    text += number(point.z);
    text += "]}}";
    return text;
}

}  // namespace

std::string jsonString(std::string_view utf8) {
    std::string text = "\"";
    for (char c : utf8) {
        if (c == '"' || c == '\\') {
            text += '\\';
            text += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            static constexpr char hex[] = "0123456789abcdef";
            text += "\\u00";
            text += hex[(c >> 4) & 0xF];
            text += hex[c & 0xF];
        } else {
            text += c;
        }
    }
    return text + "\"";
}

std::optional<std::string> modelGeoJson(const FileModel& model, double spacing) {
    if (!(spacing > 0.0)) spacing = 1.0;
    std::string features;
    if (model.kind == ModelKind::plan) {
        for (const NamedAlignment& alignment : model.alignments)
            features += (features.empty() ? "" : ",\n") + alignmentFeature(alignment, spacing);
    } else if (model.kind == ModelKind::points) {
        for (const NamedPoint& point : model.points)
            features += (features.empty() ? "" : ",\n") + pointFeature(point);
    } else {
        return std::nullopt;
    }
    return "{\"type\": \"FeatureCollection\", \"features\": [\n" + features + "\n]}\n";
}

}  // namespace quelcnv
