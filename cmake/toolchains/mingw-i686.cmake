# 32-bit Windows (the platform of the host program) with Debian's MinGW-w64.
set(QUELCNV_MINGW_TRIPLET i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
# SSE2 arithmetic, as on x86-64: the x87 unit's extended precision would
# round some results differently from the other builds.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
# 32-bit Wine cannot be installed on our machines: this build's tests are
# built but not run, and the DLL is checked statically. Where wine32 is
# installed, give its runner as CMAKE_CROSSCOMPILING_EMULATOR.
