// The library's 8-bit code page: the process's ANSI code page on Windows,
// windows-1252 elsewhere. The XML readers bring the parser's text into it;
// the XML writer takes its characters out of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quelcnv {

// The Unicode character of a windows-1252 byte. The five bytes the code page
// leaves undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D) stand for the control
// characters of the same number, as Windows reads them.
char32_t windows1252ToUnicode(unsigned char byte);

// Well-formed UTF-8 in windows-1252. A character the code page lacks becomes
// "?"; one beyond U+FFFF becomes "??", as Windows converts its two UTF-16
// halves one by one.
std::string utf8ToWindows1252(std::string_view utf8);

// The characters of a text in the library's 8-bit code page.
std::u32string codePageCharacters(std::string_view text);

// Characters as text in the library's 8-bit code page; one it lacks is "?".
std::string codePageText(std::u32string_view characters);

// The characters of strict UTF-8 (no overlong forms, no surrogates, nothing
// past U+10FFFF), or nothing when the bytes are not that.
std::optional<std::u32string> utf8Characters(std::string_view text);

// Characters as UTF-8.
std::string utf8Text(std::u32string_view characters);

// The characters of a file name as the file system holds it: the ANSI code
// page on Windows; elsewhere UTF-8 where the bytes are valid UTF-8, else
// windows-1252.
std::u32string fileNameCharacters(std::string_view name);

}  // namespace quelcnv
