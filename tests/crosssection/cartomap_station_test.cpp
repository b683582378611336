// The station text of CartoMAP distance listings.
#include <gtest/gtest.h>

#include "crosssection/cartomap_sections.h"

namespace quelcnv {
namespace {

TEST(CartomapStation, KilometresPlusMetres) {
    // clang-format off
    const std::pair<const char*, double> cases[] = {
        {"1+234.5", 1234.5}, {"0+120", 120.0}, {"120", 120000.0}, {"Distancia", 0.0},
        {"2+", 2000.0}, {"+15", 15.0},
    };
    // clang-format on
    for (auto [text, station] : cases) EXPECT_DOUBLE_EQ(cartomapStation(text), station) << text;
}

}  // namespace
}  // namespace quelcnv
