# The tests of the fielddata converters; their conversions are cases of
# tests/data/fielddata/cases.txt.
target_sources(quelcnv_tests PRIVATE fielddata/fielddata_test.cpp)
