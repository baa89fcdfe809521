# The exported symbols are one list, quorvan/exports.txt. From it come the version script (ELF) and
# the module definition with its fixed ordinals (Windows). scripts/exports holds a built library
# against the list, and brings the list up to date after an intended change.

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${QUORVAN_EXPORTS_FILE}")

if(BUILD_SHARED_LIBS AND EXISTS "${QUORVAN_EXPORTS_FILE}")
  if(NOT WIN32)
    set(_system elf)
  elseif(QUORVAN_DOM_BACKEND STREQUAL "embedded")
    set(_system windows-embedded)
  else()
    set(_system windows)
  endif()
  set(_map "{\n  global:\n")
  set(_def "LIBRARY quorvan\nEXPORTS\n")
  set(_flat_functions "")
  file(STRINGS "${QUORVAN_EXPORTS_FILE}" _lines REGEX "^[0-9]")
  foreach(_line IN LISTS _lines)
    string(REGEX REPLACE " +" ";" _fields "${_line}")
    list(POP_FRONT _fields _ordinal _symbol)
    set(_systems "${_fields}")
    list(FILTER _systems INCLUDE REGEX "^(elf|windows|windows-embedded)$")
    if("retired" IN_LIST _fields OR (_systems AND NOT _system IN_LIST _systems))
      continue()
    endif()
    string(APPEND _map "    ${_symbol};\n")
    if(NOT _symbol MATCHES "^(_Z|quorvan)|Checked$")
      list(APPEND _flat_functions ${_symbol})
    endif()
    # Names of C++ members are those of the Itanium ABI; another compiler exports its own by
    # attribute.
    if(NOT MSVC OR NOT _symbol MATCHES "^_Z")
      string(APPEND _def "  ${_symbol} @${_ordinal}")
      if("data" IN_LIST _fields)
        string(APPEND _def " DATA")
      endif()
      string(APPEND _def "\n")
    endif()
  endforeach()
  string(APPEND _map "  local:\n    *;\n};\n")

  # Without a twin that gives a result, a flat function does not build.
  set(_twins "#include <quorvan/export/checked.h>\n\n#include <type_traits>\n\n"
             "template <class Result, class... Arguments>\n"
             "constexpr bool givesResult(Result (*)(Arguments...)) {\n"
             "  return std::is_same_v<Result, int>\;\n}\n")
  foreach(_function IN LISTS _flat_functions)
    list(APPEND _twins "static_assert(givesResult(&${_function}Checked))\;\n")
  endforeach()
  string(CONCAT _twins ${_twins})
  file(CONFIGURE OUTPUT flat_function_twins.cpp CONTENT "${_twins}" @ONLY)
  target_sources(quorvan_export PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/flat_function_twins.cpp")

  if(WIN32)
    file(CONFIGURE OUTPUT quorvan.def CONTENT "${_def}" @ONLY)
    target_sources(quorvan PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/quorvan.def")
  elseif(NOT APPLE)
    file(CONFIGURE OUTPUT quorvan.map CONTENT "${_map}" @ONLY)
    target_link_options(quorvan PRIVATE
                        "LINKER:--version-script=${CMAKE_CURRENT_BINARY_DIR}/quorvan.map")
    set_property(TARGET quorvan APPEND PROPERTY LINK_DEPENDS
                                                "${CMAKE_CURRENT_BINARY_DIR}/quorvan.map")
  endif()
endif()
