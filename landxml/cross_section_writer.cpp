#include "landxml/cross_section_writer.h"

#include "common/file_path.h"
#include "common/text_format.h"

namespace quelcnv {

void LandXmlSections::add(const SectionPointText& p) {
    if (points_++ == 0) firstStation_ = p.station;
    lastStation_ = p.station;
    auto [at, added] = byStation_.try_emplace(formatFixed(p.station, 3), sections_.size());
    if (added) sections_.push_back({at->first, {}});
    std::string& pairs = sections_[at->second].pairs;
    if (!pairs.empty()) pairs += ' ';
    appendFormatted(pairs, "%0.3lf %0.3lf"_fmt, {p.offset, p.elevation});
}

class LandXmlSectionsWriter {
public:
    static void write(XmlWriter& writer, const LandXmlSections& read, const std::string& alignment,
                      const std::string& surface) {
        writeAlignmentStart(writer, alignment, read.firstStation_,
                            read.lastStation_ - read.firstStation_);
        writer.clearAttributes();
        writer.writeStartElement("CrossSects");
        for (const LandXmlSections::Section& section : read.sections_) {
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
    static long sections(const LandXmlSections& read) {
        return static_cast<long>(read.sections_.size());
    }
};

Outcome writeLandXmlSections(const LandXmlSections& sections, const std::string& surfaceName,
                             const std::string& salida, const Clock& clock) {
    if (sections.points() == 0) return Outcome::failed(Failure::noData);
    std::string alignment = baseName(salida);
    std::string surface = baseName(surfaceName);
    Outcome written = writeLandXmlDocument(
        salida,
        [&](XmlWriter& writer) {
            LandXmlSectionsWriter::write(writer, sections, alignment, surface);
        },
        clock);
    written = withCount(written, &Written::points, sections.points());
    return withCount(written, &Written::sections,
                     static_cast<std::size_t>(LandXmlSectionsWriter::sections(sections)));
}

}  // namespace quelcnv
