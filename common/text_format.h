// Formatting numbers and texts with C's printf formats, exactly as printf
// prints them in the "C" locale, whatever locale the host process has set.
// A format is parsed once, at compile time for a literal, and applied to
// values with no allocation but the output's own growth.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quelcnv {

// One argument of a format: a whole number, a double or a text.
class FormatArg {
public:
    enum class Kind : unsigned char { whole, real, text };

    FormatArg(int value) : kind_(Kind::whole), whole_(value) {}
    FormatArg(long value) : kind_(Kind::whole), whole_(value) {}
    FormatArg(long long value) : kind_(Kind::whole), whole_(value) {}
    FormatArg(unsigned value) : kind_(Kind::whole), whole_(value) {}
    FormatArg(unsigned long value) : kind_(Kind::whole), whole_(static_cast<long long>(value)) {}
    FormatArg(char value) : kind_(Kind::whole), whole_(static_cast<unsigned char>(value)) {}
    FormatArg(double value) : kind_(Kind::real), real_(value) {}
    // A null text prints as "(null)", as glibc prints it.
    FormatArg(const char* value) : FormatArg(std::string_view(value ? value : "(null)")) {}
    FormatArg(std::string_view value)
        : kind_(Kind::text), length_(value.size()), text_(value.data()) {}
    FormatArg(const std::string& value) : FormatArg(std::string_view(value)) {}

    Kind kind() const { return kind_; }
    long long whole() const { return kind_ == Kind::whole ? whole_ : 0; }
    double real() const { return kind_ == Kind::real ? real_ : 0.0; }
    std::string_view text() const {
        return kind_ == Kind::text ? std::string_view(text_, length_) : std::string_view();
    }

private:
    Kind kind_;
    std::size_t length_ = 0;  // of a text
    union {
        long long whole_;
        double real_;
        const char* text_;
    };
};

// One conversion of a format: flags, width, precision, length and letter.
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

// A printf format taken apart into literal runs, each followed by a
// conversion or by nothing. Conversions: d i u x X c s f F and %%, with the
// flags - + blank 0 #, a width, a precision and the length modifiers h l ll
// ("%0.3lf"; h and l change nothing). A literal format ("%0.3lf\n"_fmt) is
// taken apart when the program is compiled, once for the whole program, and
// one the converters cannot print does not compile; Format::runtime takes
// one apart at run time.
class Format {
public:
    // What follows a piece's literal: nothing, the usual fixed-decimal
    // number ("%0.3lf": no width, no flags, at most nine decimals), a text
    // as it stands ("%s"), or any other conversion.
    enum class Then : unsigned char { nothing, plainFixed, plainText, conversion };
    struct Piece {
        std::size_t literalBegin = 0;
        std::size_t literalLength = 0;
        bool converts = false;
        Then then = Then::nothing;
        Directive directive;
    };

    // Throws std::invalid_argument for a format the converters never use.
    static Format runtime(std::string_view text) { return parse(text); }
    static constexpr Format parse(std::string_view text);

    std::string_view text() const { return {chars_.data(), length_}; }
    std::span<const Piece> pieces() const { return {pieces_.data(), count_}; }
    // The literal characters of a piece, followed by at least `slack` more
    // readable bytes: a short literal is copied in one fixed-size move.
    static constexpr std::size_t slack = 16;
    const char* literal(const Piece& piece) const { return chars_.data() + piece.literalBegin; }
    // Room the numbers and literals take at most, texts and their widths aside.
    std::size_t fixedRoom() const { return fixedRoom_; }
    std::size_t conversions() const { return conversions_; }
    bool takesTexts() const { return takesTexts_; }
    // The line feeds in the literal runs.
    long literalLineFeeds() const { return literalLineFeeds_; }

private:
    static constexpr std::size_t maxPieces = 24;
    static constexpr std::size_t maxLength = 240;

    constexpr Format() = default;
    static constexpr int readCount(std::string_view text, std::size_t& i);
    static constexpr Directive readDirective(std::string_view text, std::size_t& i);

    std::array<char, maxLength + slack> chars_{};
    std::size_t length_ = 0;
    std::array<Piece, maxPieces> pieces_{};
    std::size_t count_ = 0;
    std::size_t literalLength_ = 0;
    std::size_t fixedRoom_ = 0;
    std::size_t conversions_ = 0;
    bool takesTexts_ = false;
    long literalLineFeeds_ = 0;

    static constexpr Then thenOf(const Directive& d);
};

// Room a number formatted with a directive takes at most: a double's 309
// integer digits, a sign, a point and the decimals, or a 64-bit whole number
// in any base with its prefix, and the width.
constexpr std::size_t numberRoom(const Directive& directive) {
    std::size_t width = static_cast<std::size_t>(directive.width);
    std::size_t precision =
        directive.precision < 0 ? 6 : static_cast<std::size_t>(directive.precision);
    return 340 + precision + width;
}

// The characters of a format literal, as a template argument.
template <std::size_t size>
struct FormatLiteral {
    char chars[size];
    consteval FormatLiteral(const char (&text)[size]) {
        for (std::size_t i = 0; i < size; ++i) chars[i] = text[i];
    }
    constexpr std::string_view view() const { return {chars, size - 1}; }
};

// Each format literal of the program taken apart once, as a constant.
template <FormatLiteral literal>
inline constexpr Format compiledFormat = Format::parse(literal.view());

template <FormatLiteral literal>
constexpr const Format& operator""_fmt() {
    return compiledFormat<literal>;
}

// Where formatted text goes: room for at least n more bytes at the end, then
// how many of them were written.
class TextSink {
public:
    virtual char* room(std::size_t n) = 0;
    virtual void used(std::size_t n) = 0;

protected:
    ~TextSink() = default;
};

// Appends the arguments formatted and gives the number of line feeds it
// wrote. Without "ll", %d and %i print the value as a 32-bit int and the
// unsigned conversions its 32-bit pattern. Not-a-number and infinity print
// as the platform's C runtime prints them. An argument of the wrong kind, or
// one too many or too few, throws std::invalid_argument.
long appendFormatted(TextSink& out, const Format& format, std::initializer_list<FormatArg> args);
long appendFormatted(std::string& out, const Format& format, std::initializer_list<FormatArg> args);

template <typename... Args>
std::string formatText(const Format& format, const Args&... args) {
    std::string out;
    appendFormatted(out, format, {FormatArg(args)...});
    return out;
}

// Appends "%0.<decimals>lf" of a value: "392.650" for (392.65, 3). Correctly
// rounded from the double's exact binary value, ties to even, as glibc's
// printf does.
void appendFixed(std::string& out, double value, int decimals);
std::string formatFixed(double value, int decimals);

// ---- Taking a format apart ------------------------------------------------

constexpr int Format::readCount(std::string_view text, std::size_t& i) {
    int count = 0;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') {
        count = count * 10 + (text[i] - '0');
        if (count > 100000) throw std::invalid_argument("format: count too large");
        ++i;
    }
    return count;
}

constexpr Directive Format::readDirective(std::string_view text, std::size_t& i) {
    Directive d;
    for (; i < text.size(); ++i) {
        char c = text[i];
        if (c == '-')
            d.left = true;
        else if (c == '+')
            d.plus = true;
        else if (c == ' ')
            d.blank = true;
        else if (c == '0')
            d.zero = true;
        else if (c == '#')
            d.alternate = true;
        else
            break;
    }
    d.width = readCount(text, i);
    if (i < text.size() && text[i] == '.') {
        ++i;
        d.precision = readCount(text, i);
    }
    while (i < text.size() && (text[i] == 'h' || text[i] == 'l')) {
        if (text[i] == 'l' && i + 1 < text.size() && text[i + 1] == 'l') {
            d.longLong = true;
            ++i;
        }
        ++i;
    }
    if (i == text.size()) throw std::invalid_argument("format: conversion missing");
    d.conversion = text[i++];
    if (std::string_view("diuxXcsfF").find(d.conversion) == std::string_view::npos)
        throw std::invalid_argument("format: unsupported conversion");
    return d;
}

constexpr Format::Then Format::thenOf(const Directive& d) {
    bool flagless = !d.plus && !d.blank && !d.alternate && d.width == 0;
    if ((d.conversion == 'f' || d.conversion == 'F') && flagless && d.precision <= 9)
        return Then::plainFixed;
    if (d.conversion == 's' && flagless && d.precision < 0) return Then::plainText;
    return Then::conversion;
}

constexpr Format Format::parse(std::string_view text) {
    if (text.size() > maxLength) throw std::invalid_argument("format: too long");
    Format format;
    for (std::size_t i = 0; i < text.size(); ++i) format.chars_[i] = text[i];
    format.length_ = text.size();
    std::size_t start = 0;
    auto add = [&](std::size_t literalEnd, bool converts, Directive directive) {
        if (format.count_ == maxPieces) throw std::invalid_argument("format: too many pieces");
        Then then = converts ? thenOf(directive) : Then::nothing;
        format.pieces_[format.count_++] = {start, literalEnd - start, converts, then, directive};
        format.literalLength_ += literalEnd - start;
        for (std::size_t i = start; i < literalEnd; ++i)
            if (text[i] == '\n') ++format.literalLineFeeds_;
    };
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] != '%') {
            ++i;
            continue;
        }
        if (i + 1 < text.size() && text[i + 1] == '%') {  // "%%": the literal takes one
            add(i + 1, false, {});
            start = i += 2;
            continue;
        }
        std::size_t literalEnd = i++;
        Directive directive = readDirective(text, i);
        add(literalEnd, true, directive);
        ++format.conversions_;
        if (directive.conversion == 's')
            format.takesTexts_ = true;
        else
            format.fixedRoom_ += numberRoom(directive);
        start = i;
    }
    if (start < text.size()) add(text.size(), false, {});
    format.fixedRoom_ += format.literalLength_;
    return format;
}

}  // namespace quelcnv
