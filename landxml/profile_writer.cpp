#include "landxml/profile_writer.h"

#include "common/file_path.h"
#include "common/text_format.h"

namespace quelcnv {

namespace {

void writeVertex(XmlWriter& writer, const ProfileVertex& vertex, bool withCurve) {
    const char* element = withCurve ? "ParaCurve" : "PVI";
    writer.clearAttributes();
    if (withCurve) writer.addNumberAttribute("length", 2.0 * vertex.tangent, 3);
    writer.writeStartElement(element);
    writer.writeText(formatText("%0.3lf %0.3lf"_fmt, vertex.station, vertex.elevation));
    writer.writeEndElement(element);
}

void writeProfile(XmlWriter& writer, const Profile& vertices, const std::string& name) {
    writeAlignmentStart(writer, name, vertices.front().station,
                        vertices.back().station - vertices.front().station);
    writer.clearAttributes();
    writer.writeStartElement("Profile");
    writer.addTextAttribute("name", name, TextSource::fileName);
    writer.writeStartElement("ProfAlign");
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        bool inner = i > 0 && i + 1 < vertices.size();
        writeVertex(writer, vertices[i], inner && vertices[i].tangent != 0.0);
    }
    writer.writeEndElement("ProfAlign");
    writer.writeEndElement("Profile");
    writeAlignmentEnd(writer);
}

}  // namespace

Outcome writeLandXmlProfile(const Profile& vertices, const std::string& salida,
                            const Clock& clock) {
    if (vertices.empty()) return Outcome::failed(Failure::noData);
    std::string name = baseName(salida);
    Outcome written = writeLandXmlDocument(
        salida, [&](XmlWriter& writer) { writeProfile(writer, vertices, name); }, clock);
    if (written.ok()) written.written.vertices = static_cast<long>(vertices.size());
    return written;
}

}  // namespace quelcnv
