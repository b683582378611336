#include "landxml/xml_writer.h"

#include <algorithm>

#include "common/code_page.h"
#include "common/text_format.h"

namespace quelcnv {

namespace {

constexpr std::size_t flushSize = 1 << 16;

// Characters XML 1.0 does not allow at all, not even as references; they
// are written as "?" so that the document stays well-formed.
bool isForbidden(char32_t c) {
    return (c < 0x20 && c != '\t' && c != '\n' && c != '\r') || c == 0xFFFE || c == 0xFFFF ||
           (c >= 0xD800 && c <= 0xDFFF);
}

}  // namespace

std::string escapedXml(std::string_view text, TextSource source, bool inAttribute) {
    auto plain = [](char c) {  // ASCII that stands for itself in text and in values
        return (c >= 0x20 && c < 0x7F && c != '&' && c != '<' && c != '>' && c != '"') ||
               c == '\t' || c == '\n' || c == '\r';
    };
    if (std::all_of(text.begin(), text.end(), plain)) return std::string(text);
    std::u32string characters =
        source == TextSource::fileName ? fileNameCharacters(text) : codePageCharacters(text);
    std::string out;
    out.reserve(text.size());
    for (char32_t c : characters) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        else if (c == '"' && inAttribute)
            out += "&quot;";
        else if (isForbidden(c))
            out += '?';
        else if (c >= 0x80)
            out += "&#" + std::to_string(static_cast<unsigned long>(c)) + ";";
        else
            out += static_cast<char>(c);
    }
    return out;
}

void XmlWriter::addTextAttribute(std::string_view name, std::string_view value, TextSource source) {
    attributes_.emplace_back(std::string(name), escapedXml(value, source, true));
}

void XmlWriter::addNumberAttribute(std::string_view name, double value, int decimals) {
    attributes_.emplace_back(std::string(name), formatFixed(value, decimals));
}

void XmlWriter::writeStartElement(std::string_view name) {
    closeStartTag();
    pending_ += '<';
    pending_ += name;
    for (const auto& [attribute, value] : attributes_) {
        pending_ += ' ';
        pending_ += attribute;
        pending_ += "=\"";
        pending_ += value;
        pending_ += '"';
    }
    startTagOpen_ = true;
}

void XmlWriter::writeEndElement(std::string_view name) {
    if (startTagOpen_) {
        pending_ += "/>";
        startTagOpen_ = false;
    } else {
        pending_ += "</";
        pending_ += name;
        pending_ += '>';
    }
    if (pending_.size() >= flushSize) flush();
}

void XmlWriter::writeText(std::string_view text) {
    if (text.empty()) return;
    closeStartTag();
    pending_ += escapedXml(text, TextSource::codePage, false);
}

void XmlWriter::writeRaw(std::string_view text) {
    closeStartTag();
    pending_ += text;
}

void XmlWriter::flush() {
    out_.write(pending_);
    pending_.clear();
}

void XmlWriter::closeStartTag() {
    if (!startTagOpen_) return;
    pending_ += '>';
    startTagOpen_ = false;
}

}  // namespace quelcnv
