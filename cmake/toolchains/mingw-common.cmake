# What both MinGW-w64 cross builds share. The posix thread model gives the
# C++ runtime its mutexes; everything it needs is linked into the binaries,
# so that they need nothing beyond what Windows has.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${QUELCNV_MINGW_TRIPLET})
set(CMAKE_C_COMPILER ${QUELCNV_MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${QUELCNV_MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${QUELCNV_MINGW_TRIPLET}-windres)
set(QUELCNV_WIDL ${QUELCNV_MINGW_TRIPLET}-widl)
set(QUELCNV_OBJDUMP ${QUELCNV_MINGW_TRIPLET}-objdump)

set(CMAKE_FIND_ROOT_PATH /usr/${QUELCNV_MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
