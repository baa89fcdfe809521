# Cross-builds for another processor under Linux; programs are run by QEMU's user emulation. Included
# by a file that sets QUORVAN_TRIPLE and CMAKE_SYSTEM_PROCESSOR.

set(CMAKE_SYSTEM_NAME Linux)

set(CMAKE_C_COMPILER ${QUORVAN_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${QUORVAN_TRIPLE}-g++)

# Libraries of this project's own making for the processor (scripts/cross-expat) stand in front.
set(CMAKE_FIND_ROOT_PATH "${CMAKE_CURRENT_LIST_DIR}/../build/cross/${QUORVAN_TRIPLE}"
                         /usr/${QUORVAN_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${CMAKE_SYSTEM_PROCESSOR} -L /usr/${QUORVAN_TRIPLE})
