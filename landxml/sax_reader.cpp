#include "landxml/sax_reader.h"

#include "common/numbers.h"
#include "common/tokenizer.h"

namespace quelcnv {

void SaxHandler::endElement(std::string_view) {}
bool SaxHandler::wantsText() const { return false; }
void SaxHandler::characters(std::string_view) {}
void SaxHandler::endDocument() {}

Outcome readingOutcome(const SaxResult& result) {
    if (!result.created) return Outcome::failed(Failure::readerUnavailable);
    if (result.end == SaxEnd::unreadable) return Outcome::failed(Failure::inputUnreadable);
    if (result.end == SaxEnd::malformed) return Outcome::failed(Failure::malformed, result.line);
    return Outcome::done();
}

std::optional<std::string_view> getAttributeText(const XmlAttributes& attributes,
                                                 std::string_view name) {
    for (const XmlAttribute& attribute : attributes)
        if (attribute.localName == name) return attribute.value;
    return std::nullopt;
}

std::optional<double> getAttributeNumber(const XmlAttributes& attributes, std::string_view name) {
    std::optional<std::string_view> text = getAttributeText(attributes, name);
    if (!text) return std::nullopt;
    return parseNumber(*text);
}

std::optional<std::string_view> firstAttributeText(const XmlAttributes& attributes) {
    if (attributes.empty()) return std::nullopt;
    return attributes.front().value;
}

bool parsePointText(std::string_view text, PointText& point) {
    // Blanks and line feeds separate the numbers; a tab does not.
    constexpr Separators separators = " \n";
    point.z = 0.0;
    Tokenizer tokens(text);
    auto northing = tokens.next(separators);
    if (!northing) return false;
    point.y = parseNumber(*northing);
    auto easting = tokens.next(separators);
    if (!easting) return false;
    point.x = parseNumber(*easting);
    return true;
}

}  // namespace quelcnv
