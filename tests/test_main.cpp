// Runs the tests; with QUELCNV_TEST_LOCALE set, under that process locale
// (a decimal-comma locale proves that numbers ignore it).
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <locale>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (const char* name = std::getenv("QUELCNV_TEST_LOCALE")) {
        if (std::setlocale(LC_ALL, name) == nullptr) {
            std::fprintf(stderr, "the locale %s is not installed\n", name);
            return 1;
        }
        std::locale::global(std::locale(name));
        if (std::strcmp(std::localeconv()->decimal_point, ",") != 0) {
            std::fprintf(stderr, "the locale %s does not use a decimal comma\n", name);
            return 1;
        }
    }
    return RUN_ALL_TESTS();
}
