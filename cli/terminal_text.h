// Text between the command and the user's terminal, converted in this one
// place. The command composes its messages in UTF-8. The terminal speaks the
// locale's character encoding on Linux (UTF-8 in practice) and the console's
// code page on Windows; the library speaks its 8-bit code page (windows-1252
// on Linux, the ANSI code page on Windows), and file names are bytes the
// file system keeps as they are.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "frame/report_text.h"

namespace quelcnv::cli {

// The terminal's character encoding, as iconv names it ("UTF-8",
// "ANSI_X3.4-1968", "ISO-8859-15"), or the console's code page ("CP850").
std::string terminalEncoding();

// A name the user typed (an alignment, a profile, a surface), in the
// library's code page, as the library compares it with a document's names.
std::string nameFromUser(std::string_view typed);

// UTF-8 text as the terminal shows it. Where the terminal's encoding lacks
// a character, an accented letter loses its accent ("línea" as "linea") and
// anything else becomes "?".
std::string terminalText(std::string_view utf8);

// Writes UTF-8 text to the stream in the terminal's encoding.
void say(std::ostream& out, std::string_view utf8);

}  // namespace quelcnv::cli
