#include "landxml/cross_section_writer.h"

#include <unordered_map>

#include "common/file_path.h"
#include "common/text_format.h"

namespace quelcnv {

namespace {

// The points of one station, "offset elevation" pairs.
struct Section {
    std::string station;  // as written, three decimals
    std::string pairs;
};

// Stations that print the same are one section, so that no two CrossSect
// elements carry the same station.
std::vector<Section> sectionsOf(const std::vector<SectionPoint>& points) {
    std::vector<Section> sections;
    std::unordered_map<std::string, std::size_t> byStation;
    for (const SectionPoint& p : points) {
        std::string station = formatFixed(p.station, 3);
        auto [at, added] = byStation.try_emplace(station, sections.size());
        if (added) sections.push_back({station, {}});
        std::string& pairs = sections[at->second].pairs;
        if (!pairs.empty()) pairs += ' ';
        pairs += formatText("%0.3lf %0.3lf"_fmt, p.offset, p.elevation);
    }
    return sections;
}

void writeSections(XmlWriter& writer, const std::vector<Section>& sections,
                   const std::vector<SectionPoint>& points, const std::string& alignment,
                   const std::string& surface) {
    writeAlignmentStart(writer, alignment, points.front().station,
                        points.back().station - points.front().station);
    writer.clearAttributes();
    writer.writeStartElement("CrossSects");
    for (const Section& section : sections) {
        writer.clearAttributes();
        writer.addTextAttribute("sta", section.station);
        writer.writeStartElement("CrossSect");
        writer.clearAttributes();
        writer.addTextAttribute("name", surface, TextSource::fileName);
        writer.writeStartElement("CrossSectSurf");
        writer.clearAttributes();
        writer.writeStartElement("PntList2D");
        writer.writeText(section.pairs);
        writer.writeEndElement("PntList2D");
        writer.writeEndElement("CrossSectSurf");
        writer.writeEndElement("CrossSect");
    }
    writer.writeEndElement("CrossSects");
    writeAlignmentEnd(writer);
}

}  // namespace

Outcome writeLandXmlSections(const std::vector<SectionPoint>& points,
                             const std::string& surfaceName, const std::string& salida,
                             const Clock& clock) {
    if (points.empty()) return Outcome::failed(Failure::noData);
    std::string alignment = baseName(salida);
    std::string surface = baseName(surfaceName);
    std::vector<Section> sections = sectionsOf(points);
    Outcome written = writeLandXmlDocument(
        salida,
        [&](XmlWriter& writer) { writeSections(writer, sections, points, alignment, surface); },
        clock);
    if (!written.ok()) return written;
    written.written.points = static_cast<long>(points.size());
    written.written.sections = static_cast<long>(sections.size());
    return written;
}

}  // namespace quelcnv
