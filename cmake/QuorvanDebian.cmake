# Three Debian packages: libquorvan1, what programs run with; libquorvan-dev, what they are built
# with; quorvan, the program. What they say of each other and of other packages comes from what is in
# them. The licence is the owner's to choose: QUORVAN_LICENCE_FILE is where it goes in.

find_program(QUORVAN_GZIP gzip REQUIRED)
set(_folder "${PROJECT_BINARY_DIR}/debian")
set(_library "libquorvan${PROJECT_VERSION_MAJOR}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library development tool)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${QUORVAN_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE quorvan)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The program is linked with its own copy of the library's code, and the library's own folder holds
# what shlibs would name for it.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/quorvan")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${_library})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION
    "CAD programs hand finished reinforcement drawings to each other as XML
 files. This library writes them, element by element, and reads them back.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libquorvan-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${_library} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
    "Headers, CMake package, documents and examples for programs that write
 or read transfer files of reinforcement drawings.")
set(CPACK_DEBIAN_TOOL_PACKAGE_NAME quorvan)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOL_DESCRIPTION
    "Shows what a transfer file of a reinforcement drawing holds: draws it,
 lists and schedules its bars, checks and mends it, compares two of them.")

# The symbols of the library, all of them there since the first version, and what makes it known to
# the linker.
set(_symbols "libquorvan.so.${PROJECT_VERSION_MAJOR} ${_library} #MINVER#\n")
file(STRINGS "${QUORVAN_EXPORTS_FILE}" _lines REGEX "^[0-9]")
set(_names "")
foreach(_line IN LISTS _lines)
  if(NOT _line MATCHES " (retired|windows)" OR _line MATCHES " elf")
    string(REGEX REPLACE "^[0-9]+ ([^ ]+).*" "\\1" _name "${_line}")
    list(APPEND _names "${_name}")
  endif()
endforeach()
list(SORT _names)
foreach(_name IN LISTS _names)
  string(APPEND _symbols " ${_name}@Base 1.0.0\n")
endforeach()
file(WRITE "${_folder}/symbols" "${_symbols}")
file(WRITE "${_folder}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA "${_folder}/symbols;${_folder}/triggers")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY >=)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# What every package brings along about itself.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  string(TIMESTAMP _date "%a, %d %b %Y %H:%M:%S +0000" UTC)
else()
  set(_date "Thu, 01 Jan 1970 00:00:00 +0000")
endif()
file(
  WRITE "${_folder}/changelog.Debian"
  "quorvan (${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium\n\n"
  "  * What is new stands in changelog.gz.\n\n"
  " -- ${QUORVAN_MAINTAINER}  ${_date}\n")
configure_file("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${_folder}/changelog" COPYONLY)
foreach(_changelog changelog changelog.Debian)
  execute_process(
    COMMAND "${QUORVAN_GZIP}" -9nf "${_folder}/${_changelog}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
# Manual pages are packed.
file(
  WRITE "${_folder}/pack-manual.cmake"
  "file(GLOB_RECURSE _pages \"\${CPACK_TEMPORARY_DIRECTORY}/quorvan.1\")\n"
  "foreach(_page IN LISTS _pages)\n"
  "  execute_process(COMMAND \"${QUORVAN_GZIP}\" -9nf \"\${_page}\" COMMAND_ERROR_IS_FATAL ANY)\n"
  "endforeach()\n")
set(CPACK_PRE_BUILD_SCRIPTS "${_folder}/pack-manual.cmake")
foreach(_component library development tool)
  string(TOUPPER ${_component} _upper)
  set(_documents "${CMAKE_INSTALL_DATAROOTDIR}/doc/${CPACK_DEBIAN_${_upper}_PACKAGE_NAME}")
  install(FILES "${_folder}/changelog.gz" "${_folder}/changelog.Debian.gz"
          DESTINATION "${_documents}" COMPONENT ${_component})
  if(QUORVAN_LICENCE_FILE)
    install(FILES "${QUORVAN_LICENCE_FILE}" DESTINATION "${_documents}" RENAME copyright
            COMPONENT ${_component})
  endif()
endforeach()
