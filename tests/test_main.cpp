// Runs the tests; with QUELCNV_TEST_LOCALE set, under that process locale (a
// decimal-comma locale proves that reading and printing numbers ignore it).
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const char* name = std::getenv("QUELCNV_TEST_LOCALE");
    if (name &&
        (!std::setlocale(LC_ALL, name) || std::strcmp(std::localeconv()->decimal_point, ","))) {
        std::fprintf(stderr, "the decimal-comma locale %s is not installed\n", name);
        return 1;
    }
    return RUN_ALL_TESTS();
}
