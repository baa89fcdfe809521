# The reference of the public headers: target `quorvan_reference` writes it to reference/html in the
# build. Whatever is public and says nothing about itself is an error.

find_program(QUORVAN_DOXYGEN doxygen)
mark_as_advanced(QUORVAN_DOXYGEN)
if(NOT QUORVAN_DOXYGEN)
  return()
endif()

get_target_property(QUORVAN_REFERENCE_HEADERS quorvan HEADER_SET)
list(JOIN QUORVAN_REFERENCE_HEADERS "\" \\\n    \"" QUORVAN_REFERENCE_HEADERS)
configure_file("${PROJECT_SOURCE_DIR}/cmake/Doxyfile.in" "${PROJECT_BINARY_DIR}/reference/Doxyfile" @ONLY)
add_custom_target(
  quorvan_reference
  COMMAND "${QUORVAN_DOXYGEN}" -q Doxyfile
  WORKING_DIRECTORY "${PROJECT_BINARY_DIR}/reference"
  COMMENT "Writing the reference to ${PROJECT_BINARY_DIR}/reference/html"
  VERBATIM)
