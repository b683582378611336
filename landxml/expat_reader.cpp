// The event reader over expat, for every platform but Windows.
#include "landxml/expat_reader.h"

#include "common/file_status.h"

#include <expat.h>

#include <cstdio>
#include <exception>
#include <memory>

#include "common/code_page.h"
#include "common/file_status.h"
#include "common/text_case.h"

namespace quelcnv {

namespace {

// Between a namespace and a local name in the names expat hands over; no
// name can hold it, so the local name is what follows the last one.
constexpr char namespaceSeparator = ' ';
constexpr std::size_t defaultChunkSize = 64 * 1024;

std::string_view localPart(const XML_Char* name) {
    std::string_view full(name);
    std::size_t separator = full.rfind(namespaceSeparator);
    return separator == std::string_view::npos ? full : full.substr(separator + 1);
}

// Documents declared windows-1252, which expat does not know by itself.
int XMLCALL unknownEncoding(void*, const XML_Char* name, XML_Encoding* info) {
    if (!equalsIgnoringCase(name, "windows-1252") && !equalsIgnoringCase(name, "cp1252"))
        return XML_STATUS_ERROR;
    for (int byte = 0; byte < 256; ++byte)
        info->map[byte] = static_cast<int>(windows1252ToUnicode(static_cast<unsigned char>(byte)));
    info->data = nullptr;
    info->convert = nullptr;
    info->release = nullptr;
    return XML_STATUS_OK;
}

struct ParserDeleter {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using ParserHandle = std::unique_ptr<XML_ParserStruct, ParserDeleter>;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// One parse: hands expat's events to the handler, joining the chunks of
// character data into pieces. Whatever a handler throws stops the parse and
// is thrown again once expat has returned.
class ExpatParse {
public:
    ExpatParse(SaxHandler& handler, XML_Parser parser) : handler_(handler), parser_(parser) {
        XML_SetUserData(parser, this);
        XML_SetElementHandler(parser, onStart, onEnd);
        XML_SetCharacterDataHandler(parser, onText);
        XML_SetCommentHandler(parser, onComment);
        XML_SetProcessingInstructionHandler(parser, onInstruction);
        XML_SetCdataSectionHandler(parser, onCdataEdge, onCdataEdge);
        XML_SetUnknownEncodingHandler(parser, unknownEncoding, nullptr);
        // Parameter entities, and with them any external DTD, are never read;
        // with no external entity handler set, external entities are skipped.
        // expat's own limits bound the expansion of internal entities.
        XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_NEVER);
    }

    // Feeds the file in chunks; the document end only after the last one.
    SaxResult run(std::FILE* file, std::size_t chunkSize) {
        for (;;) {
            void* buffer = XML_GetBuffer(parser_, static_cast<int>(chunkSize));
            if (buffer == nullptr) return malformedHere();
            std::size_t read = std::fread(buffer, 1, chunkSize, file);
            if (std::ferror(file)) return {true, SaxEnd::unreadable, 0};
            bool last = read < chunkSize && std::feof(file);
            XML_Status status = XML_ParseBuffer(parser_, static_cast<int>(read), last);
            if (failure_) std::rethrow_exception(failure_);
            if (status != XML_STATUS_OK) return malformedHere();
            if (last) {
                endPiece();
                handler_.endDocument();
                if (failure_) std::rethrow_exception(failure_);
                return {true, SaxEnd::whole, 0};
            }
        }
    }

private:
    static ExpatParse& of(void* data) { return *static_cast<ExpatParse*>(data); }

    SaxResult malformedHere() const {
        return {true, SaxEnd::malformed, static_cast<long>(XML_GetCurrentLineNumber(parser_))};
    }

    // Runs one event unless an earlier one failed.
    template <typename Event>
    void guard(Event&& event) {
        if (failure_) return;
        try {
            event();
        } catch (...) {
            failure_ = std::current_exception();
            XML_StopParser(parser_, XML_FALSE);
        }
    }

    void endPiece() {
        if (!inPiece_) return;
        inPiece_ = false;
        if (gathering_) handler_.characters(utf8ToWindows1252(text_));
        text_.clear();
    }

    static void XMLCALL onStart(void* data, const XML_Char* name, const XML_Char** attributes) {
        ExpatParse& parse = of(data);
        parse.guard([&] {
            parse.endPiece();
            parse.attributes_.clear();
            for (const XML_Char** a = attributes; *a != nullptr; a += 2)
                parse.attributes_.push_back(
                    {utf8ToWindows1252(localPart(a[0])), utf8ToWindows1252(a[1])});
            parse.handler_.startElement(utf8ToWindows1252(localPart(name)), parse.attributes_);
        });
    }

    static void XMLCALL onEnd(void* data, const XML_Char* name) {
        ExpatParse& parse = of(data);
        parse.guard([&] {
            parse.endPiece();
            parse.handler_.endElement(utf8ToWindows1252(localPart(name)));
        });
    }

    static void XMLCALL onText(void* data, const XML_Char* text, int length) {
        ExpatParse& parse = of(data);
        parse.guard([&] {
            if (!parse.inPiece_) {
                parse.inPiece_ = true;
                parse.gathering_ = parse.handler_.wantsText();
            }
            if (parse.gathering_) parse.text_.append(text, static_cast<std::size_t>(length));
        });
    }

    static void XMLCALL onComment(void* data, const XML_Char*) {
        ExpatParse& parse = of(data);
        parse.guard([&] { parse.endPiece(); });
    }

    static void XMLCALL onInstruction(void* data, const XML_Char*, const XML_Char*) {
        ExpatParse& parse = of(data);
        parse.guard([&] { parse.endPiece(); });
    }

    static void XMLCALL onCdataEdge(void* data) {
        ExpatParse& parse = of(data);
        parse.guard([&] { parse.endPiece(); });
    }

    SaxHandler& handler_;
    XML_Parser parser_;
    XmlAttributes attributes_;
    std::string text_;  // the piece so far, in UTF-8
    bool inPiece_ = false;
    bool gathering_ = false;
    std::exception_ptr failure_;
};

}  // namespace

SaxResult parseWithExpat(SaxHandler& handler, const std::string& path, std::size_t chunkSize) {
    ParserHandle parser(XML_ParserCreateNS(nullptr, namespaceSeparator));
    if (!parser) return {};
    ExpatParse parse(handler, parser.get());
    std::unique_ptr<std::FILE, FileCloser> file(openInputFile(path));
    if (!file) return {true, SaxEnd::unreadable, 0};
    return parse.run(file.get(), chunkSize == 0 ? defaultChunkSize : chunkSize);
}

SaxResult runSaxParse(SaxHandler& handler, const std::string& path) {
    return parseWithExpat(handler, path, defaultChunkSize);
}

}  // namespace quelcnv
