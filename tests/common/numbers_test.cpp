#include "common/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "tests/test_support.h"

namespace quelcnv {
namespace {

constexpr double inf = std::numeric_limits<double>::infinity();

TEST(Numbers, DecimalTextsReadAsStrtodInTheCLocaleButDecimalOnly) {
    // clang-format off
    const std::tuple<const char*, double, std::size_t> cases[] = {
        {"  -1.5e3x", -1500.0, 8}, {"12,5", 12.0, 2}, {".5", 0.5, 2}, {"5.", 5.0, 2},
        {"+3", 3.0, 2}, {"1e", 1.0, 1}, {"2E-2;", 0.02, 4}, {" \t\n\r\v\f7", 7.0, 7},
        {"0x1A", 0.0, 1}, {"-0", -0.0, 2}, {"1e999", inf, 5}, {"-1e999", -inf, 6},
        {"1e-999", 0.0, 6}, {"4e-320", 4e-320, 6}, {"1.7976931348623159e308", inf, 22},
        // no number at all
        {"", 0.0, 0}, {".", 0.0, 0}, {"-", 0.0, 0}, {"-.", 0.0, 0}, {"INF", 0.0, 0},
        {"nan", 0.0, 0}, {",5", 0.0, 0}, {"e5", 0.0, 0},
    };
    // clang-format on
    for (auto [text, value, length] : cases) {
        NumberScan scan = scanNumber(text);
        EXPECT_EQ(scan.value, value) << text;
        EXPECT_EQ(std::signbit(scan.value), std::signbit(value)) << text;
        EXPECT_EQ(scan.length, length) << text;
    }
}

TEST(Numbers, RandomDecimalTextsMatchTheCLibrary) {
    std::mt19937 random(20261122);
    const char alphabet[] = "0123456789.eE+- ";
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (int j = 1 + random() % 24; j > 0; --j) text += alphabet[random() % 16];
        double expected = test::cStrtod(text.c_str());
        ASSERT_EQ(parseNumber(text), expected) << text;
        ASSERT_EQ(std::signbit(parseNumber(text)), std::signbit(expected)) << text;
    }
}

TEST(Numbers, WholeNumbersClampToThe32BitRange) {
    // clang-format off
    const std::tuple<const char*, std::int32_t, std::size_t> cases[] = {
        {"  -42abc", -42, 5}, {"+7", 7, 2}, {"2147483648", 2147483647, 10},
        {"-2147483649", -2147483647 - 1, 11}, {"99999999999999999999", 2147483647, 20},
        {"12.9", 12, 2}, {"x", 0, 0}, {"- 5", 0, 0},
    };
    // clang-format on
    for (auto [text, value, length] : cases) {
        EXPECT_EQ(scanWhole(text).value, value) << text;
        EXPECT_EQ(scanWhole(text).length, length) << text;
    }
}

}  // namespace
}  // namespace quelcnv
