// Formatting numbers and texts with C's printf formats, exactly as printf
// prints them in the "C" locale, whatever locale the host process has set.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quelcnv {

// One argument of a format: a whole number, a double or a text.
class FormatArg {
public:
    enum class Kind { whole, real, text };

    FormatArg(int value) : kind_(Kind::whole), whole_(value) {}
    FormatArg(long value) : kind_(Kind::whole), whole_(value) {}
    FormatArg(long long value) : kind_(Kind::whole), whole_(value) {}
    FormatArg(unsigned value) : kind_(Kind::whole), whole_(value) {}
    FormatArg(unsigned long value) : kind_(Kind::whole), whole_(static_cast<long long>(value)) {}
    FormatArg(char value) : kind_(Kind::whole), whole_(static_cast<unsigned char>(value)) {}
    FormatArg(double value) : kind_(Kind::real), real_(value) {}
    // A null text prints as "(null)", as glibc prints it.
    FormatArg(const char* value) : kind_(Kind::text), text_(value ? value : "(null)") {}
    FormatArg(std::string_view value) : kind_(Kind::text), text_(value) {}
    FormatArg(const std::string& value) : kind_(Kind::text), text_(value) {}

    Kind kind() const { return kind_; }
    long long whole() const { return whole_; }
    double real() const { return real_; }
    std::string_view text() const { return text_; }

private:
    Kind kind_;
    long long whole_ = 0;
    double real_ = 0.0;
    std::string_view text_;
};

// Formats the arguments with a printf format. Conversions: d i u x X c s f F
// and %%, with the flags - + blank 0 #, a width, a precision and the length
// modifiers h l ll ("%0.3lf"; h and l change nothing). Without ll, %d and
// %i print the value as a 32-bit int and the unsigned conversions its
// 32-bit pattern. Not-a-number and infinity print as the
// platform's C runtime prints them. A format the converters never use, or an
// argument of the wrong kind, throws std::invalid_argument.
std::string formatArgs(std::string_view format, std::initializer_list<FormatArg> args);

template <typename... Args>
std::string formatText(std::string_view format, const Args&... args) {
    return formatArgs(format, {FormatArg(args)...});
}

// "%0.<decimals>lf" of a value: "392.650" for (392.65, 3).
std::string formatFixed(double value, int decimals);

}  // namespace quelcnv
