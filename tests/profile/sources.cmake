# The tests of the profile converters.
target_sources(quelcnv_tests PRIVATE)
