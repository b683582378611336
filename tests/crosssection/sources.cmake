# The tests of the crosssection converters.
target_sources(quelcnv_tests PRIVATE crosssection/cartomap_station_test.cpp
                                     crosssection/section_point_table_test.cpp)
