# The tests of the crosssection converters.
target_sources(quelcnv_tests PRIVATE crosssection/sections_test.cpp)
