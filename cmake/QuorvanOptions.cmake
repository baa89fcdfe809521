# Everything about the build that can be chosen. A top-level build gives tests, tool and examples;
# a project that adds this one as a subdirectory gets the library alone, and keeps its own settings:
# nothing is cached for it but what begins with QUORVAN_.

if(PROJECT_IS_TOP_LEVEL)
  option(BUILD_SHARED_LIBS "Build the library as a shared library" ON)
elseif(NOT DEFINED BUILD_SHARED_LIBS)
  set(BUILD_SHARED_LIBS ON)
endif()
option(QUORVAN_BUILD_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(QUORVAN_BUILD_TOOL "Build the command-line program" ${PROJECT_IS_TOP_LEVEL})
option(QUORVAN_SHAPE_TEXTS "Shape the texts of PNG and PDF with pango, where it is there" ON)
option(QUORVAN_BUILD_EXAMPLES "Build the example programs" ${PROJECT_IS_TOP_LEVEL})
option(QUORVAN_BUILD_BENCH "Build the benchmark" OFF)
option(QUORVAN_BUILD_FUZZ "Link the fuzz targets with libFuzzer (needs Clang)" OFF)
option(QUORVAN_INSTALL "Generate the install rules" ${PROJECT_IS_TOP_LEVEL})
option(QUORVAN_WERROR "Treat warnings as errors" ${PROJECT_IS_TOP_LEVEL})
option(QUORVAN_JOIN_LIBRARY "Join the library's sources, too, where CMAKE_UNITY_BUILD joins sources" ON)
option(QUORVAN_DEBIAN_PACKAGES "Have CPack make Debian packages: library, development files, program" OFF)
option(QUORVAN_PACKAGE_EMBEDDED "Build the library with the embedded document for the Windows package, too" OFF)
set(QUORVAN_MAINTAINER "Quorvan <quorvan@example.org>" CACHE STRING "Who a Debian package names as its maintainer")
set(QUORVAN_LICENCE_FILE "" CACHE FILEPATH "The licence, which every Debian package then has as its copyright file")
option(QUORVAN_COVERAGE "Instrument the library for line and branch coverage" OFF)
set(QUORVAN_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize takes them")

if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  message(FATAL_ERROR "32-bit systems are not built for: the list of exported names is that of 64 bits, "
                      "where size_t is another type, and the numbers of a file are pinned for "
                      "arithmetic of 64 bits, not for the 80 bits of the i386 convention.")
endif()

# Where the XML document service comes from: the platform's own through COM, where there is one, or
# the embedded one.
if(WIN32)
  set(_default_backend service)
else()
  set(_default_backend embedded)
endif()
set(QUORVAN_DOM_BACKEND ${_default_backend} CACHE STRING "XML document service: embedded or service")
set_property(CACHE QUORVAN_DOM_BACKEND PROPERTY STRINGS embedded service)
if(NOT QUORVAN_DOM_BACKEND MATCHES "^(embedded|service)$")
  message(FATAL_ERROR "QUORVAN_DOM_BACKEND is ${QUORVAN_DOM_BACKEND}; it takes embedded or service.")
endif()
if(QUORVAN_DOM_BACKEND STREQUAL "service" AND NOT WIN32)
  message(FATAL_ERROR "QUORVAN_DOM_BACKEND=service: ${CMAKE_SYSTEM_NAME} has no such service; it "
                      "takes embedded there.")
endif()
unset(_default_backend)

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

# What the library exports; read by its build, its installation and its tests.
set(QUORVAN_EXPORTS_FILE "${PROJECT_SOURCE_DIR}/quorvan/exports.txt")

# Headers that the build makes, under the same names as those beside the sources.
set(QUORVAN_GENERATED_DIR "${PROJECT_BINARY_DIR}/include")
