# quorvan_find_header_only(<target> <folder> <header>): an imported target for a library that is
# nothing but headers, installed on the building system as <folder>/<header>. It shows that one
# folder, so that a cross-build sees nothing else of the building system. <target>_FOUND tells
# whether it is there.
function(quorvan_find_header_only target folder header)
  string(MAKE_C_IDENTIFIER "${target}" _id)
  find_path(QUORVAN_${_id}_DIR "${folder}/${header}" NO_CMAKE_FIND_ROOT_PATH
            PATHS /usr/include /usr/local/include)
  mark_as_advanced(QUORVAN_${_id}_DIR)
  set(${target}_FOUND OFF PARENT_SCOPE)
  if(QUORVAN_${_id}_DIR)
    set(_shown "${PROJECT_BINARY_DIR}/header-only/${_id}")
    file(MAKE_DIRECTORY "${_shown}")
    file(CREATE_LINK "${QUORVAN_${_id}_DIR}/${folder}" "${_shown}/${folder}" COPY_ON_ERROR SYMBOLIC)
    if(NOT TARGET ${target})
      add_library(${target} INTERFACE IMPORTED)
      target_include_directories(${target} SYSTEM INTERFACE "${_shown}")
    endif()
    set(${target}_FOUND ON PARENT_SCOPE)
  endif()
endfunction()
