set(QUORVAN_TRIPLE s390x-linux-gnu)
set(CMAKE_SYSTEM_PROCESSOR s390x)
include("${CMAKE_CURRENT_LIST_DIR}/emulated-toolchain.cmake")
