// Text to number, the same whatever locale the host process has set.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quelcnv {

struct NumberScan {
    double value = 0.0;
    std::size_t length = 0;  // characters taken, leading white space included; 0: no number
};

struct WholeScan {
    std::int32_t value = 0;
    std::size_t length = 0;
};

// Reads a decimal number at the start of a text, as C's strtod does in the
// "C" locale but decimal only:
// - leading white space (blank, tab, LF, CR, VT, FF) is skipped;
// - an optional sign, then digits with at most one decimal point and at least
//   one digit ("5." and ".5" are numbers, "." is not);
// - an optional exponent: e or E, an optional sign and at least one digit
//   ("1e" reads 1);
// - reading stops at the first character that cannot go on ("12,5" reads 12);
// - no "inf", "nan" or hexadecimal: "INF" reads 0;
// - a value too large reads as an infinity, one too small as zero.
NumberScan scanNumber(std::string_view text);

// The usual number, read at once: an optional sign, then at most 15 digits
// with at most one decimal point among them, straight at the start of the
// text (no white space). Its digits make a whole number below 2^53 and its
// decimals a power of ten that a double holds exactly, so one division gives
// the correctly rounded value, as strtod would. Length 0 for any other text,
// and the caller must see that no exponent follows.
NumberScan scanSimpleNumber(std::string_view text);

// The value of scanNumber; a text without a number reads 0.
double parseNumber(std::string_view text);

// Reads a whole number: white space, an optional sign, digits. A value outside
// the 32-bit range reads as the nearest 32-bit limit; no digits read 0.
WholeScan scanWhole(std::string_view text);
std::int32_t parseWhole(std::string_view text);

// Reads values one after another from a text, as C's sscanf does with %lf,
// %d and literal characters in its format: each conversion skips white space
// first. The first conversion or literal that fails stops the reading: it
// and every later one leave their variables as they were.
class ValueScanner {
public:
    explicit ValueScanner(std::string_view text) : rest_(text) {}
    bool number(double& value);
    bool whole(std::int32_t& value);
    // White space, then this character.
    bool literal(char c);

private:
    std::string_view rest_;
    bool stopped_ = false;
};

}  // namespace quelcnv
