# The exported symbols are one list, quorvan/exports.txt. From it come the version script (ELF) and
# the module definition with its fixed ordinals (Windows). scripts/exports holds a built library
# against the list, and brings the list up to date after an intended change.

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${QUORVAN_EXPORTS_FILE}")

if(BUILD_SHARED_LIBS AND EXISTS "${QUORVAN_EXPORTS_FILE}")
  if(WIN32)
    set(_not_here elf)
  else()
    set(_not_here windows)
  endif()
  set(_map "{\n  global:\n")
  set(_def "LIBRARY quorvan\nEXPORTS\n")
  file(STRINGS "${QUORVAN_EXPORTS_FILE}" _lines REGEX "^[0-9]")
  foreach(_line IN LISTS _lines)
    string(REGEX REPLACE " +" ";" _fields "${_line}")
    list(POP_FRONT _fields _ordinal _symbol)
    if("retired" IN_LIST _fields OR _not_here IN_LIST _fields)
      continue()
    endif()
    string(APPEND _map "    ${_symbol};\n")
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
