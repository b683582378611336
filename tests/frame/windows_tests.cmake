# Tests of the Windows cross builds. The unit tests and the host program run
# under the emulator: wine64 for the x86-64 build, 32-bit Wine in the
# emulated i386 root for the i686 build (ctest --preset windows-i686-run);
# the DLL is also checked statically (ctest --preset windows-i686).
find_program(QUELCNV_OBJDUMP_PROGRAM NAMES ${QUELCNV_OBJDUMP} REQUIRED)
set(_dll_check ${CMAKE_CURRENT_SOURCE_DIR}/frame/check_windows_dll.sh)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(_dll_mode stdcall)
endif()
add_test(NAME dll_exports
         COMMAND bash ${_dll_check} ${QUELCNV_OBJDUMP_PROGRAM} $<TARGET_FILE:quelcnv>
                 ${PROJECT_SOURCE_DIR}/frame/entry_points.txt ${_dll_mode})

if(NOT CMAKE_CROSSCOMPILING_EMULATOR)
  return()
endif()

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  # Under emulation every Windows process takes seconds to start: the tests
  # of the command, which start it hundreds of times, run under wine64 only.
  add_test(NAME unit_tests COMMAND quelcnv_tests --gtest_filter=-CommandTest.*)
  # A host built by another compiler may call with the stack 4-byte aligned.
  add_test(NAME misaligned_stack
           COMMAND quelcnv_host misaligned ${PROJECT_BINARY_DIR}/quelcnv.dll samples/demo.txt
                   ${PROJECT_BINARY_DIR}/misaligned-outputs
           WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  set_tests_properties(misaligned_stack PROPERTIES
    ENVIRONMENT "QUELCNV_MESSAGES=stderr;QUELCNV_SCRATCH=${PROJECT_BINARY_DIR}/misaligned-scratch")
else()
  add_test(NAME unit_tests COMMAND quelcnv_tests)
endif()
add_test(NAME host_program COMMAND quelcnv_host check quelcnv.dll)
# No one is there to close a message box: messages go to standard error.
set_tests_properties(unit_tests host_program PROPERTIES ENVIRONMENT "QUELCNV_MESSAGES=stderr")

# The type library of the 32-bit DLL, which this 64-bit program reads
# without loading the DLL.
set(QUELCNV_WIN32_BUILD "" CACHE PATH "32-bit Windows build folder whose type library is checked")
if(QUELCNV_WIN32_BUILD)
  add_test(NAME typelib_of_32bit_dll COMMAND quelcnv_host typelib ${QUELCNV_WIN32_BUILD}/quelcnv.dll)
endif()

# The same conversions through the Linux library of the native build.
set(QUELCNV_LINUX_BUILD "" CACHE PATH "Native build folder whose outputs the DLL's must match")
if(QUELCNV_LINUX_BUILD)
  add_test(NAME same_outputs_as_linux
           COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/frame/compare_with_linux.sh
                   ${CMAKE_CROSSCOMPILING_EMULATOR} ${PROJECT_BINARY_DIR} ${QUELCNV_LINUX_BUILD}
                   samples/demo.txt ${PROJECT_BINARY_DIR}/host-outputs
           WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
endif()
