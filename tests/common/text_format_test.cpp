#include "common/text_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <stdexcept>

#ifndef _WIN32
#include <locale.h>
#endif

namespace quelcnv {
namespace {

TEST(TextFormat, FixedDecimalsAsPrintfWritesThem) {
    EXPECT_EQ(formatFixed(392.65, 3), "392.650");
    EXPECT_EQ(formatText("%0.3lf %0.3lf", 100.0, -5.5), "100.000 -5.500");
    EXPECT_EQ(formatText("%0.4lf", 1234567.12345678), "1234567.1235");
    EXPECT_EQ(formatText("%0.8lf", 1.0 / 3.0), "0.33333333");
    EXPECT_EQ(formatText("%f", 2.5), "2.500000");
}

TEST(TextFormat, ExactHalvesRoundToEven) {
    EXPECT_EQ(formatText("%0.2lf", 0.125), "0.12");
    EXPECT_EQ(formatText("%0.2lf", 0.375), "0.38");
    EXPECT_EQ(formatText("%0.0lf", 0.5), "0");
    EXPECT_EQ(formatText("%0.0lf", 1.5), "2");
    EXPECT_EQ(formatText("%0.0lf", 2.5), "2");
    // Not exact halves in binary: 1.0005 is a little below, 2.0005 a little above.
    EXPECT_EQ(formatText("%0.3lf", 1.0005), "1.000");
    EXPECT_EQ(formatText("%0.3lf", 2.0005), "2.001");
}

TEST(TextFormat, NegativesThatRoundToZeroKeepTheirSign) {
    EXPECT_EQ(formatText("%0.3lf", -0.0001), "-0.000");
    EXPECT_EQ(formatText("%0.3lf", -0.0), "-0.000");
    EXPECT_EQ(formatText("%8.3lf", -0.0004), "  -0.000");
    EXPECT_EQ(formatText("%d", -0), "0");
}

TEST(TextFormat, WidthsFlagsAndTexts) {
    EXPECT_EQ(formatText("%8.3lf|", -5.5), "  -5.500|");
    EXPECT_EQ(formatText("%10.3lf|", 12345678.5), "12345678.500|");
    EXPECT_EQ(formatText("%-8d|%7.2lf", 1001, 12.345), "1001    |  12.35");
    EXPECT_EQ(formatText("%-6d|", -12), "-12   |");
    EXPECT_EQ(formatText("%2d", 5), " 5");
    EXPECT_EQ(formatText("%05.1lf", -2.34), "-02.3");
    EXPECT_EQ(formatText("%+d %+0.1lf % d", 7, 2.0, 3), "+7 +2.0  3");
    EXPECT_EQ(formatText("%08X", 0x80004005u), "80004005");
    EXPECT_EQ(formatText("%x", -1), "ffffffff");
    EXPECT_EQ(formatText("%5s|%-5s|%.2s", "ab", "cd", "xyz"), "   ab|cd   |xy");
    EXPECT_EQ(formatText("%-44s|", "EMPRESA: X").size(), 45u);
    EXPECT_EQ(formatText("100%% %c", 'A'), "100% A");
    EXPECT_EQ(formatText("%s\n", std::string("line")), "line\n");
    EXPECT_EQ(formatText("%s", static_cast<const char*>(nullptr)), "(null)");
    // Without ll a whole number is a C int.
    EXPECT_EQ(formatText("%d %lld", 4294967295u, 4294967296LL), "-1 4294967296");
}

TEST(TextFormat, UnsupportedFormatsAndWrongArgumentsThrow) {
    EXPECT_THROW(formatText("%d", 1.5), std::invalid_argument);
    EXPECT_THROW(formatText("%lf", 1), std::invalid_argument);
    EXPECT_THROW(formatText("%s", 1), std::invalid_argument);
    EXPECT_THROW(formatText("%e", 1.0), std::invalid_argument);
    EXPECT_THROW(formatText("%d %d", 1), std::invalid_argument);
    EXPECT_THROW(formatText("%", 1), std::invalid_argument);
}

// Reference: the C library's snprintf in the "C" locale, whatever the process locale.
std::string referencePrintf(const char* format, double value) {
    char buffer[512];
#ifdef _WIN32
    static _locale_t c = _create_locale(LC_ALL, "C");
    _snprintf_l(buffer, sizeof buffer, format, c, value);
#else
    static locale_t c = newlocale(LC_ALL_MASK, "C", nullptr);
    locale_t previous = uselocale(c);
    std::snprintf(buffer, sizeof buffer, format, value);
    uselocale(previous);
#endif
    return buffer;
}

TEST(TextFormat, RandomValuesMatchTheCLibrary) {
    std::mt19937_64 random(20261122);
    const char* formats[] = {"%0.3lf", "%0.4lf",  "%0.8lf",  "%8.3lf",  "%10.3lf", "%-9.4lf",
                             "%0.0lf", "%11.5lf", "%+0.2lf", "%06.1lf", "%f"};
    std::uniform_real_distribution<double> exponent(-8.0, 9.0);
    for (int i = 0; i < 20000; ++i) {
        double value = std::pow(10.0, exponent(random)) * ((random() & 1) ? -1.0 : 1.0);
        if (i % 4 == 0) value = std::round(value * 1000.0) / 1000.0 + 0.0005;  // near halves
        for (const char* format : formats) {
            ASSERT_EQ(formatText(format, value), referencePrintf(format, value))
                << format << " of " << value;
        }
    }
}

TEST(TextFormat, NotANumberAndInfinityPrintAsThePlatformDoes) {
    double nan = std::numeric_limits<double>::quiet_NaN();
    double inf = std::numeric_limits<double>::infinity();
    for (double value : {nan, -nan, inf, -inf}) {
        for (const char* format : {"%0.3lf", "%8.3lf", "%-8.3lf", "%80f", "%+.0f"}) {
            EXPECT_EQ(formatText(format, value), referencePrintf(format, value)) << format;
        }
    }
}

}  // namespace
}  // namespace quelcnv
