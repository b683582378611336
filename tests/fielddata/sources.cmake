# The tests of the fielddata converters.
target_sources(quelcnv_tests PRIVATE)
