# The tests of the profile converters; their conversions are cases of
# tests/data/profile/cases.txt.
target_sources(quelcnv_tests PRIVATE profile/profile_test.cpp profile/profile_evaluation_test.cpp)
