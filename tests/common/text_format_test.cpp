#include "common/text_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

using test::cPrintf;

TEST(TextFormat, PrintsAsPrintfInTheCLocale) {
    const std::pair<std::string, std::string> cases[] = {
        {formatFixed(392.65, 3), "392.650"},
        {formatText("%0.2lf %0.2lf %0.0lf %0.0lf"_fmt, 0.125, 0.375, 0.5, 2.5), "0.12 0.38 0 2"},
        {formatText("%0.3lf %0.3lf"_fmt, 1.0005, 2.0005), "1.000 2.001"},  // not halves in binary
        {formatText("%0.3lf|%8.3lf"_fmt, -0.0001, -0.0004), "-0.000|  -0.000"},
        {formatText("%-8d|%7.2lf|%05.1lf"_fmt, 1001, 12.345, -2.34), "1001    |  12.35|-02.3"},
        {formatText("%+d %+0.1lf % d %2d"_fmt, 7, 2.0, 3, 5), "+7 +2.0  3  5"},
        {formatText("%08X %x %d"_fmt, 0x80004005u, -1, 4294967295u), "80004005 ffffffff -1"},
        {formatText("%5s|%-5s|%.2s|%c%%"_fmt, "ab", "cd", "xyz", 'A'), "   ab|cd   |xy|A%"},
        {formatText("%s"_fmt, static_cast<const char*>(nullptr)), "(null)"},
    };
    for (const auto& [actual, expected] : cases) EXPECT_EQ(actual, expected);
    EXPECT_THROW(formatText("%d"_fmt, 1.5), std::invalid_argument);
    EXPECT_THROW(Format::runtime("%e"), std::invalid_argument);
    EXPECT_THROW(formatText("%d %d"_fmt, 1), std::invalid_argument);
    EXPECT_THROW(formatText("%d"_fmt, 1, 2), std::invalid_argument);
}

TEST(TextFormat, RandomAndNonFiniteValuesMatchTheCLibrary) {
    std::mt19937_64 random(20261122);
    std::uniform_real_distribution<double> exponent(-8.0, 9.0);
    const char* formats[] = {"%0.3lf", "%0.8lf", "%10.3lf", "%-9.4lf", "%0.0lf", "%+06.1lf", "%f"};
    for (int i = 0; i < 20000; ++i) {
        double value = std::pow(10.0, exponent(random)) * ((random() & 1) ? -1.0 : 1.0);
        if (i % 4 == 0) value = std::round(value * 1000.0) / 1000.0 + 0.0005;  // near halves
        for (const char* format : formats)
            ASSERT_EQ(formatText(Format::runtime(format), value), cPrintf(format, value));
    }
    double nan = std::numeric_limits<double>::quiet_NaN(),
           inf = std::numeric_limits<double>::infinity();
    for (double value : {nan, -nan, inf, -inf}) {
        for (const char* format : {"%0.3lf", "%-8.3lf", "%80f"}) {
            EXPECT_EQ(formatText(Format::runtime(format), value), cPrintf(format, value)) << format;
        }
    }
}

// The value a test of the exact printing takes: random bits, decimal ties
// exactly representable and not (x.xxx5, x.5 / 2^k), their neighbours,
// values near powers of two and ten, huge, tiny and subnormal ones.
double nextTestValue(std::mt19937_64& random, long i) {
    auto below = [&](std::uint64_t n) { return static_cast<long long>(random() % n); };
    double value;
    switch (i % 8) {
        case 0: {
            std::uint64_t bits = random();
            std::memcpy(&value, &bits, sizeof value);
            if (!std::isfinite(value)) value = 1.0;
            break;
        }
        case 1: value = (below(2000000000) + 0.5) / std::pow(10.0, below(10)); break;
        case 2:
            value = std::ldexp(static_cast<double>(below(1LL << 40) * 2 + 1), -below(40) - 1);
            break;
        case 3:
            value = std::nextafter(static_cast<double>(below(100000000)) / 1000.0 + 0.0005,
                                   (random() & 1) ? 1e300 : -1e300);
            break;
        case 4: value = std::ldexp(1.0, static_cast<int>(below(130)) - 65); break;
        case 5: value = std::pow(10.0, static_cast<double>(below(40) - 20)); break;
        case 6:
            value = std::ldexp(static_cast<double>(random() >> 11),
                               -1074 + static_cast<int>(below(60)));
            break;
        default: value = std::uniform_real_distribution<double>(-1e7, 1e7)(random); break;
    }
    return (random() & 1) ? -value : value;
}

// Every fixed format the converters use, against the C library's printf, on
// a million values; QUELCNV_PRINT_CHECKS asks for more (the CTest run
// "fixed_printing_against_printf" asks for twenty million).
TEST(TextFormat, FixedDecimalsAgainstTheCLibrary) {
    const char* setting = std::getenv("QUELCNV_PRINT_CHECKS");
    long count = setting != nullptr ? std::atol(setting) : 1000000;
    const std::pair<const char*, int> formats[] = {{"%0.3lf", 3}, {"%0.4lf", 4}, {"%0.8lf", 8},
                                                   {"%0.6lf", 6}, {"%0.0lf", 0}, {"%0.1lf", 1},
                                                   {"%0.2lf", 2}, {"%0.9lf", 9}};
    std::mt19937_64 random(20261123);
    std::string ours;
    for (long i = 0; i < count; ++i) {
        double value = nextTestValue(random, i);
        const auto& [format, decimals] = formats[static_cast<std::size_t>(i) % std::size(formats)];
        ours.clear();
        appendFixed(ours, value, decimals);
        ASSERT_EQ(ours, cPrintf(format, value)) << i;
    }
}
}  // namespace
}  // namespace quelcnv
