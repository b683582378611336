# GoogleTest for the tests. Natively, Debian's built package; in the Windows
# cross builds, the sources Debian ships in /usr/src/googletest, built here
# with the cross compiler and without this project's warning options.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(GTest REQUIRED)
  return()
endif()

set(QUELCNV_GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "GoogleTest sources")
if(NOT EXISTS ${QUELCNV_GOOGLETEST_SOURCE}/CMakeLists.txt)
  message(FATAL_ERROR "GoogleTest sources not found in ${QUELCNV_GOOGLETEST_SOURCE} "
                      "(Debian package googletest)")
endif()
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
get_directory_property(_quelcnv_options COMPILE_OPTIONS)
set_directory_properties(PROPERTIES COMPILE_OPTIONS "")
add_subdirectory(${QUELCNV_GOOGLETEST_SOURCE} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
set_directory_properties(PROPERTIES COMPILE_OPTIONS "${_quelcnv_options}")
