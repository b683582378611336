#include "common/text_format.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "common/eight_digits.h"

namespace quelcnv {

namespace {

[[noreturn]] void badArguments(const Format& format) {
    throw std::invalid_argument("format arguments do not fit: " + std::string(format.text()));
}

char* put(char* out, std::string_view text) {
    if (!text.empty()) std::memcpy(out, text.data(), text.size());  // an empty view may hold null
    return out + text.size();
}

// A piece's literal: a short one in one fixed-size move, which the room
// reserved for the number after it (or the format's slack) makes safe.
char* putLiteral(char* out, const char* literal, std::size_t length) {
    if (length <= Format::slack)
        std::memcpy(out, literal, Format::slack);
    else
        std::memcpy(out, literal, length);
    return out + length;
}

char* putRepeated(char* out, std::size_t count, char c) {
    std::memset(out, c, count);
    return out + count;
}

// A sign (or prefix) and digits padded to the width: with zeros after the
// sign when asked, else with blanks on the side the flags say.
char* putPadded(char* out, const Directive& directive, std::string_view prefix,
                std::string_view digits, bool zeroAllowed) {
    std::size_t length = prefix.size() + digits.size();
    std::size_t width = static_cast<std::size_t>(directive.width);
    std::size_t fill = length < width ? width - length : 0;
    if (fill == 0) return put(put(out, prefix), digits);
    if (directive.left) return putRepeated(put(put(out, prefix), digits), fill, ' ');
    if (directive.zero && zeroAllowed) return put(putRepeated(put(out, prefix), fill, '0'), digits);
    return put(put(putRepeated(out, fill, ' '), prefix), digits);
}

std::string_view signPrefix(const Directive& directive, bool negative) {
    if (negative) return "-";
    if (directive.plus) return "+";
    if (directive.blank) return " ";
    return "";
}

constexpr char digitPairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

// The decimal digits of a whole number, written backwards from `end`; the
// first digit's place.
char* decimalDigits(char* end, std::uint64_t value) {
    while (value >= 100) {
        std::uint64_t pair = value % 100;
        value /= 100;
        end -= 2;
        std::memcpy(end, digitPairs + 2 * pair, 2);
    }
    if (value >= 10) {
        end -= 2;
        std::memcpy(end, digitPairs + 2 * value, 2);
    } else {
        *--end = static_cast<char>('0' + value);
    }
    return end;
}

// The digits of a whole number in base 10 or 16, with at least `precision`
// of them (none for a zero with precision 0), in buffer.
std::string_view wholeDigits(char (&buffer)[48], unsigned long long value, int base,
                             const Directive& directive) {
    char* end = buffer + sizeof buffer;
    char* begin = buffer + 24;
    if (base == 10)
        begin = decimalDigits(end, value);
    else
        end = std::to_chars(begin, end, value, base).ptr;
    if (directive.precision == 0 && value == 0) begin = end;
    while (directive.precision > 0 && end - begin < directive.precision && begin > buffer)
        *--begin = '0';
    if (directive.conversion == 'X')
        for (char* c = begin; c < end; ++c)
            if (*c >= 'a' && *c <= 'f') *c = static_cast<char>(*c - 'a' + 'A');
    return {begin, static_cast<std::size_t>(end - begin)};
}

char* putSigned(char* out, const Directive& directive, long long value) {
    unsigned long long magnitude = value < 0 ? 0ULL - static_cast<unsigned long long>(value)
                                             : static_cast<unsigned long long>(value);
    char buffer[48];
    return putPadded(out, directive, signPrefix(directive, value < 0),
                     wholeDigits(buffer, magnitude, 10, directive), directive.precision < 0);
}

char* putUnsigned(char* out, const Directive& directive, long long value) {
    unsigned long long bits = directive.longLong ? static_cast<unsigned long long>(value)
                                                 : static_cast<std::uint32_t>(value);
    int base = directive.conversion == 'u' ? 10 : 16;
    char buffer[48];
    std::string_view prefix;
    if (directive.alternate && bits != 0 && base == 16)
        prefix = directive.conversion == 'X' ? "0X" : "0x";
    return putPadded(out, directive, prefix, wholeDigits(buffer, bits, base, directive),
                     directive.precision < 0);
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
std::string nonFinite(const Directive& directive, double value) {
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
    if (length <= 0) return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    systemPrintf(text.data(), text.size(), format.c_str(), value);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

constexpr std::uint32_t powersOfTen[] = {1,      10,      100,      1000,      10000,
                                         100000, 1000000, 10000000, 100000000, 1000000000};
constexpr int fastestDecimals = 9;

// An unsigned 128-bit number in four 32-bit limbs, the least first: as much
// arithmetic as the exact printing needs, the same on every platform.
struct Wide {
    std::uint32_t limb[4] = {0, 0, 0, 0};

    // a * b for a below 2^64 and b below 2^32.
    static Wide product(std::uint64_t a, std::uint32_t b) {
        Wide w;
        std::uint64_t low = (a & 0xFFFFFFFFu) * b;
        std::uint64_t high = (a >> 32) * b + (low >> 32);
        w.limb[0] = static_cast<std::uint32_t>(low);
        w.limb[1] = static_cast<std::uint32_t>(high);
        w.limb[2] = static_cast<std::uint32_t>(high >> 32);
        return w;
    }
    bool bit(int i) const { return (limb[i / 32] >> (i % 32)) & 1u; }
    // The number shifted right by k bits (k below 128).
    Wide shiftedRight(int k) const {
        Wide w;
        for (int i = 0; i < 4; ++i) {
            int from = i + k / 32, shift = k % 32;
            std::uint64_t pair = from < 4 ? limb[from] : 0;
            if (from + 1 < 4) pair |= static_cast<std::uint64_t>(limb[from + 1]) << 32;
            w.limb[i] = static_cast<std::uint32_t>(pair >> shift);
        }
        return w;
    }
    // Compares the k lowest bits with 2^(k-1): -1 below, 0 equal, 1 above.
    int lowBitsAgainstHalf(int k) const {
        if (!bit(k - 1)) return -1;
        for (int i = 0; i < k - 1; ++i)
            if (bit(i)) return 1;
        return 0;
    }
    void increment() {
        for (std::uint32_t& l : limb)
            if (++l != 0) break;
    }
    std::uint64_t low64() const { return limb[0] | static_cast<std::uint64_t>(limb[1]) << 32; }
};

// The number of decimal digits of a whole number (1 for 0).
int digitCount(std::uint64_t value) {
    static constexpr std::uint64_t powers[] = {
        1ULL,
        10ULL,
        100ULL,
        1000ULL,
        10000ULL,
        100000ULL,
        1000000ULL,
        10000000ULL,
        100000000ULL,
        1000000000ULL,
        10000000000ULL,
        100000000000ULL,
        1000000000000ULL,
        10000000000000ULL,
        100000000000000ULL,
        1000000000000000ULL,
        10000000000000000ULL,
        100000000000000000ULL,
        1000000000000000000ULL,
        10000000000000000000ULL,
    };
    value |= 1;                                        // the same count, and 0 counts as 1
    int guess = (std::bit_width(value) * 1233) >> 12;  // log10 from log2, at most one too high
    return guess - (value < powers[guess] ? 1 : 0) + 1;
}

// A whole number scaled by 10^decimals, written with its decimal point:
// 392650 with 3 decimals is "392.650", 5 is "0.005". The usual one (below
// 10^16, at most eight decimals) goes as two eight-digit words, moved into
// place whole: the digits from the first that counts, then the point, then
// the decimals again behind it. The output has room for the whole words.
char* putPointed(char* out, std::uint64_t scaled, int decimals) {
    constexpr std::uint64_t wordScale = 100000000;
    if (scaled >= wordScale * wordScale || decimals > 8) {
        char digits[24];
        char* first = decimalDigits(digits + sizeof digits, scaled);
        while (digits + sizeof digits - first <= decimals) *--first = '0';
        auto length = static_cast<std::size_t>(digits + sizeof digits - first);
        std::size_t integerLength = length - static_cast<std::size_t>(decimals);
        out = put(out, std::string_view(first, integerLength));
        if (decimals == 0) return out;
        *out++ = '.';
        return put(out,
                   std::string_view(first + integerLength, static_cast<std::size_t>(decimals)));
    }
    // The length comes from the number, not from its text: the next
    // number's place is known before these digits are worked out.
    int length = std::max(digitCount(scaled), decimals + 1);
    std::uint64_t low = eightDigitsText(static_cast<std::uint32_t>(scaled % wordScale));
    if (length <= 8) {
        storeEight(out, low >> (8 * (8 - length)));
    } else {
        std::uint64_t high = eightDigitsText(static_cast<std::uint32_t>(scaled / wordScale));
        int skip = 16 - length;  // characters of the high word not written
        storeEight(out, skip == 0 ? high : (high >> (8 * skip)) | (low << (64 - 8 * skip)));
        storeEight(out + 8, low >> (8 * skip));
    }
    int integerLength = length - decimals;
    if (decimals == 0) return out + integerLength;
    out[integerLength] = '.';
    storeEight(out + integerLength + 1, low >> (8 * (8 - decimals)));
    return out + integerLength + 1 + decimals;
}

// A finite non-negative value times 10^decimals (at most nine), rounded
// from its exact binary value, ties to even: the value is m * 2^e, so
// m * 10^decimals / 2^-e is worked out exactly, in 64 bits where it fits.
// False when the result does not fit 64 bits, left to the general printer.
// (A flag and an out-parameter: an optional made the hot path slower.)
bool scaledExactly(double magnitude, int decimals, std::uint64_t& result) {
    std::uint64_t bits;
    std::memcpy(&bits, &magnitude, sizeof bits);
    int biased = static_cast<int>((bits >> 52) & 0x7FF);
    std::uint64_t mantissa = bits & ((1ULL << 52) - 1);
    int exponent = biased == 0 ? -1074 : biased - 1075;
    if (biased != 0) mantissa |= 1ULL << 52;
    std::uint32_t scale = powersOfTen[decimals];
    std::uint64_t exact;
    if (exponent < 0 && exponent > -64 && !__builtin_mul_overflow(mantissa, scale, &exact)) {
        int shift = -exponent;
        std::uint64_t quotient = exact >> shift;
        std::uint64_t rest = exact & ((1ULL << shift) - 1);
        std::uint64_t half = 1ULL << (shift - 1);
        if (rest > half || (rest == half && (quotient & 1) != 0)) ++quotient;
        result = quotient;
        return true;
    }
    Wide scaled;
    if (exponent >= 0) {
        if (exponent > 10) return false;
        scaled = Wide::product(mantissa << exponent, scale);
    } else if (-exponent < 90) {  // beyond, m * 10^9 < 2^83 is below half of 2^-e: 0
        int shift = -exponent;
        Wide whole = Wide::product(mantissa, scale);
        scaled = whole.shiftedRight(shift);
        int against = whole.lowBitsAgainstHalf(shift);
        if (against > 0 || (against == 0 && scaled.bit(0))) scaled.increment();
    }
    result = scaled.low64();
    return scaled.limb[2] == 0 && scaled.limb[3] == 0;
}

// The length of putPointed's text.
std::size_t pointedLength(std::uint64_t scaled, int decimals) {
    int digits = std::max(digitCount(scaled), decimals + 1);
    return static_cast<std::size_t>(digits + (decimals > 0 ? 1 : 0));
}

// The digits of a finite value of any size, through the C++ runtime's exact
// printer.
std::string generalFixed(double magnitude, int decimals) {
    std::string digits(static_cast<std::size_t>(decimals) + 330, '\0');
    auto result = std::to_chars(digits.data(), digits.data() + digits.size(), magnitude,
                                std::chars_format::fixed, decimals);
    digits.resize(static_cast<std::size_t>(result.ptr - digits.data()));
    return digits;
}

char* putReal(char* out, const Directive& directive, double value) {
    if (!std::isfinite(value)) {
        std::string text = nonFinite(directive, value);
        return put(out, text);
    }
    int decimals = directive.precision < 0 ? 6 : directive.precision;
    std::string_view sign = signPrefix(directive, std::signbit(value));
    double magnitude = std::fabs(value);
    std::uint64_t scaled = 0;
    bool exact = decimals <= fastestDecimals && !(directive.alternate && decimals == 0) &&
                 scaledExactly(magnitude, decimals, scaled);
    if (!exact) {
        std::string digits = generalFixed(magnitude, decimals);
        if (directive.alternate && decimals == 0) digits += '.';
        return putPadded(out, directive, sign, digits, true);
    }
    // The length is known before the digits are written, so the padding
    // goes straight in front of them.
    std::size_t length = sign.size() + pointedLength(scaled, decimals);
    std::size_t width = static_cast<std::size_t>(directive.width);
    std::size_t fill = length < width ? width - length : 0;
    if (!directive.left && !directive.zero) out = putRepeated(out, fill, ' ');
    out = put(out, sign);
    if (!directive.left && directive.zero) out = putRepeated(out, fill, '0');
    out = putPointed(out, scaled, decimals);
    return directive.left ? putRepeated(out, fill, ' ') : out;
}

std::string_view textOf(const Directive& directive, const FormatArg& arg) {
    std::string_view text = arg.text();
    if (directive.precision >= 0)
        text = text.substr(0, static_cast<std::size_t>(directive.precision));
    return text;
}

// Room a text argument takes once formatted, beyond the format's fixed room.
std::size_t textRoom(const Directive& directive, const FormatArg& arg) {
    return textOf(directive, arg).size() + static_cast<std::size_t>(directive.width);
}

char* putOne(char* out, const Directive& directive, const FormatArg& arg, const Format& format,
             long& lineFeeds) {
    using Kind = FormatArg::Kind;
    switch (directive.conversion) {
        case 'd':
        case 'i':
            if (arg.kind() != Kind::whole) badArguments(format);
            // Without "ll" the value is a C int.
            return putSigned(
                out, directive,
                directive.longLong ? arg.whole() : static_cast<std::int32_t>(arg.whole()));
        case 'u':
        case 'x':
        case 'X':
            if (arg.kind() != Kind::whole) badArguments(format);
            return putUnsigned(out, directive, arg.whole());
        case 'c': {
            if (arg.kind() != Kind::whole) badArguments(format);
            char c = static_cast<char>(arg.whole());
            lineFeeds += c == '\n' ? 1 : 0;
            return putPadded(out, directive, "", std::string_view(&c, 1), false);
        }
        case 's': {
            if (arg.kind() != Kind::text) badArguments(format);
            std::string_view text = textOf(directive, arg);
            for (char c : text) lineFeeds += c == '\n' ? 1 : 0;
            return putPadded(out, directive, "", text, false);
        }
        default:  // 'f', 'F': the format took apart nothing else
            if (arg.kind() != Kind::real) badArguments(format);
            return putReal(out, directive, arg.real());
    }
}

// The output string as a sink: small pieces go through a block on the stack,
// which the string takes in one append.
class StringSink final : public TextSink {
public:
    explicit StringSink(std::string& text) : text_(text) {}
    char* room(std::size_t n) override {
        if (n <= sizeof block_) return block_;
        start_ = text_.size();
        text_.resize(start_ + n);
        return text_.data() + start_;
    }
    void used(std::size_t n) override {
        if (start_ == npos)
            text_.append(block_, n);
        else
            text_.resize(start_ + n);
    }

private:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);
    std::string& text_;
    std::size_t start_ = npos;
    char block_[2048];
};

// The usual "%0.3lf" of a finite value, sign and digits; nullptr when the
// general printer must take it.
char* putPlainFixed(char* out, const Directive& directive, double value) {
    if (!std::isfinite(value)) return nullptr;
    int decimals = directive.precision < 0 ? 6 : directive.precision;
    std::uint64_t scaled;
    if (!scaledExactly(std::fabs(value), decimals, scaled)) return nullptr;
    if (std::signbit(value)) *out++ = '-';
    return putPointed(out, scaled, decimals);
}

char* putPiece(char* out, const Format::Piece& piece, const FormatArg& arg, const Format& format,
               long& lineFeeds) {
    switch (piece.then) {
        case Format::Then::nothing: return out;
        case Format::Then::plainFixed:
            if (arg.kind() != FormatArg::Kind::real) badArguments(format);
            if (char* end = putPlainFixed(out, piece.directive, arg.real())) return end;
            break;
        case Format::Then::plainText: {
            if (arg.kind() != FormatArg::Kind::text) badArguments(format);
            std::string_view text = arg.text();
            lineFeeds += std::count(text.begin(), text.end(), '\n');
            return put(out, text);
        }
        case Format::Then::conversion: break;
    }
    return putOne(out, piece.directive, arg, format, lineFeeds);
}

}  // namespace

long appendFormatted(TextSink& sink, const Format& format, std::initializer_list<FormatArg> args) {
    if (args.size() != format.conversions()) badArguments(format);
    std::span<const Format::Piece> pieces = format.pieces();
    std::size_t room = format.fixedRoom() + Format::slack;
    const FormatArg* next = args.begin();
    if (format.takesTexts()) {
        for (const Format::Piece& piece : pieces) {
            if (!piece.converts) continue;
            if (piece.directive.conversion == 's') room += textRoom(piece.directive, *next);
            ++next;
        }
    }
    char* start = sink.room(room);
    char* out = start;
    long lineFeeds = format.literalLineFeeds();
    next = args.begin();
    for (const Format::Piece& piece : pieces) {
        out = putLiteral(out, format.literal(piece), piece.literalLength);
        if (piece.converts) out = putPiece(out, piece, *next++, format, lineFeeds);
    }
    sink.used(static_cast<std::size_t>(out - start));
    return lineFeeds;
}

long appendFormatted(std::string& text, const Format& format,
                     std::initializer_list<FormatArg> args) {
    StringSink sink(text);
    return appendFormatted(sink, format, args);
}

void appendFixed(std::string& text, double value, int decimals) {
    Directive directive;
    directive.conversion = 'f';
    directive.precision = decimals < 0 ? 0 : decimals;
    StringSink sink(text);
    char* start = sink.room(numberRoom(directive));
    sink.used(static_cast<std::size_t>(putReal(start, directive, value) - start));
}

std::string formatFixed(double value, int decimals) {
    std::string out;
    appendFixed(out, value, decimals);
    return out;
}

}  // namespace quelcnv
