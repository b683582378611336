// Comparing record names and codes without regard to letter case.
#pragma once

#include <string>
#include <string_view>

namespace quelcnv {

// True when the two texts are equal once the ASCII letters A-Z are taken as
// a-z, as the C runtime compares them in the "C" locale; other bytes, those
// of the code page's accented letters too, must match exactly.
bool equalsIgnoringCase(std::string_view a, std::string_view b);

// The text with the ASCII letters A-Z as a-z, the key under which texts
// equal without regard to case are the same.
std::string lowerCase(std::string_view text);

}  // namespace quelcnv
