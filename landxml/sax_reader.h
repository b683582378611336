// Reading an XML document as a stream of events, the way every LandXML
// reader of the library does: element starts with their local name and
// attributes, pieces of character data, element ends and the document's end.
// No tree is built. Behind it is expat, or on Windows the system's MSXML 3
// SAX reader.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/outcome.h"

namespace quelcnv {

// One attribute as the handlers see it: the local name (no prefix, no
// namespace) and the value, both in the library's 8-bit code page.
struct XmlAttribute {
    std::string localName;
    std::string value;
};

// The attributes of one element start, in document order. Namespace
// declarations (xmlns) are not attributes.
using XmlAttributes = std::vector<XmlAttribute>;

// What a LandXML reader does with the events of one document. Names, values
// and texts are in the library's 8-bit code page (on Windows the process's
// ANSI code page, elsewhere windows-1252); a character outside it is "?".
class SaxHandler {
public:
    virtual ~SaxHandler() = default;

    virtual void startElement(std::string_view localName, const XmlAttributes& attributes) = 0;
    virtual void endElement(std::string_view localName);
    // Whether the handler would use a piece of character data that started
    // now. A piece nobody wants is not gathered, so a long text of no use
    // costs no memory.
    virtual bool wantsText() const;
    // One piece of character data: a maximal run of text between two pieces
    // of markup (a tag, a comment, a processing instruction, a CDATA section
    // boundary), in one call; character and entity references do not break
    // it. Only called when wantsText() held as the piece began.
    virtual void characters(std::string_view text);
    // Only called when the whole document was read: a missing file, or one
    // rejected part way, gives the events up to the failure and no end.
    virtual void endDocument();
};

// How far a document was read.
enum class SaxEnd {
    whole,       // to its end: the handler saw the document end
    unreadable,  // the file could not be opened or read
    malformed,   // the parser rejected it part way
};

struct SaxResult {
    bool created = false;  // an XML reader could be created; without one nothing was read
    SaxEnd end = SaxEnd::unreadable;
    long line = 0;  // the line where a malformed document went wrong, when the parser tells
};

// Reads the document at path and hands its events to the handler. On
// Windows the MSXML 3 SAX reader is used (COM initialised and uninitialised
// within the call; a failed creation prints "\nError %08X\n\n" on standard
// output). Documents are never given a DTD from outside, external entities
// are never loaded, and entity expansion is bounded.
SaxResult runSaxParse(SaxHandler& handler, const std::string& path);

// A reading that did not reach the document's end as an outcome:
// readerUnavailable, inputUnreadable, or malformed at its line; done when it
// did.
Outcome readingOutcome(const SaxResult& result);

// Reads the document with a reader that judges it itself: the reading's
// failure when it did not reach the document's end, else the reader's
// outcome().
template <typename Reader>
Outcome readWith(Reader& reader, const std::string& path) {
    SaxResult read = runSaxParse(reader, path);
    if (!read.created || read.end != SaxEnd::whole) return readingOutcome(read);
    return reader.outcome();
}

// The value of the first attribute whose local name is exactly name.
std::optional<std::string_view> getAttributeText(const XmlAttributes& attributes,
                                                 std::string_view name);

// That value read as a number (text that is no number reads 0).
std::optional<double> getAttributeNumber(const XmlAttributes& attributes, std::string_view name);

// The value of the first attribute, whatever its name.
std::optional<std::string_view> firstAttributeText(const XmlAttributes& attributes);

// The point of a LandXML point element's text: northing, then easting, then
// an elevation that is not used, separated by blanks and line feeds.
struct PointText {
    double y = 0.0;  // northing, the first number
    double x = 0.0;  // easting, the second
    double z = 0.0;
};

// Reads the text into the point: y from the first token, x from the second,
// z set to 0. False when a token is missing; the fields not reached keep
// their values (z is 0 all the same).
bool parsePointText(std::string_view text, PointText& point);

}  // namespace quelcnv
