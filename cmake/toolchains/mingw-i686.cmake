# 32-bit Windows (the platform of the host program) with Debian's MinGW-w64.
set(QUELCNV_MINGW_TRIPLET i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
# SSE2 arithmetic, as on x86-64: the x87 unit's extended precision would
# round some results differently from the other builds.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
# These machines' kernel runs no 32-bit program: this build's tests run
# under Debian's 32-bit Wine in an i386 root driven by the user-mode emulator
# (scripts/win32-root makes it ready; the runner mounts the project in it).
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine32-run)
