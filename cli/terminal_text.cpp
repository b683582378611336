#include "cli/terminal_text.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <optional>

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>
#include <langinfo.h>
#include <locale.h>
#endif

#include "common/code_page.h"

namespace quelcnv::cli {

namespace {

// The letter without its accent, for a terminal that lacks it; "?" for
// anything else outside ASCII.
char plainLetter(char32_t c) {
    static constexpr std::u32string_view accented =
        U"áàâäéèêëíìîïóòôöúùûüñçÁÀÂÄÉÈÊËÍÌÎÏÓÒÔÖÚÙÛÜÑÇºª¿¡";
    static constexpr std::string_view plain = "aaaaeeeeiiiioooouuuuncAAAAEEEEIIIIOOOOUUUUNCoa  ";
    std::size_t at = accented.find(c);
    return at == std::u32string_view::npos ? '?' : plain[at];
}

std::u32string charactersOf(std::string_view utf8) {
    if (auto characters = utf8Characters(utf8)) return *characters;
    return codePageCharacters(utf8);
}

#ifdef _WIN32

UINT consoleCodePage() {
    UINT page = GetConsoleOutputCP();
    return page != 0 ? page : GetACP();
}

// One character in the code page, or nothing when the page lacks it.
std::optional<std::string> inCodePage(char32_t c, UINT page) {
    std::wstring wide;
    if (c > 0xFFFF) {
        wide += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
        wide += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    } else {
        wide += static_cast<wchar_t>(c);
    }
    char bytes[8];
    BOOL lacking = FALSE;
    int length =
        WideCharToMultiByte(page, WC_NO_BEST_FIT_CHARS, wide.data(), static_cast<int>(wide.size()),
                            bytes, sizeof bytes, nullptr, &lacking);
    if (length <= 0 || lacking) return std::nullopt;
    return std::string(bytes, static_cast<std::size_t>(length));
}

std::string inCodePage(std::u32string_view characters, UINT page) {
    std::string text;
    for (char32_t c : characters) {
        if (c < 0x80) {
            text += static_cast<char>(c);
        } else if (auto bytes = inCodePage(c, page)) {
            text += *bytes;
        } else {
            text += plainLetter(c);
        }
    }
    return text;
}

#else

std::string plainText(std::u32string_view characters) {
    std::string text;
    for (char32_t c : characters) text += c < 0x80 ? static_cast<char>(c) : plainLetter(c);
    return text;
}

bool isUtf8(std::string_view encoding) {
    std::string lower;
    for (char c : encoding)
        if (c != '-') lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower == "utf8";
}

bool isAscii(std::string_view encoding) {
    return encoding == "ANSI_X3.4-1968" || encoding == "ASCII" || encoding == "US-ASCII";
}

// The text converted by iconv; nothing when iconv cannot.
std::optional<std::string> converted(std::string_view text, const std::string& to,
                                     const std::string& from) {
    iconv_t conversion = iconv_open(to.c_str(), from.c_str());
    if (conversion == reinterpret_cast<iconv_t>(static_cast<std::intptr_t>(-1)))
        return std::nullopt;
    std::string in(text), out(text.size() * 4 + 4, '\0');
    char* inAt = in.data();
    char* outAt = out.data();
    std::size_t inLeft = in.size(), outLeft = out.size();
    std::size_t done = iconv(conversion, &inAt, &inLeft, &outAt, &outLeft);
    iconv_close(conversion);
    if (done == static_cast<std::size_t>(-1)) return std::nullopt;
    out.resize(out.size() - outLeft);
    return out;
}

#endif

}  // namespace

std::string terminalEncoding() {
#ifdef _WIN32
    return "CP" + std::to_string(consoleCodePage());
#else
    // The user's locale, asked for without changing the process's own.
    static const std::string encoding = [] {
        locale_t user = newlocale(LC_CTYPE_MASK, "", static_cast<locale_t>(nullptr));
        if (user == static_cast<locale_t>(nullptr)) return std::string("ANSI_X3.4-1968");
        std::string name = nl_langinfo_l(CODESET, user);
        freelocale(user);
        return name;
    }();
    return encoding;
#endif
}

std::string nameFromUser(std::string_view typed) {
#ifdef _WIN32
    return std::string(typed);  // the ANSI code page already, as the library's
#else
    std::string encoding = terminalEncoding();
    std::optional<std::string> utf8(typed);
    if (!isUtf8(encoding) && !isAscii(encoding)) utf8 = converted(typed, "UTF-8", encoding);
    if (utf8)
        if (auto characters = utf8Characters(*utf8)) return codePageText(*characters);
    return std::string(typed);
#endif
}

std::string terminalText(std::string_view utf8) {
#ifdef _WIN32
    UINT page = consoleCodePage();
    if (page == CP_UTF8) return std::string(utf8);
    return inCodePage(charactersOf(utf8), page);
#else
    std::string encoding = terminalEncoding();
    if (isUtf8(encoding)) return std::string(utf8);
    if (!isAscii(encoding))
        if (auto text = converted(utf8, encoding + "//TRANSLIT", "UTF-8")) return *text;
    return plainText(charactersOf(utf8));
#endif
}

void say(std::ostream& out, std::string_view utf8) { out << terminalText(utf8); }

}  // namespace quelcnv::cli
