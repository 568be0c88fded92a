# What the toolchain files for Windows share: Debian's MinGW-w64 with POSIX threads. Set MINGW_CPU
# before.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${MINGW_CPU})
set(CMAKE_C_COMPILER ${MINGW_CPU}-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER ${MINGW_CPU}-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER ${MINGW_CPU}-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${MINGW_CPU}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs and libraries carry the compiler's runtime, so nothing has to be installed beside them.
# They share Windows' own C library and with it one heap.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)

set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/wine-test")
