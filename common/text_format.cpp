#include "common/text_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace quelcnv {

namespace {

struct Directive {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool zero = false;
    bool alternate = false;
    int width = 0;
    int precision = -1;
    bool longLong = false;
    char conversion = 0;
};

[[noreturn]] void badFormat(std::string_view format) {
    throw std::invalid_argument("unsupported format: " + std::string(format));
}

int readCount(std::string_view format, std::size_t& i) {
    int count = 0;
    while (i < format.size() && format[i] >= '0' && format[i] <= '9') {
        count = count * 10 + (format[i] - '0');
        if (count > 100000) badFormat(format);
        ++i;
    }
    return count;
}

// Sets the flag a character stands for; false when it is no flag.
bool readFlag(char c, Directive& directive) {
    switch (c) {
        case '-': directive.left = true; return true;
        case '+': directive.plus = true; return true;
        case ' ': directive.blank = true; return true;
        case '0': directive.zero = true; return true;
        case '#': directive.alternate = true; return true;
        default: return false;
    }
}

// Reads the flags, width, precision, length and conversion letter after a '%' at i.
Directive readDirective(std::string_view format, std::size_t& i) {
    Directive directive;
    while (i < format.size() && readFlag(format[i], directive)) ++i;
    directive.width = readCount(format, i);
    if (i < format.size() && format[i] == '.') {
        ++i;
        directive.precision = readCount(format, i);
    }
    while (i < format.size() && (format[i] == 'h' || format[i] == 'l')) {
        if (format[i] == 'l' && i + 1 < format.size() && format[i + 1] == 'l') {
            directive.longLong = true;
            ++i;
        }
        ++i;
    }
    if (i == format.size()) badFormat(format);
    directive.conversion = format[i++];
    return directive;
}

// Pads a sign (or prefix) and digits to the width, with zeros after the sign
// when asked, else with blanks on the side the flags say.
std::string pad(const Directive& directive, std::string_view prefix, std::string_view digits,
                bool zeroAllowed) {
    std::size_t length = prefix.size() + digits.size();
    std::size_t width = static_cast<std::size_t>(directive.width);
    std::string out;
    if (length >= width) {
        out.append(prefix).append(digits);
    } else if (directive.left) {
        out.append(prefix).append(digits).append(width - length, ' ');
    } else if (directive.zero && zeroAllowed) {
        out.append(prefix).append(width - length, '0').append(digits);
    } else {
        out.append(width - length, ' ').append(prefix).append(digits);
    }
    return out;
}

std::string_view signPrefix(const Directive& directive, bool negative) {
    if (negative) return "-";
    if (directive.plus) return "+";
    if (directive.blank) return " ";
    return "";
}

std::string formatSigned(const Directive& directive, long long value) {
    unsigned long long magnitude = value < 0 ? 0ULL - static_cast<unsigned long long>(value)
                                             : static_cast<unsigned long long>(value);
    std::string digits;
    if (!(directive.precision == 0 && magnitude == 0)) digits = std::to_string(magnitude);
    if (directive.precision > 0 && digits.size() < static_cast<std::size_t>(directive.precision)) {
        digits.insert(0, static_cast<std::size_t>(directive.precision) - digits.size(), '0');
    }
    return pad(directive, signPrefix(directive, value < 0), digits, directive.precision < 0);
}

std::string formatUnsigned(const Directive& directive, long long value) {
    unsigned long long bits = directive.longLong ? static_cast<unsigned long long>(value)
                                                 : static_cast<std::uint32_t>(value);
    int base = directive.conversion == 'u' ? 10 : 16;
    char buffer[32];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, bits, base);
    std::string digits(buffer, result.ptr);
    if (directive.conversion == 'X') {
        for (char& c : digits) c = (c >= 'a' && c <= 'f') ? static_cast<char>(c - 'a' + 'A') : c;
    }
    if (directive.precision == 0 && bits == 0) digits.clear();
    if (directive.precision > 0 && digits.size() < static_cast<std::size_t>(directive.precision)) {
        digits.insert(0, static_cast<std::size_t>(directive.precision) - digits.size(), '0');
    }
    std::string_view prefix;
    if (directive.alternate && bits != 0 && base == 16)
        prefix = directive.conversion == 'X' ? "0X" : "0x";
    return pad(directive, prefix, digits, directive.precision < 0);
}

// The platform's C runtime's own printf. On Windows that is the system's
// msvcrt, as for the original library ("1.#INF00", "-1.#IND00"), not the
// exact printf that the C++ runtime puts in its place.
template <typename... Values>
int systemPrintf(char* out, std::size_t size, const char* format, Values... values) {
#ifdef _WIN32
    if (size == 0) return _scprintf(format, values...);
    int length = _snprintf(out, size, format, values...);
    out[size - 1] = '\0';
    return length;
#else
    return std::snprintf(out, size, format, values...);
#endif
}

// Infinity and not-a-number are left to the platform's C runtime, whose
// spelling the hosts know ("inf", "-nan" or "1.#QNAN0"); flags, width and
// precision are handed over whole, as some runtimes use the precision too.
std::string formatNonFinite(const Directive& directive, double value) {
    std::string format = "%";
    if (directive.left) format += '-';
    if (directive.plus) format += '+';
    if (directive.blank) format += ' ';
    format += std::to_string(directive.width);
    if (directive.precision >= 0) {
        format += '.';
        format += std::to_string(directive.precision);
    }
    format += directive.conversion;
    int length = systemPrintf(nullptr, 0, format.c_str(), value);
    if (length <= 0) return "";
    std::string out(static_cast<std::size_t>(length) + 1, '\0');
    systemPrintf(out.data(), out.size(), format.c_str(), value);
    out.resize(static_cast<std::size_t>(length));
    return out;
}

std::string formatReal(const Directive& directive, double value) {
    if (!std::isfinite(value)) return formatNonFinite(directive, value);
    int precision = directive.precision < 0 ? 6 : directive.precision;
    std::string buffer(static_cast<std::size_t>(precision) + 330, '\0');
    auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                std::chars_format::fixed, precision);
    std::string digits(buffer.data(), result.ptr);
    if (directive.alternate && precision == 0) digits += '.';
    return pad(directive, signPrefix(directive, std::signbit(value)), digits, true);
}

std::string formatOne(const Directive& directive, const FormatArg& arg, std::string_view format) {
    using Kind = FormatArg::Kind;
    switch (directive.conversion) {
        case 'd':
        case 'i':
            if (arg.kind() != Kind::whole) badFormat(format);
            // Without "ll" the value is a C int.
            return formatSigned(directive, directive.longLong
                                               ? arg.whole()
                                               : static_cast<std::int32_t>(arg.whole()));
        case 'u':
        case 'x':
        case 'X':
            if (arg.kind() != Kind::whole) badFormat(format);
            return formatUnsigned(directive, arg.whole());
        case 'c': {
            if (arg.kind() != Kind::whole) badFormat(format);
            char c = static_cast<char>(arg.whole());
            return pad(directive, "", std::string_view(&c, 1), false);
        }
        case 's': {
            if (arg.kind() != Kind::text) badFormat(format);
            std::string_view text = arg.text();
            if (directive.precision >= 0)
                text = text.substr(0, static_cast<std::size_t>(directive.precision));
            return pad(directive, "", text, false);
        }
        case 'f':
        case 'F':
            if (arg.kind() != Kind::real) badFormat(format);
            return formatReal(directive, arg.real());
        default: badFormat(format);
    }
}

}  // namespace

std::string formatArgs(std::string_view format, std::initializer_list<FormatArg> args) {
    std::string out;
    auto next = args.begin();
    for (std::size_t i = 0; i < format.size();) {
        std::size_t percent = format.find('%', i);
        out.append(format.substr(i, percent - i));
        if (percent == std::string_view::npos) break;
        i = percent + 1;
        if (i < format.size() && format[i] == '%') {
            out += '%';
            ++i;
            continue;
        }
        Directive directive = readDirective(format, i);
        if (next == args.end()) badFormat(format);
        out += formatOne(directive, *next++, format);
    }
    return out;
}

std::string formatFixed(double value, int decimals) {
    Directive directive;
    directive.conversion = 'f';
    directive.precision = decimals < 0 ? 0 : decimals;
    return formatReal(directive, value);
}

}  // namespace quelcnv
