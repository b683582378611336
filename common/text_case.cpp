#include "common/text_case.h"

namespace quelcnv {

namespace {

char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (lowerAscii(a[i]) != lowerAscii(b[i])) return false;
    return true;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) c = lowerAscii(c);
    return lower;
}

}  // namespace quelcnv
