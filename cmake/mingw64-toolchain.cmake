# Cross-builds for 64-bit Windows with mingw-w64. The posix thread variant, because the other one
# has no std::mutex; linked statically, so that nothing of the compiler has to stand beside the
# library.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Libraries of this project's own making for Windows (scripts/cross-expat) stand in front.
set(CMAKE_FIND_ROOT_PATH "${CMAKE_CURRENT_LIST_DIR}/../build/cross/x86_64-w64-mingw32"
                         /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(_link_flags "-static -Wl,--dynamicbase -Wl,--nxcompat -Wl,--high-entropy-va")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${_link_flags}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${_link_flags}")

# Each build has a Wine prefix of its own, unless it is given one.
if(NOT DEFINED QUORVAN_WINEPREFIX)
  set(QUORVAN_WINEPREFIX "${CMAKE_BINARY_DIR}/wine")
endif()
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/run-under-wine"
                                  "${QUORVAN_WINEPREFIX}")
