# How every target of this project is compiled: one interface target that they all link.

add_library(quorvan_compile INTERFACE)
target_compile_features(quorvan_compile INTERFACE cxx_std_20)
target_include_directories(quorvan_compile INTERFACE "${PROJECT_SOURCE_DIR}"
                                                     "${QUORVAN_GENERATED_DIR}")

if(WIN32)
  # The system's header defines macros of these names otherwise.
  target_compile_definitions(quorvan_compile INTERFACE NOMINMAX)
endif()
if(MSVC)
  target_compile_options(quorvan_compile INTERFACE /W4 /utf-8 /permissive- /Zc:__cplusplus /EHsc)
else()
  target_compile_options(
    quorvan_compile
    INTERFACE -Wall
              -Wextra
              -Wpedantic
              -Wshadow
              -Wconversion
              -Wsign-conversion
              # Clang's warns of constants too.
              $<$<CXX_COMPILER_ID:GNU>:-Wdouble-promotion>
              -Wcast-align
              -Wcast-qual
              -Wformat=2
              -Wundef
              -Wmissing-declarations
              $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast>
              $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>
              $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>
              $<$<COMPILE_LANGUAGE:CXX>:-Wextra-semi>)
endif()
if(CMAKE_UNITY_BUILD AND NOT MSVC)
  # A member of one source may have the name of a function of another that it is joined with.
  target_compile_options(quorvan_compile INTERFACE -Wno-shadow)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(
    quorvan_compile
    INTERFACE -Wduplicated-cond -Wlogical-op $<$<COMPILE_LANGUAGE:CXX>:-Wsuggest-override>
              # The compiler collects its garbage too early otherwise: a twelfth of its time.
              $<$<COMPILE_LANGUAGE:CXX>:--param=ggc-min-heapsize=262144>)
  # GCC 12 reports overlaps inside its own std::string that cannot happen (GCC bug 105651).
  if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(quorvan_compile INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
  endif()
endif()

if(MINGW)
  # What is built tells neither where nor when, so that the same sources make the same bytes; what
  # ships has no names of things inside.
  target_compile_options(quorvan_compile INTERFACE "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=."
                                                   "-ffile-prefix-map=${PROJECT_BINARY_DIR}=.")
  target_link_options(quorvan_compile INTERFACE LINKER:--no-insert-timestamp $<$<CONFIG:Release>:-s>)
endif()

if(QUORVAN_SANITIZE MATCHES address AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # As GCC says it.
  target_compile_definitions(quorvan_compile INTERFACE __SANITIZE_ADDRESS__=1)
endif()
if(QUORVAN_SANITIZE)
  target_compile_options(
    quorvan_compile INTERFACE "-fsanitize=${QUORVAN_SANITIZE}" -fno-sanitize-recover=all
                              -fno-omit-frame-pointer
              # Callers in other languages see a flat function's Booleans as bytes; so does a test.
              $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-fno-sanitize=function>)
  target_link_options(
    quorvan_compile INTERFACE "-fsanitize=${QUORVAN_SANITIZE}"
    # A program in C has to bring what the library's C++ asks of the sanitizers.
    "$<$<LINK_LANG_AND_ID:C,Clang>:-fsanitize-link-c++-runtime;-lstdc++>")
endif()
if(QUORVAN_COVERAGE)
  target_compile_options(quorvan_compile INTERFACE --coverage)
  target_link_options(quorvan_compile INTERFACE --coverage)
endif()

# Language level, warnings and visibility of a target that is part of this project.
function(quorvan_compile_settings target)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:quorvan_compile>)
  set_target_properties(
    ${target} PROPERTIES CXX_EXTENSIONS OFF C_STANDARD 99 C_EXTENSIONS OFF
                         COMPILE_WARNING_AS_ERROR ${QUORVAN_WERROR})
  if(QUORVAN_BUILD_FUZZ)
    # What libFuzzer is led by.
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()
