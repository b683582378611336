# The tests of the fielddata converters.
target_sources(quelcnv_tests PRIVATE
  fielddata/ign_level_book_test.cpp
  fielddata/medrix_test.cpp
  fielddata/points_test.cpp
  fielddata/robotic_header_test.cpp)
