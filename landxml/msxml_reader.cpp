// The event reader over the system's MSXML 3 SAX reader, for Windows.
#include "landxml/sax_reader.h"

#include <windows.h>

#include <msxml2.h>
#include <oleauto.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "common/file_status.h"

namespace quelcnv {

namespace {

// MinGW's msxml2.h declares these identifiers but no MinGW library defines
// them. They get names of our own so that they never collide with a
// definition elsewhere in the program.

// SAXXMLReader, the version-independent MSXML 3 SAX reader
constexpr CLSID saxReaderClass{
    0x079aa557, 0x4a18, 0x424a, {0x8e, 0xee, 0xe3, 0x9f, 0x0a, 0x8d, 0x41, 0xb9}};
// ISAXXMLReader
constexpr IID saxReaderInterface{
    0xa4f96ed0, 0xf829, 0x476e, {0x81, 0xc0, 0xcd, 0xc7, 0xbd, 0x2a, 0x08, 0x02}};
// ISAXContentHandler
constexpr IID contentHandlerInterface{
    0x1545cdfa, 0x9e4e, 0x4497, {0xa8, 0xa4, 0x2b, 0xf7, 0xd0, 0x11, 0x2c, 0x44}};
// ISAXLexicalHandler
constexpr IID lexicalHandlerInterface{
    0x7f85d5f5, 0x47a8, 0x4497, {0xbd, 0xa5, 0x84, 0xba, 0x04, 0x81, 0x9e, 0xa6}};

constexpr DWORD serverContexts = CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER;

// What an event method answers to make MSXML stop the parse.
constexpr HRESULT stopParse = E_FAIL;

// UTF-16 text in the process ANSI code page; a character the code page lacks
// becomes its default character, "?", never a look-alike.
std::string toAnsi(std::wstring_view text) {
    if (text.empty()) return {};
    int length = static_cast<int>(text.size());
    int size = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), length, nullptr, 0,
                                   nullptr, nullptr);
    if (size <= 0) return {};
    std::string out(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), length, out.data(), size,
                        nullptr, nullptr);
    return out;
}

// An 8-bit path in the process ANSI code page as the UTF-16 text parseURL takes,
// whole.
std::wstring widePath(const std::string& path) {
    int size = MultiByteToWideChar(CP_ACP, 0, path.c_str(), -1, nullptr, 0);
    if (size <= 0) return {};
    std::wstring out(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, path.c_str(), -1, out.data(), size);
    out.resize(static_cast<std::size_t>(size - 1));  // the terminating zero stays in the buffer
    return out;
}

std::wstring_view wideText(const wchar_t* text, int length) {
    if (text == nullptr || length <= 0) return {};
    return {text, static_cast<std::size_t>(length)};
}

// The local part of a name: what follows the prefix of a qualified name.
std::wstring_view localPart(std::wstring_view localName, std::wstring_view qualifiedName) {
    if (!localName.empty()) return localName;
    std::size_t colon = qualifiedName.rfind(L':');
    return colon == std::wstring_view::npos ? qualifiedName : qualifiedName.substr(colon + 1);
}

// A namespace declaration, which MSXML may report among the attributes.
bool declaresNamespace(std::wstring_view qualifiedName) {
    return qualifiedName == L"xmlns" || qualifiedName.starts_with(L"xmlns:");
}

// COM for the length of one parse. A failed CoInitialize (the thread already
// runs another apartment model) leaves COM usable, and is not to be undone.
class ComApartment {
public:
    ComApartment() : initialized_(SUCCEEDED(CoInitialize(nullptr))) {}
    ~ComApartment() {
        if (initialized_) CoUninitialize();
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

private:
    bool initialized_;
};

struct ComRelease {
    void operator()(IUnknown* object) const { object->Release(); }
};
using ReaderHandle = std::unique_ptr<ISAXXMLReader, ComRelease>;

// The content and lexical handler MSXML calls during one parse. It hands the
// events to the SaxHandler, joining the chunks MSXML splits text into (at
// line ends, references and buffer edges) into pieces. It is owned by the
// parse, so its references are not counted. Whatever the SaxHandler throws
// stops the parse and is kept to be thrown again once MSXML has returned.
class SaxEvents final : public ISAXContentHandler,
                        public ISAXLexicalHandler,
                        public ISAXErrorHandler {
public:
    explicit SaxEvents(SaxHandler& handler) : handler_(handler) {}
    SaxEvents(const SaxEvents&) = delete;
    SaxEvents& operator=(const SaxEvents&) = delete;

    bool sawDocumentEnd() const { return sawDocumentEnd_; }
    // The line where the reader found the document malformed, when it said.
    long errorLine() const { return errorLine_; }
    std::exception_ptr failure() const { return failure_; }

    // The last piece, if one is open, and the end of the document.
    void finishDocument() {
        endPiece();
        handler_.endDocument();
    }

    // IUnknown, shared by both interfaces. The reader asks the object it is
    // given as lexical handler for that interface and keeps what it gets, so
    // the answer has to be a true one.
    HRESULT WINAPI QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, contentHandlerInterface)) {
            *object = static_cast<ISAXContentHandler*>(this);
        } else if (IsEqualIID(iid, lexicalHandlerInterface)) {
            *object = static_cast<ISAXLexicalHandler*>(this);
        } else {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        return S_OK;
    }
    ULONG WINAPI AddRef() override { return 0; }
    ULONG WINAPI Release() override { return 0; }

    // ISAXContentHandler.
    HRESULT WINAPI putDocumentLocator(ISAXLocator*) override { return S_OK; }
    HRESULT WINAPI startDocument() override { return S_OK; }
    HRESULT WINAPI endDocument() override {
        sawDocumentEnd_ = true;
        return S_OK;
    }
    HRESULT WINAPI startPrefixMapping(const wchar_t*, int, const wchar_t*, int) override {
        return S_OK;
    }
    HRESULT WINAPI endPrefixMapping(const wchar_t*, int) override { return S_OK; }
    HRESULT WINAPI startElement(const wchar_t*, int, const wchar_t* localName, int localLength,
                                const wchar_t* qualifiedName, int qualifiedLength,
                                ISAXAttributes* attributes) override {
        return guard([&] {
            endPiece();
            readAttributes(attributes);
            handler_.startElement(toAnsi(localPart(wideText(localName, localLength),
                                                   wideText(qualifiedName, qualifiedLength))),
                                  attributes_);
        });
    }
    HRESULT WINAPI endElement(const wchar_t*, int, const wchar_t* localName, int localLength,
                              const wchar_t* qualifiedName, int qualifiedLength) override {
        return guard([&] {
            endPiece();
            handler_.endElement(toAnsi(localPart(wideText(localName, localLength),
                                                 wideText(qualifiedName, qualifiedLength))));
        });
    }
    HRESULT WINAPI characters(const wchar_t* text, int length) override {
        return guard([&] { addText(wideText(text, length)); });
    }
    // Blanks between elements are character data like any other, as expat
    // reports them.
    HRESULT WINAPI ignorableWhitespace(const wchar_t* text, int length) override {
        return guard([&] { addText(wideText(text, length)); });
    }
    HRESULT WINAPI processingInstruction(const wchar_t*, int, const wchar_t*, int) override {
        return guard([&] { endPiece(); });
    }
    HRESULT WINAPI skippedEntity(const wchar_t*, int) override { return S_OK; }

    // ISAXLexicalHandler. A document type declaration stops the parse: no
    // DTD is read, so none can load anything or define entities.
    HRESULT WINAPI startDTD(const wchar_t*, int, const wchar_t*, int, const wchar_t*,
                            int) override {
        return stopParse;
    }
    HRESULT WINAPI endDTD() override { return S_OK; }
    HRESULT WINAPI startEntity(const wchar_t*, int) override { return S_OK; }
    HRESULT WINAPI endEntity(const wchar_t*, int) override { return S_OK; }
    HRESULT WINAPI startCDATA() override {
        return guard([&] { endPiece(); });
    }
    HRESULT WINAPI endCDATA() override {
        return guard([&] { endPiece(); });
    }
    HRESULT WINAPI comment(const wchar_t*, int) override {
        return guard([&] { endPiece(); });
    }

    // ISAXErrorHandler: a fatal error ends the parse, and its line is kept.
    HRESULT WINAPI error(ISAXLocator*, const wchar_t*, HRESULT) override { return S_OK; }
    HRESULT WINAPI fatalError(ISAXLocator* locator, const wchar_t*, HRESULT code) override {
        int line = 0;
        if (locator != nullptr && SUCCEEDED(locator->getLineNumber(&line))) errorLine_ = line;
        return code;
    }
    HRESULT WINAPI ignorableWarning(ISAXLocator*, const wchar_t*, HRESULT) override { return S_OK; }

private:
    // Runs one event unless an earlier one failed; a failure stops the parse.
    template <typename Event>
    HRESULT guard(Event&& event) {
        if (failure_) return stopParse;
        try {
            event();
            return S_OK;
        } catch (...) {
            failure_ = std::current_exception();
            return stopParse;
        }
    }

    // One chunk of character data. An empty chunk (MSXML reports one for an
    // empty CDATA section) opens no piece.
    void addText(std::wstring_view text) {
        if (text.empty()) return;
        if (!inPiece_) {
            inPiece_ = true;
            gathering_ = handler_.wantsText();
        }
        if (gathering_) text_.append(text);
    }

    void endPiece() {
        if (!inPiece_) return;
        inPiece_ = false;
        if (gathering_) handler_.characters(toAnsi(text_));
        text_.clear();
    }

    // The element's attributes in document order, namespace declarations left out.
    void readAttributes(ISAXAttributes* attributes) {
        attributes_.clear();
        int count = 0;
        if (attributes == nullptr || FAILED(attributes->getLength(&count))) return;
        for (int index = 0; index < count; ++index) readAttribute(attributes, index);
    }

    void readAttribute(ISAXAttributes* attributes, int index) {
        const wchar_t* uri = nullptr;
        const wchar_t* localName = nullptr;
        const wchar_t* qualifiedName = nullptr;
        const wchar_t* value = nullptr;
        int uriLength = 0, localLength = 0, qualifiedLength = 0, valueLength = 0;
        if (FAILED(attributes->getName(index, &uri, &uriLength, &localName, &localLength,
                                       &qualifiedName, &qualifiedLength)))
            return;
        std::wstring_view qualified = wideText(qualifiedName, qualifiedLength);
        if (declaresNamespace(qualified)) return;
        if (FAILED(attributes->getValue(index, &value, &valueLength))) return;
        attributes_.push_back({toAnsi(localPart(wideText(localName, localLength), qualified)),
                               toAnsi(wideText(value, valueLength))});
    }

    SaxHandler& handler_;
    XmlAttributes attributes_;
    std::wstring text_;  // the piece so far
    bool inPiece_ = false;
    bool gathering_ = false;
    bool sawDocumentEnd_ = false;
    long errorLine_ = 0;
    std::exception_ptr failure_;
};

// Makes the reader refuse document type declarations, load no external
// entity and report namespace declarations nowhere but in the prefix
// mappings. A reader that does not know a feature keeps its default, and the
// handler copes: it drops xmlns attributes and stops at a DTD itself. Wine's
// msxml3 accepts prohibit-dtd but ignores it and never reports a DTD; it
// loads no external subset or entity either, and stops at a reference to any
// entity a DTD declares, so nothing is loaded or expanded there as well.
void configureReader(ISAXXMLReader& reader, SaxEvents& events) {
    reader.putFeature(L"prohibit-dtd", VARIANT_TRUE);
    reader.putFeature(L"http://xml.org/sax/features/namespace-prefixes", VARIANT_FALSE);
    reader.putFeature(L"http://xml.org/sax/features/external-general-entities", VARIANT_FALSE);
    reader.putFeature(L"http://xml.org/sax/features/external-parameter-entities", VARIANT_FALSE);
    reader.putContentHandler(&events);
    reader.putErrorHandler(&events);
    VARIANT lexical;
    VariantInit(&lexical);
    V_VT(&lexical) = VT_UNKNOWN;
    V_UNKNOWN(&lexical) = static_cast<ISAXLexicalHandler*>(&events);
    V_UNKNOWN(&lexical)->AddRef();
    reader.putProperty(L"http://xml.org/sax/properties/lexical-handler", lexical);
    VariantClear(&lexical);
}

struct ParseOutcome {
    bool created = false;  // a reader was created
    bool whole = false;    // and it read the whole document
};

// Whether the file can be opened at all, and is a regular file: what tells a
// missing or unreadable file from a document MSXML rejected.
bool canOpen(const std::wstring& path) {
    std::FILE* file = _wfopen(path.c_str(), L"rb");
    if (file == nullptr) return false;
    bool regular = isRegularFile(file);
    std::fclose(file);
    return regular;
}

// One parse from COM's start to its end; every object is released on return.
ParseOutcome parseWithMsxml(SaxEvents& events, const std::string& path) {
    ComApartment apartment;
    ISAXXMLReader* reader = nullptr;
    HRESULT result = CoCreateInstance(saxReaderClass, nullptr, serverContexts, saxReaderInterface,
                                      reinterpret_cast<void**>(&reader));
    if (FAILED(result) || reader == nullptr) {
        std::printf("\nError %08X\n\n", static_cast<unsigned>(result));
        return {};
    }
    ReaderHandle owner(reader);
    configureReader(*reader, events);
    std::wstring url = widePath(path);
    result = reader->parseURL(url.c_str());
    return {true, SUCCEEDED(result) && events.sawDocumentEnd() && !events.failure()};
}

}  // namespace

SaxResult runSaxParse(SaxHandler& handler, const std::string& path) {
    SaxEvents events(handler);
    ParseOutcome outcome = parseWithMsxml(events, path);
    // COM is down and every object released: a handler's failure may travel
    // on now, and the document's end may do whatever it likes.
    if (events.failure()) std::rethrow_exception(events.failure());
    if (!outcome.created) return {};
    if (!outcome.whole)
        return {true, canOpen(widePath(path)) ? SaxEnd::malformed : SaxEnd::unreadable,
                events.errorLine()};
    events.finishDocument();
    return {true, SaxEnd::whole, 0};
}

}  // namespace quelcnv
