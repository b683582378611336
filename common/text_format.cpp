#include "common/text_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace quelcnv {

namespace {

struct Spec {
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
bool readFlag(char c, Spec& spec) {
    switch (c) {
        case '-': spec.left = true; return true;
        case '+': spec.plus = true; return true;
        case ' ': spec.blank = true; return true;
        case '0': spec.zero = true; return true;
        case '#': spec.alternate = true; return true;
        default: return false;
    }
}

// Reads the conversion specification that starts after a '%' at i.
Spec readSpec(std::string_view format, std::size_t& i) {
    Spec spec;
    while (i < format.size() && readFlag(format[i], spec)) ++i;
    spec.width = readCount(format, i);
    if (i < format.size() && format[i] == '.') {
        ++i;
        spec.precision = readCount(format, i);
    }
    while (i < format.size() && (format[i] == 'h' || format[i] == 'l')) {
        if (format[i] == 'l' && i + 1 < format.size() && format[i + 1] == 'l') {
            spec.longLong = true;
            ++i;
        }
        ++i;
    }
    if (i == format.size()) badFormat(format);
    spec.conversion = format[i++];
    return spec;
}

// Pads a sign (or prefix) and digits to the width, with zeros after the sign
// when asked, else with blanks on the side the flags say.
std::string pad(const Spec& spec, std::string_view prefix, std::string_view digits,
                bool zeroAllowed) {
    std::size_t length = prefix.size() + digits.size();
    std::size_t width = static_cast<std::size_t>(spec.width);
    std::string out;
    if (length >= width) {
        out.append(prefix).append(digits);
    } else if (spec.left) {
        out.append(prefix).append(digits).append(width - length, ' ');
    } else if (spec.zero && zeroAllowed) {
        out.append(prefix).append(width - length, '0').append(digits);
    } else {
        out.append(width - length, ' ').append(prefix).append(digits);
    }
    return out;
}

std::string_view signPrefix(const Spec& spec, bool negative) {
    if (negative) return "-";
    if (spec.plus) return "+";
    if (spec.blank) return " ";
    return "";
}

std::string formatSigned(const Spec& spec, long long value) {
    unsigned long long magnitude = value < 0 ? 0ULL - static_cast<unsigned long long>(value)
                                             : static_cast<unsigned long long>(value);
    std::string digits;
    if (!(spec.precision == 0 && magnitude == 0)) digits = std::to_string(magnitude);
    if (spec.precision > 0 && digits.size() < static_cast<std::size_t>(spec.precision)) {
        digits.insert(0, static_cast<std::size_t>(spec.precision) - digits.size(), '0');
    }
    return pad(spec, signPrefix(spec, value < 0), digits, spec.precision < 0);
}

std::string formatUnsigned(const Spec& spec, long long value) {
    unsigned long long bits =
        spec.longLong ? static_cast<unsigned long long>(value) : static_cast<std::uint32_t>(value);
    int base = spec.conversion == 'u' ? 10 : 16;
    char buffer[32];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, bits, base);
    std::string digits(buffer, result.ptr);
    if (spec.conversion == 'X') {
        for (char& c : digits) c = (c >= 'a' && c <= 'f') ? static_cast<char>(c - 'a' + 'A') : c;
    }
    if (spec.precision == 0 && bits == 0) digits.clear();
    if (spec.precision > 0 && digits.size() < static_cast<std::size_t>(spec.precision)) {
        digits.insert(0, static_cast<std::size_t>(spec.precision) - digits.size(), '0');
    }
    std::string_view prefix;
    if (spec.alternate && bits != 0 && base == 16) prefix = spec.conversion == 'X' ? "0X" : "0x";
    return pad(spec, prefix, digits, spec.precision < 0);
}

// Infinity and not-a-number are left to the platform's C runtime, whose
// spelling the hosts know ("inf", "-nan" or "-nan(ind)"); the specification
// is handed over whole, precision included, as some runtimes use it.
std::string formatNonFinite(const Spec& spec, double value) {
    std::string format = "%";
    if (spec.left) format += '-';
    if (spec.plus) format += '+';
    if (spec.blank) format += ' ';
    format += std::to_string(spec.width);
    if (spec.precision >= 0) {
        format += '.';
        format += std::to_string(spec.precision);
    }
    format += spec.conversion;
    int length = std::snprintf(nullptr, 0, format.c_str(), value);
    if (length <= 0) return "";
    std::string out(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(out.data(), out.size(), format.c_str(), value);
    out.resize(static_cast<std::size_t>(length));
    return out;
}

std::string formatReal(const Spec& spec, double value) {
    if (!std::isfinite(value)) return formatNonFinite(spec, value);
    int precision = spec.precision < 0 ? 6 : spec.precision;
    std::string buffer(static_cast<std::size_t>(precision) + 330, '\0');
    auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                std::chars_format::fixed, precision);
    std::string digits(buffer.data(), result.ptr);
    if (spec.alternate && precision == 0) digits += '.';
    return pad(spec, signPrefix(spec, std::signbit(value)), digits, true);
}

std::string formatOne(const Spec& spec, const FormatArg& arg, std::string_view format) {
    using Kind = FormatArg::Kind;
    switch (spec.conversion) {
        case 'd':
        case 'i':
            if (arg.kind() != Kind::whole) badFormat(format);
            // Without "ll" the value is a C int.
            return formatSigned(
                spec, spec.longLong ? arg.whole() : static_cast<std::int32_t>(arg.whole()));
        case 'u':
        case 'x':
        case 'X':
            if (arg.kind() != Kind::whole) badFormat(format);
            return formatUnsigned(spec, arg.whole());
        case 'c': {
            if (arg.kind() != Kind::whole) badFormat(format);
            char c = static_cast<char>(arg.whole());
            return pad(spec, "", std::string_view(&c, 1), false);
        }
        case 's': {
            if (arg.kind() != Kind::text) badFormat(format);
            std::string_view text = arg.text();
            if (spec.precision >= 0)
                text = text.substr(0, static_cast<std::size_t>(spec.precision));
            return pad(spec, "", text, false);
        }
        case 'f':
        case 'F':
            if (arg.kind() != Kind::real) badFormat(format);
            return formatReal(spec, arg.real());
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
        Spec spec = readSpec(format, i);
        if (next == args.end()) badFormat(format);
        out += formatOne(spec, *next++, format);
    }
    return out;
}

std::string formatFixed(double value, int decimals) {
    Spec spec;
    spec.conversion = 'f';
    spec.precision = decimals < 0 ? 0 : decimals;
    return formatReal(spec, value);
}

}  // namespace quelcnv
