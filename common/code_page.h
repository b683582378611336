// The library's 8-bit code page away from Windows: windows-1252, into which
// the XML readers bring the UTF-8 text that the parser hands over.
#pragma once

#include <cstdint>
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

}  // namespace quelcnv
