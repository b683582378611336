# The tests of the profile converters.
target_sources(quelcnv_tests PRIVATE
  profile/cartomap_profile_test.cpp
  profile/nevo_profile_test.cpp
  profile/profile_exports_test.cpp
  profile/profile_vertex_test.cpp
  profile/ruxo_profile_test.cpp
  profile/superelevation_test.cpp
  profile/worked_example_test.cpp)
