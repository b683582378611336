// What the XML reader hands the LandXML readers: local names, attributes in
// order without namespace declarations, one call per piece of text, the
// library's 8-bit code page, and a document end only for a whole document.
// The same events whatever the platform's parser and however the file is fed.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "landxml/sax_reader.h"
#include "tests/test_support.h"

#ifndef _WIN32
#include "landxml/expat_reader.h"
#endif

namespace quelcnv {
namespace {

// Every event as a line: "<name a=v>", "</name>", "[text]", "end". Line
// feeds in texts show as "\n".
class EventLog : public SaxHandler {
public:
    std::string log;
    bool wanting = true;

    void startElement(std::string_view name, const XmlAttributes& attributes) override {
        log.append("<").append(name);
        for (const XmlAttribute& a : attributes)
            log.append(" ").append(a.localName).append("=").append(a.value);
        log += ">\n";
    }
    void endElement(std::string_view name) override { log.append("</").append(name).append(">\n"); }
    bool wantsText() const override { return wanting; }
    void characters(std::string_view text) override {
        log += "[";
        for (char c : text) c == '\n' ? log += "\\n" : log += c;
        log += "]\n";
    }
    void endDocument() override { log += "end\n"; }
};

struct EventCase {
    const char* name;
    std::string document;
    std::string events;
};

// UTF-16 text with a byte-order mark, from ASCII and Latin-1 characters.
std::string utf16(std::string_view latin1, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (char c : latin1) {
        bytes.push_back(bigEndian ? '\0' : c);
        bytes.push_back(bigEndian ? c : '\0');
    }
    return bytes;
}

const std::string utf16Document =
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?><Alignment name=\"Eje \xF1\">a\xF1</Alignment>";
const std::string utf16Events = "<Alignment name=Eje \xF1>\n[a\xF1]\n</Alignment>\nend\n";

const EventCase eventCases[] = {
    {"text over lines is one piece", "<p>uno\ndos\n  tres</p>",
     "<p>\n[uno\\ndos\\n  tres]\n</p>\nend\n"},
    {"blank text between elements", "<a>\n <b>x</b>\n</a>",
     "<a>\n[\\n ]\n<b>\n[x]\n</b>\n[\\n]\n</a>\nend\n"},
    {"comment ends a piece", "<p>ab<!-- c -->cd</p>", "<p>\n[ab]\n[cd]\n</p>\nend\n"},
    {"CDATA section is a piece", "<p>ab<![CDATA[c<d]]>ef</p>",
     "<p>\n[ab]\n[c<d]\n[ef]\n</p>\nend\n"},
#ifndef _WIN32
    // Wine's MSXML never reports processing instructions, so under Wine the
    // text around one reaches the reader as one piece; Windows' own MSXML
    // reports them and ends the piece there.
    {"processing instruction ends a piece", "<p>ab<?pi x?>cd</p>", "<p>\n[ab]\n[cd]\n</p>\nend\n"},
#endif
    {"references do not end a piece", "<p>a&amp;b&#65;&#x42;&lt;c</p>",
     "<p>\n[a&bAB<c]\n</p>\nend\n"},
    {"prefixes and namespaces dropped",
     "<x:LandXML xmlns:x=\"urn:a\" xmlns=\"urn:b\"><Alignment x:name=\"uno\" name=\"dos\" "
     "xmlns:xsi=\"urn:c\" xsi:type=\"t\"/></x:LandXML>",
     "<LandXML>\n<Alignment name=uno name=dos type=t>\n</Alignment>\n</LandXML>\nend\n"},
    {"CR LF reads as LF", "<p a=\"1\">1 2\r\n3 4</p>\r\n", "<p a=1>\n[1 2\\n3 4]\n</p>\nend\n"},
    {"UTF-8 with byte-order mark",
     "\xEF\xBB\xBF<Alignment name=\"Eje \xC3\xB1 \xE2\x82\xAC\">\xE4\xB8\xAD \xF0\x9F\x98\x80"
     "</Alignment>",
     "<Alignment name=Eje \xF1 \x80>\n[? ??]\n</Alignment>\nend\n"},
    {"ISO-8859-1",
     "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><Alignment name=\"Eje \xF1\">\xE1</Alignment>",
     "<Alignment name=Eje \xF1>\n[\xE1]\n</Alignment>\nend\n"},
    {"windows-1252",
     "<?xml version=\"1.0\" encoding=\"windows-1252\"?><Alignment name=\"\x80 \xF1\">\x93x\x94"
     "</Alignment>",
     "<Alignment name=\x80 \xF1>\n[\x93x\x94]\n</Alignment>\nend\n"},
    {"US-ASCII", "<?xml version=\"1.0\" encoding=\"US-ASCII\"?><p>x</p>", "<p>\n[x]\n</p>\nend\n"},
    {"UTF-16 little-endian", utf16(utf16Document, false), utf16Events},
    {"UTF-16 big-endian", utf16(utf16Document, true), utf16Events},
    {"cut short: no end, no last piece", "<a><b>x</b><c>y", "<a>\n<b>\n[x]\n</b>\n<c>\n"},
    {"mismatched end tag", "<a><b>x</c></a>", "<a>\n<b>\n"},
    {"not XML at all", "PK\x03\x04 esto no es XML", ""},
    {"empty file", "", ""},
};

class SaxEventsTest : public test::FolderTest {
protected:
    std::string parse(const std::string& path, bool wanting = true) {
        EventLog handler;
        handler.wanting = wanting;
        EXPECT_TRUE(runSaxParse(handler, path).created);
        return handler.log;
    }
};

TEST_F(SaxEventsTest, DeliversLocalNamesPiecesAndEncodings) {
    for (const EventCase& c : eventCases) {
        test::writeBytes(file("doc.xml"), c.document);
        EXPECT_EQ(parse(file("doc.xml")), c.events) << c.name;
#ifndef _WIN32
        // expat fed a few bytes at a time must give the same events.
        for (std::size_t chunk : {1, 2, 3}) {
            EventLog handler;
            ASSERT_TRUE(parseWithExpat(handler, file("doc.xml"), chunk).created);
            EXPECT_EQ(handler.log, c.events) << c.name << " in chunks of " << chunk;
        }
#endif
    }
}

TEST_F(SaxEventsTest, MissingFileGivesNoEvent) { EXPECT_EQ(parse(file("missing.xml")), ""); }

// Whether the document was read to its end, could not be read, or was found
// malformed (and where, when the parser says).
TEST_F(SaxEventsTest, HowFarTheDocumentWasRead) {
    EventLog handler;
    EXPECT_EQ(runSaxParse(handler, file("missing.xml")).end, SaxEnd::unreadable);
    test::writeBytes(file("whole.xml"), "<a>\n<b/>\n</a>\n");
    EXPECT_EQ(runSaxParse(handler, file("whole.xml")).end, SaxEnd::whole);
    test::writeBytes(file("cut.xml"), "<a>\n<b/>\n<c>\n");
    SaxResult cut = runSaxParse(handler, file("cut.xml"));
    EXPECT_EQ(cut.end, SaxEnd::malformed);
#ifndef _WIN32
    EXPECT_EQ(cut.line, 4);
#endif
}

TEST_F(SaxEventsTest, TextNobodyWantsIsNotDelivered) {
    test::writeBytes(file("doc.xml"), "<p>abc<q/>def</p>");
    EXPECT_EQ(parse(file("doc.xml"), false), "<p>\n<q>\n</q>\n</p>\nend\n");
}

// A path is never cut short, even past the 127 characters a fixed buffer
// would hold.
TEST_F(SaxEventsTest, LongPathIsReadWhole) {
    std::filesystem::path folder = dir_ / std::string(140, 'c');
    std::filesystem::create_directories(folder);
    std::string path = (folder / "doc.xml").string();
    ASSERT_GT(path.size(), 140u);
    test::writeBytes(path, "<p>x</p>");
    EXPECT_EQ(parse(path), "<p>\n[x]\n</p>\nend\n");
}

// What a handler throws stops the reading and comes back to the caller once
// the parser has let go of everything.
TEST_F(SaxEventsTest, HandlerFailureStopsTheReading) {
    struct Failing : EventLog {
        void startElement(std::string_view name, const XmlAttributes& attributes) override {
            if (name == "b") throw std::runtime_error("b");
            EventLog::startElement(name, attributes);
        }
    } handler;
    test::writeBytes(file("doc.xml"), "<a>x<b/>y<c/></a>");
    EXPECT_THROW(runSaxParse(handler, file("doc.xml")), std::runtime_error);
    EXPECT_EQ(handler.log, "<a>\n[x]\n");
}

TEST(SaxAttributes, FirstOfALocalNameWinsAndNumbersReadAsTheLibraryReadsThem) {
    XmlAttributes attributes = {{"length", "12,5"}, {"name", "uno"}, {"name", "dos"}};
    EXPECT_EQ(getAttributeText(attributes, "name"), "uno");
    EXPECT_EQ(getAttributeText(attributes, "Name"), std::nullopt);
    EXPECT_EQ(getAttributeNumber(attributes, "length"), 12.0);
    EXPECT_EQ(getAttributeNumber(attributes, "radius"), std::nullopt);
    EXPECT_EQ(firstAttributeText(attributes), "12,5");
    EXPECT_EQ(firstAttributeText({}), std::nullopt);
}

// Northing first, easting second; a missing number leaves what it would set.
TEST(SaxPointText, NorthingThenEastingAndZeroElevation) {
    PointText point{1.0, 2.0, 3.0};
    EXPECT_TRUE(parsePointText("4500.1 300.2 12.0", point));
    EXPECT_EQ(point.y, 4500.1);
    EXPECT_EQ(point.x, 300.2);
    EXPECT_EQ(point.z, 0.0);
    point = {1.0, 2.0, 3.0};
    EXPECT_FALSE(parsePointText("\n4500.1\n", point));
    EXPECT_EQ(point.y, 4500.1);
    EXPECT_EQ(point.x, 2.0);
    EXPECT_EQ(point.z, 0.0);
    EXPECT_FALSE(parsePointText("4500.1\t300.2", point));  // a tab separates nothing
}

}  // namespace
}  // namespace quelcnv
