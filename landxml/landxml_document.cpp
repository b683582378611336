#include "landxml/landxml_document.h"

#include "common/settings.h"
#include "common/text_format.h"

namespace quelcnv {

namespace {

// A setting of the build, unless the environment gives another.
std::string makerSetting(const char* variable, const char* configured) {
    return environmentValue(variable).value_or(configured);
}

void writeHeaders(XmlWriter& writer, const std::tm& now) {
    writer.clearAttributes();
    writer.addTextAttribute("version", "1.0");
    writer.addTextAttribute("date", landxmlDate(now));
    writer.addTextAttribute("time", landxmlTime(now));
    writer.writeStartElement("LandXML");

    writer.clearAttributes();
    writer.addTextAttribute("name", "Prueba");
    writer.writeStartElement("Project");
    writer.writeEndElement("Project");

    writer.clearAttributes();
    writer.writeStartElement("Units");
    writer.addTextAttribute("areaUnit", "squareMeter");
    writer.addTextAttribute("linearUnit", "meter");
    writer.addTextAttribute("volumeUnit", "cubicMeter");
    writer.addTextAttribute("temperatureUnit", "celsius");
    writer.addTextAttribute("pressureUnit", "mmHG");
    writer.addTextAttribute("angularUnit", "grads");
    writer.addTextAttribute("directionUnit", "grads");
    writer.writeStartElement("Metric");
    writer.writeEndElement("Metric");
    writer.writeEndElement("Units");

    std::string url = makerSetting("QUELCNV_MAKER_URL", QUELCNV_MAKER_URL);
    writer.clearAttributes();
    writer.addTextAttribute("name", "VELM");
    writer.addTextAttribute("version", "4.0");
    writer.addTextAttribute("manufacturerURL", url);
    writer.writeStartElement("Application");
    writer.clearAttributes();
    writer.addTextAttribute("createdByEmail",
                            makerSetting("QUELCNV_MAKER_EMAIL", QUELCNV_MAKER_EMAIL));
    writer.addTextAttribute("company", "Almadet");
    writer.addTextAttribute("companyURL", url);
    writer.writeStartElement("Author");
    writer.writeEndElement("Author");
    writer.writeEndElement("Application");
}

}  // namespace

std::tm localNow() {
    std::time_t now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return local;
}

std::string landxmlDate(const std::tm& time) {
    int years = time.tm_year >= 100 ? time.tm_year - 100 : time.tm_year;
    return formatText("200%d-%02d-%02d"_fmt, years, time.tm_mon + 1, time.tm_mday);
}

std::string landxmlTime(const std::tm& time) {
    return formatText("%02d:%02d:%02d"_fmt, time.tm_hour, time.tm_min, time.tm_sec);
}

void writeAlignmentStart(XmlWriter& writer, const std::string& name, double staStart,
                         double length) {
    writer.clearAttributes();
    writer.writeStartElement("Alignments");
    writer.addTextAttribute("name", name, TextSource::fileName);
    writer.addNumberAttribute("staStart", staStart, 3);
    writer.addNumberAttribute("length", length, 3);
    writer.writeStartElement("Alignment");
}

void writeAlignmentEnd(XmlWriter& writer) {
    writer.writeEndElement("Alignment");
    writer.writeEndElement("Alignments");
}

Outcome writeLandXmlDocument(const std::string& salida,
                             const std::function<void(XmlWriter&)>& content, const Clock& clock) {
    return writeWholeFile(salida, [&](OutputFile& out) {
        XmlWriter writer(out);
        writer.writeRaw("<?xml version=\"1.0\"?>");
        writeHeaders(writer, clock());
        content(writer);
        writer.writeEndElement("LandXML");
        writer.writeRaw("\n");
        writer.flush();
    });
}

}  // namespace quelcnv
