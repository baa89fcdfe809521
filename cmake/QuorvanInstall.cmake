# Install rules: library, public headers, package description for find_package and pkg-config.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/Quorvan")

install(
  TARGETS quorvan
  EXPORT QuorvanTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT library
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT library NAMELINK_COMPONENT development
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
  FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development
  FILE_SET generated DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development)
install(
  EXPORT QuorvanTargets
  NAMESPACE quorvan::
  DESTINATION "${_package_dir}"
  COMPONENT development)

# A shared library hides what it is made with; whoever links a static one must find it.
set(QUORVAN_PACKAGE_DEPENDENCIES "")
set(QUORVAN_CXX_RUNTIME "")
set(QUORVAN_PC_REQUIRES_PRIVATE "")
set(QUORVAN_PC_CFLAGS "")
set(QUORVAN_PC_LIBS_PRIVATE "")
if(NOT BUILD_SHARED_LIBS)
  set(QUORVAN_PC_CFLAGS " -DQUORVAN_STATIC")
  set(QUORVAN_CXX_RUNTIME stdc++ m)
  list(TRANSFORM QUORVAN_CXX_RUNTIME PREPEND -l OUTPUT_VARIABLE _runtime)
  list(JOIN _runtime " " QUORVAN_PC_LIBS_PRIVATE)
  if(QUORVAN_DOM_BACKEND STREQUAL "embedded")
    set(QUORVAN_PACKAGE_DEPENDENCIES "include(CMakeFindDependencyMacro)\nfind_dependency(EXPAT)\n")
    set(QUORVAN_PC_REQUIRES_PRIVATE expat)
  else()
    string(APPEND QUORVAN_PC_LIBS_PRIVATE " -lole32 -loleaut32 -luuid")
  endif()
endif()

configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/QuorvanConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/QuorvanConfig.cmake"
  INSTALL_DESTINATION "${_package_dir}")
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/QuorvanConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/QuorvanConfig.cmake"
              "${PROJECT_BINARY_DIR}/QuorvanConfigVersion.cmake"
        DESTINATION "${_package_dir}"
        COMPONENT development)

# The path from the .pc file back to the prefix, so that an installed tree can be moved.
set(_pc_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH QUORVAN_PC_PREFIX "/prefix/${_pc_dir}" "/prefix")
string(REGEX REPLACE "/$" "" QUORVAN_PC_PREFIX "${QUORVAN_PC_PREFIX}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/quorvan.pc.in" "${PROJECT_BINARY_DIR}/quorvan.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/quorvan.pc" DESTINATION "${_pc_dir}" COMPONENT development)

install(FILES "${PROJECT_SOURCE_DIR}/README.md" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
        COMPONENT development)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" "${PROJECT_SOURCE_DIR}/examples"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}"
        COMPONENT development)

# Linkers of the other family read another kind of import library, made from the same definition.
if(MINGW AND BUILD_SHARED_LIBS AND EXISTS "${QUORVAN_EXPORTS_FILE}")
  find_program(QUORVAN_LLVM_DLLTOOL llvm-dlltool)
  if(QUORVAN_LLVM_DLLTOOL)
    set(_definition "$<TARGET_PROPERTY:quorvan,BINARY_DIR>/quorvan.def")
    set(_import_library "${PROJECT_BINARY_DIR}/quorvan/quorvan.lib")
    add_custom_command(
      OUTPUT "${_import_library}"
      COMMAND "${QUORVAN_LLVM_DLLTOOL}" -m i386:x86-64 -d "${_definition}" -D quorvan.dll -l
              "${_import_library}"
      DEPENDS "${_definition}"
      VERBATIM)
    add_custom_target(quorvan_import_library ALL DEPENDS "${_import_library}")
    install(FILES "${_import_library}" DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
  else()
    message(WARNING "Without llvm-dlltool (Debian: llvm) there is no quorvan.lib for other linkers")
  endif()
endif()

if(QUORVAN_PACKAGE_EMBEDDED)
  include(QuorvanSecondLibrary)
endif()

if(PROJECT_IS_TOP_LEVEL)
  set(CPACK_PACKAGE_VENDOR Quorvan)
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
  set(CPACK_GENERATOR ZIP)
  if(WIN32)
    set(CPACK_SYSTEM_NAME win64)
  elseif(QUORVAN_DEBIAN_PACKAGES)
    include(QuorvanDebian)
  endif()
  include(CPack)
endif()
