// Writing an XML document, the same bytes on every platform: the whole body
// on one line, attributes in the order they were added, an element with no
// content closed in the short form (<Metric a="1"/>), & < > " escaped in
// attribute values and & < > in text, and every character outside ASCII as
// a numeric character reference (&#241;), so that a document whose
// declaration names no encoding stays well-formed and means the same text.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/output_file.h"

namespace quelcnv {

// Where a text comes from, which decides how its bytes are read.
enum class TextSource {
    codePage,  // the library's 8-bit code page (names and values of the data)
    fileName,  // a file name, in the file system's encoding
};

// The text escaped for XML: the markup characters (and the quote in
// attribute values) as entity references, everything outside ASCII as a
// numeric one, and the characters XML forbids as "?".
std::string escapedXml(std::string_view text, TextSource source, bool inAttribute);

// Writes elements, attributes and text into an output file as it goes. The
// attribute list is kept until cleared: every element start takes the list
// as it stands.
class XmlWriter {
public:
    explicit XmlWriter(OutputFile& out) : out_(out) {}
    XmlWriter(const XmlWriter&) = delete;
    XmlWriter& operator=(const XmlWriter&) = delete;
    ~XmlWriter() { flush(); }

    void clearAttributes() { attributes_.clear(); }
    void addTextAttribute(std::string_view name, std::string_view value,
                          TextSource source = TextSource::codePage);
    // The value printed with "%0.<decimals>lf".
    void addNumberAttribute(std::string_view name, double value, int decimals);
    void writeStartElement(std::string_view name);
    void writeEndElement(std::string_view name);
    // Character data; an empty text writes nothing.
    void writeText(std::string_view text);
    // Text as it stands, outside the markup (the declaration, the last line
    // feed).
    void writeRaw(std::string_view text);
    // Hands what is written so far to the output file.
    void flush();

private:
    void closeStartTag();

    OutputFile& out_;
    std::vector<std::pair<std::string, std::string>> attributes_;  // values escaped
    std::string pending_;
    bool startTagOpen_ = false;
};

}  // namespace quelcnv
