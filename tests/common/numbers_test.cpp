#include "common/numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#ifndef _WIN32
#include <locale.h>
#endif

namespace quelcnv {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Numbers, DecimalTextsReadAsCsStrtodReadsThem) {
    struct Case {
        const char* text;
        double value;
        std::size_t length;
    };
    const Case cases[] = {
        {"  -1.5e3x", -1500.0, 8},
        {"12,5", 12.0, 2},
        {".5", 0.5, 2},
        {"5.", 5.0, 2},
        {"+3", 3.0, 2},
        {"1e3", 1000.0, 3},
        {"1e", 1.0, 1},
        {"1e+", 1.0, 1},
        {"2E-2;", 0.02, 4},
        {" \t\n\r\v\f7", 7.0, 7},
        {"0x1A", 0.0, 1},
        {"-0", -0.0, 2},
        {"412.250\n", 412.25, 7},
        {"1e999", infinity, 5},
        {"-1e999", -infinity, 6},
        {"1e-999", 0.0, 6},
        {"4e-320", 4e-320, 6},
        {"1.7976931348623159e308", infinity, 22},
        {"123456789012345678901234567890", 1.2345678901234568e29, 30},
    };
    for (const Case& c : cases) {
        NumberScan scan = scanNumber(c.text);
        EXPECT_EQ(scan.value, c.value) << c.text;
        EXPECT_EQ(scan.length, c.length) << c.text;
        EXPECT_EQ(std::signbit(scan.value), std::signbit(c.value)) << c.text;
    }
}

TEST(Numbers, TextWithoutANumberReadsZero) {
    for (const char* text : {"", ".", "-", "+", "-.", "e5", "INF", "inf", "-Infinity", "nan", "NAN",
                             "x12", "  ", ",5"}) {
        NumberScan scan = scanNumber(text);
        EXPECT_EQ(scan.value, 0.0) << text;
        EXPECT_EQ(scan.length, 0u) << text;
        EXPECT_EQ(parseNumber(text), 0.0) << text;
    }
}

// Reference: the C library's strtod in the "C" locale, whatever the process locale.
double referenceStrtod(const std::string& text) {
#ifdef _WIN32
    static _locale_t c = _create_locale(LC_ALL, "C");
    return _strtod_l(text.c_str(), nullptr, c);
#else
    static locale_t c = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(text.c_str(), nullptr, c);
#endif
}

TEST(Numbers, RandomDecimalTextsMatchTheCLibrary) {
    std::mt19937 random(20261122);
    const char alphabet[] = "0123456789.eE+- ";
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        int length = 1 + static_cast<int>(random() % 24);
        for (int j = 0; j < length; ++j) text += alphabet[random() % (sizeof alphabet - 1)];
        double expected = referenceStrtod(text);
        double actual = parseNumber(text);
        EXPECT_TRUE(actual == expected || (std::isnan(actual) && std::isnan(expected)))
            << '"' << text << '"';
        EXPECT_EQ(std::signbit(actual), std::signbit(expected)) << '"' << text << '"';
    }
}

TEST(Numbers, WholeNumbersClampToThe32BitRange) {
    struct Case {
        const char* text;
        std::int32_t value;
        std::size_t length;
    };
    const Case cases[] = {
        {"  -42abc", -42, 5},
        {"+7", 7, 2},
        {"2147483647", 2147483647, 10},
        {"2147483648", 2147483647, 10},
        {"-2147483648", -2147483647 - 1, 11},
        {"-2147483649", -2147483647 - 1, 11},
        {"99999999999999999999", 2147483647, 20},
        {"12.9", 12, 2},
        {"x", 0, 0},
        {"", 0, 0},
        {"- 5", 0, 0},
    };
    for (const Case& c : cases) {
        WholeScan scan = scanWhole(c.text);
        EXPECT_EQ(scan.value, c.value) << c.text;
        EXPECT_EQ(scan.length, c.length) << c.text;
        EXPECT_EQ(parseWhole(c.text), c.value) << c.text;
    }
}

}  // namespace
}  // namespace quelcnv
