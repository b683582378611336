#include "common/text_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

using test::cPrintf;

TEST(TextFormat, PrintsAsPrintfInTheCLocale) {
    const std::pair<std::string, std::string> cases[] = {
        {formatFixed(392.65, 3), "392.650"},
        {formatText("%0.2lf %0.2lf %0.0lf %0.0lf", 0.125, 0.375, 0.5, 2.5), "0.12 0.38 0 2"},
        {formatText("%0.3lf %0.3lf", 1.0005, 2.0005), "1.000 2.001"},  // not halves in binary
        {formatText("%0.3lf|%8.3lf", -0.0001, -0.0004), "-0.000|  -0.000"},
        {formatText("%-8d|%7.2lf|%05.1lf", 1001, 12.345, -2.34), "1001    |  12.35|-02.3"},
        {formatText("%+d %+0.1lf % d %2d", 7, 2.0, 3, 5), "+7 +2.0  3  5"},
        {formatText("%08X %x %d", 0x80004005u, -1, 4294967295u), "80004005 ffffffff -1"},
        {formatText("%5s|%-5s|%.2s|%c%%", "ab", "cd", "xyz", 'A'), "   ab|cd   |xy|A%"},
        {formatText("%s", static_cast<const char*>(nullptr)), "(null)"},
    };
    for (const auto& [actual, expected] : cases) EXPECT_EQ(actual, expected);
    EXPECT_THROW(formatText("%d", 1.5), std::invalid_argument);
    EXPECT_THROW(formatText("%e", 1.0), std::invalid_argument);
    EXPECT_THROW(formatText("%d %d", 1), std::invalid_argument);
}

TEST(TextFormat, RandomAndNonFiniteValuesMatchTheCLibrary) {
    std::mt19937_64 random(20261122);
    std::uniform_real_distribution<double> exponent(-8.0, 9.0);
    const char* formats[] = {"%0.3lf", "%0.8lf", "%10.3lf", "%-9.4lf", "%0.0lf", "%+06.1lf", "%f"};
    for (int i = 0; i < 20000; ++i) {
        double value = std::pow(10.0, exponent(random)) * ((random() & 1) ? -1.0 : 1.0);
        if (i % 4 == 0) value = std::round(value * 1000.0) / 1000.0 + 0.0005;  // near halves
        for (const char* format : formats)
            ASSERT_EQ(formatText(format, value), cPrintf(format, value));
    }
    double nan = std::numeric_limits<double>::quiet_NaN(),
           inf = std::numeric_limits<double>::infinity();
    for (double value : {nan, -nan, inf, -inf}) {
        for (const char* format : {"%0.3lf", "%-8.3lf", "%80f"}) {
            EXPECT_EQ(formatText(format, value), cPrintf(format, value)) << format;
        }
    }
}

}  // namespace
}  // namespace quelcnv
