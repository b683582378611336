#include "common/numbers.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace quelcnv {

namespace {

// Blank, or one of tab, LF, VT, FF and CR, which follow each other in ASCII.
bool isWhiteSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool isDigit(char c) { return static_cast<unsigned char>(c - '0') < 10; }

std::size_t skipWhiteSpace(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && isWhiteSpace(text[i])) ++i;
    return i;
}

std::size_t skipDigits(std::string_view text, std::size_t i) {
    while (i < text.size() && isDigit(text[i])) ++i;
    return i;
}

// The parts of a decimal number found at the start of a text.
struct NumberText {
    std::size_t begin = 0;        // first character after the white space
    std::size_t mantissaEnd = 0;  // end of sign, digits and decimal point
    std::size_t end = 0;          // end of the number, exponent included
    bool found = false;
};

NumberText findNumber(std::string_view text) {
    NumberText number;
    number.begin = skipWhiteSpace(text);
    std::size_t i = number.begin;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    std::size_t integerEnd = skipDigits(text, i);
    std::size_t digits = integerEnd - i;
    i = integerEnd;
    if (i < text.size() && text[i] == '.') {
        std::size_t fractionEnd = skipDigits(text, i + 1);
        digits += fractionEnd - (i + 1);
        i = fractionEnd;
    }
    if (digits == 0) return number;
    number.found = true;
    number.mantissaEnd = i;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        std::size_t j = i + 1;
        if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
        std::size_t exponentEnd = skipDigits(text, j);
        if (exponentEnd > j) i = exponentEnd;
    }
    number.end = i;
    return number;
}

// Whether a number that does not fit a double is too large (else too small):
// the decimal exponent of its first significant digit decides.
bool overflows(std::string_view number, std::size_t mantissaLength) {
    std::string_view mantissa = number.substr(0, mantissaLength);
    long long position = 0;  // power of ten of the current digit, relative
    long long firstSignificant = std::numeric_limits<long long>::min();
    std::size_t point = mantissa.find('.');
    std::size_t integerDigits = 0;
    for (char c : mantissa.substr(0, point)) integerDigits += isDigit(c) ? 1 : 0;
    position = static_cast<long long>(integerDigits) - 1;
    for (char c : mantissa) {
        if (!isDigit(c)) continue;
        if (c != '0') {
            firstSignificant = position;
            break;
        }
        --position;
    }
    long long exponent = 0;
    if (number.size() > mantissaLength + 1) {
        WholeScan scan = scanWhole(number.substr(mantissaLength + 1));
        exponent = scan.value;
    }
    return firstSignificant != std::numeric_limits<long long>::min() &&
           firstSignificant + exponent >= 0;
}

}  // namespace

namespace {

constexpr double exactPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                       1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                       1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

}  // namespace

NumberScan scanSimpleNumber(std::string_view text) {
    const char* p = text.data();
    const char* end = p + text.size();
    bool negative = false;
    if (p < end && (*p == '+' || *p == '-')) negative = *p++ == '-';
    std::uint64_t digits = 0;  // wraps past 19 digits, but then it is not used
    auto readDigits = [&] {
        const char* first = p;
        for (; p < end && isDigit(*p); ++p) digits = digits * 10 + static_cast<unsigned>(*p - '0');
        return p - first;
    };
    std::ptrdiff_t count = readDigits();
    std::ptrdiff_t decimals = 0;
    if (p < end && *p == '.') {
        ++p;
        decimals = readDigits();
        count += decimals;
    }
    if (count == 0 || count > 15) return {};
    double value = static_cast<double>(digits) / exactPowersOfTen[decimals];
    return {negative ? -value : value, static_cast<std::size_t>(p - text.data())};
}

namespace {

// The usual number, read at once: white space, then a simple number that no
// exponent follows. Nothing for any other text, which the general reading
// takes.
std::optional<NumberScan> scanPlainDecimal(std::string_view text) {
    std::size_t blanks = skipWhiteSpace(text);
    NumberScan simple = scanSimpleNumber(text.substr(blanks));
    if (simple.length == 0) return std::nullopt;
    std::size_t end = blanks + simple.length;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) return std::nullopt;
    return NumberScan{simple.value, end};
}

}  // namespace

NumberScan scanNumber(std::string_view text) {
    if (std::optional<NumberScan> plain = scanPlainDecimal(text)) return *plain;
    NumberText number = findNumber(text);
    if (!number.found) return {};
    std::string_view body = text.substr(number.begin, number.end - number.begin);
    bool negative = body.front() == '-';
    std::size_t signLength = (body.front() == '+' || body.front() == '-') ? 1 : 0;
    std::string_view unsignedBody = body.substr(signLength);
    double value = 0.0;
    auto [end, error] =
        std::from_chars(unsignedBody.data(), unsignedBody.data() + unsignedBody.size(), value,
                        std::chars_format::general);
    (void)end;
    if (error == std::errc::result_out_of_range) {
        std::size_t mantissaLength = number.mantissaEnd - number.begin - signLength;
        value =
            overflows(unsignedBody, mantissaLength) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return {negative ? -value : value, number.end};
}

double parseNumber(std::string_view text) { return scanNumber(text).value; }

WholeScan scanWhole(std::string_view text) {
    std::size_t i = skipWhiteSpace(text);
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        negative = text[i] == '-';
        ++i;
    }
    std::size_t digitsEnd = skipDigits(text, i);
    if (digitsEnd == i) return {};
    constexpr long long limit = 2147483648LL;  // magnitude of the 32-bit minimum
    long long magnitude = 0;
    for (std::size_t j = i; j < digitsEnd; ++j) {
        magnitude = magnitude * 10 + (text[j] - '0');
        if (magnitude > limit) magnitude = limit;
    }
    long long value = negative ? -magnitude : magnitude;
    if (value > std::numeric_limits<std::int32_t>::max()) {
        value = std::numeric_limits<std::int32_t>::max();
    }
    return {static_cast<std::int32_t>(value), digitsEnd};
}

std::int32_t parseWhole(std::string_view text) { return scanWhole(text).value; }

namespace {

// One conversion of a ValueScanner: the value and what it took, or a stop.
template <typename Scan, typename Value>
bool scanInto(std::string_view& rest, bool& stopped, Scan scan, Value& value) {
    auto found = stopped ? decltype(scan(rest)){} : scan(rest);
    if (found.length == 0) {
        stopped = true;
        return false;
    }
    value = found.value;
    rest.remove_prefix(found.length);
    return true;
}

}  // namespace

bool ValueScanner::number(double& value) { return scanInto(rest_, stopped_, scanNumber, value); }

bool ValueScanner::whole(std::int32_t& value) {
    return scanInto(rest_, stopped_, scanWhole, value);
}

bool ValueScanner::literal(char c) {
    std::size_t at = rest_.find_first_not_of(" \t\n\r\v\f");
    if (stopped_ || at == std::string_view::npos || rest_[at] != c) {
        stopped_ = true;
        return false;
    }
    rest_.remove_prefix(at + 1);
    return true;
}

}  // namespace quelcnv
