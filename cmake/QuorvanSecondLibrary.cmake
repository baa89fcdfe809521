# The Windows package has the library with the embedded document, too, complete in a folder of its
# own. Which document a library has is the choice of its build; so it is a build of its own.

include(ExternalProject)

set(_embedded "${PROJECT_BINARY_DIR}/embedded")
ExternalProject_Add(
  quorvan_embedded
  PREFIX "${_embedded}/steps"
  SOURCE_DIR "${PROJECT_SOURCE_DIR}"
  BINARY_DIR "${_embedded}/build"
  INSTALL_DIR "${_embedded}/installed"
  CMAKE_ARGS "-DCMAKE_TOOLCHAIN_FILE=${CMAKE_TOOLCHAIN_FILE}"
             "-DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE}"
             "-DCMAKE_INSTALL_PREFIX=<INSTALL_DIR>"
             "-DCMAKE_UNITY_BUILD=${CMAKE_UNITY_BUILD}"
             "-DCMAKE_UNITY_BUILD_BATCH_SIZE=${CMAKE_UNITY_BUILD_BATCH_SIZE}"
             "-DQUORVAN_WERROR=${QUORVAN_WERROR}"
             -DQUORVAN_DOM_BACKEND=embedded
             -DQUORVAN_BUILD_TESTS=OFF
             -DQUORVAN_BUILD_TOOL=OFF
             -DQUORVAN_BUILD_EXAMPLES=OFF
  BUILD_ALWAYS ON)

# The documents are those of the package.
install(DIRECTORY "${_embedded}/installed/" DESTINATION embedded COMPONENT library USE_SOURCE_PERMISSIONS
        PATTERN "${CMAKE_INSTALL_DATAROOTDIR}" EXCLUDE)
