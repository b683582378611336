#include "common/code_page.h"

#include <array>
#include <optional>

#ifdef _WIN32
#include <windows.h>
#endif

namespace quelcnv {

namespace {

// The characters of the bytes 0x80 to 0x9F; the rest of the code page is
// Latin-1.
constexpr std::array<char32_t, 32> upperControlRange = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned char firstUpperControl = 0x80;
constexpr unsigned char firstLatin1Letter = 0xA0;

// The byte of a character, or nothing ("?") when the code page lacks it.
char byteOf(char32_t character) {
    if (character < firstUpperControl) return static_cast<char>(character);
    if (character >= firstLatin1Letter && character <= 0xFF) return static_cast<char>(character);
    for (std::size_t i = 0; i < upperControlRange.size(); ++i)
        if (upperControlRange[i] == character) return static_cast<char>(firstUpperControl + i);
    return '?';
}

// The length of the UTF-8 sequence that starts with this byte, above ASCII;
// 0 for a byte that cannot start one.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0xC0) return 0;
    if (lead < 0xE0) return 2;
    if (lead < 0xF0) return 3;
    return lead < 0xF8 ? 4 : 0;
}

// The character of the sequence of that length at the start of the text.
char32_t decode(std::string_view sequence, std::size_t length) {
    constexpr std::array<unsigned char, 5> leadBits = {0, 0, 0x1F, 0x0F, 0x07};
    char32_t character = static_cast<unsigned char>(sequence[0]) & leadBits[length];
    for (std::size_t k = 1; k < length; ++k)
        character = (character << 6) | (static_cast<unsigned char>(sequence[k]) & 0x3F);
    return character;
}

}  // namespace

char32_t windows1252ToUnicode(unsigned char byte) {
    if (byte >= firstUpperControl && byte < firstLatin1Letter)
        return upperControlRange[byte - firstUpperControl];
    return byte;
}

std::string utf8ToWindows1252(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        std::size_t run = i;  // plain characters go over as they are, a run at a time
        while (run < utf8.size() && static_cast<unsigned char>(utf8[run]) < firstUpperControl)
            ++run;
        text.append(utf8, i, run - i);
        if ((i = run) == utf8.size()) break;
        auto lead = static_cast<unsigned char>(utf8[i]);
        std::size_t length = sequenceLength(lead);
        if (length == 0 || i + length > utf8.size()) {  // not UTF-8: one "?" a byte
            text += '?';
            ++i;
            continue;
        }
        char32_t character = decode(utf8.substr(i), length);
        if (character > 0xFFFF)
            text += "??";
        else
            text += byteOf(character);
        i += length;
    }
    return text;
}

namespace {

#ifndef _WIN32
std::u32string windows1252Characters(std::string_view text) {
    std::u32string characters;
    characters.reserve(text.size());
    for (char c : text) characters += windows1252ToUnicode(static_cast<unsigned char>(c));
    return characters;
}
#endif

#ifdef _WIN32
// The ANSI code page's characters, surrogate pairs joined.
std::u32string ansiCharacters(std::string_view text) {
    if (text.empty()) return {};
    int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    int length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size);
    wide.resize(static_cast<std::size_t>(length > 0 ? length : 0));
    std::u32string characters;
    for (std::size_t i = 0; i < wide.size(); ++i) {
        char32_t unit = wide[i];
        if (unit >= 0xD800 && unit < 0xDC00 && i + 1 < wide.size() && wide[i + 1] >= 0xDC00 &&
            wide[i + 1] < 0xE000) {
            unit = 0x10000 + ((unit - 0xD800) << 10) + (wide[++i] - 0xDC00);
        }
        characters += unit;
    }
    return characters;
}
#endif

}  // namespace

std::u32string codePageCharacters(std::string_view text) {
#ifdef _WIN32
    return ansiCharacters(text);
#else
    return windows1252Characters(text);
#endif
}

std::u32string fileNameCharacters(std::string_view name) {
#ifdef _WIN32
    return ansiCharacters(name);
#else
    if (std::optional<std::u32string> characters = utf8Characters(name)) return *characters;
    return windows1252Characters(name);
#endif
}

std::optional<std::u32string> utf8Characters(std::string_view text) {
    constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    std::u32string characters;
    for (std::size_t i = 0; i < text.size();) {
        auto lead = static_cast<unsigned char>(text[i]);
        std::size_t length = lead < firstUpperControl ? 1 : sequenceLength(lead);
        if (length == 0 || i + length > text.size()) return std::nullopt;
        for (std::size_t k = 1; k < length; ++k)
            if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) return std::nullopt;
        char32_t character = length == 1 ? lead : decode(text.substr(i), length);
        if (character < smallest[length] || character > 0x10FFFF ||
            (character >= 0xD800 && character <= 0xDFFF))
            return std::nullopt;
        characters += character;
        i += length;
    }
    return characters;
}

std::string utf8Text(std::u32string_view characters) {
    std::string text;
    text.reserve(characters.size());
    for (char32_t c : characters) {
        if (c < 0x80) {
            text += static_cast<char>(c);
            continue;
        }
        int continuations = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
        constexpr std::array<unsigned char, 4> leadMarks = {0, 0xC0, 0xE0, 0xF0};
        text += static_cast<char>(leadMarks[continuations] | (c >> (6 * continuations)));
        for (int k = continuations - 1; k >= 0; --k)
            text += static_cast<char>(0x80 | ((c >> (6 * k)) & 0x3F));
    }
    return text;
}

std::string codePageText(std::u32string_view characters) {
#ifdef _WIN32
    std::wstring wide;
    for (char32_t c : characters) {
        if (c > 0xFFFF) {
            wide += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
            wide += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        } else {
            wide += static_cast<wchar_t>(c);
        }
    }
    if (wide.empty()) return {};
    int size = static_cast<int>(wide.size());
    std::string text(wide.size() * 2, '\0');
    int length = WideCharToMultiByte(CP_ACP, 0, wide.data(), size, text.data(),
                                     static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<std::size_t>(length > 0 ? length : 0));
    return text;
#else
    std::string text;
    text.reserve(characters.size());
    for (char32_t c : characters) text += byteOf(c);
    return text;
#endif
}

}  // namespace quelcnv
