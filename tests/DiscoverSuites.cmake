# One CTest test a suite, found when CTest runs; one for all types that a suite is run with. A program
# takes longer to start under an emulator or the sanitizers than most tests take, so a test case
# alone is not worth a run there.
#
# Included by CTest with EXECUTABLE, EMULATOR, PREFIX, PROPERTIES and LIST set: the tests are
# written into LIST, again only when something of this has changed.

if(NOT EXISTS "${EXECUTABLE}")
  add_test("${PREFIX}${EXECUTABLE}_NOT_BUILT" NOT_BUILT)
  return()
endif()

if(NOT EXISTS "${LIST}"
   OR "${EXECUTABLE}" IS_NEWER_THAN "${LIST}"
   OR "${CMAKE_PARENT_LIST_FILE}" IS_NEWER_THAN "${LIST}"
   OR "${CMAKE_CURRENT_LIST_FILE}" IS_NEWER_THAN "${LIST}")
  execute_process(
    COMMAND ${EMULATOR} "${EXECUTABLE}" --gtest_list_tests
    OUTPUT_VARIABLE _listed
    ERROR_VARIABLE _error
    RESULT_VARIABLE _result
    TIMEOUT 300)
  if(NOT _result EQUAL 0)
    message(FATAL_ERROR "Cannot list the tests of ${EXECUTABLE} (${_result}):\n${_listed}${_error}")
  endif()

  set(_command "")
  set(_properties "")
  foreach(_argument IN LISTS EMULATOR EXECUTABLE)
    string(APPEND _command " [==[${_argument}]==]")
  endforeach()
  foreach(_argument IN LISTS PROPERTIES)
    string(APPEND _properties " [==[${_argument}]==]")
  endforeach()

  # A suite stands at the start of a line and ends with a point; its tests are indented.
  string(REGEX MATCHALL "[^\r\n]+" _lines "${_listed}")
  set(_filters "")
  foreach(_line IN LISTS _lines)
    if(_line MATCHES "^([^/ ]+/)[^ ]+\\. +# TypeParam")
      list(APPEND _filters "${CMAKE_MATCH_1}*")
    elseif(_line MATCHES "^([^ ]+)\\.( |$)")
      list(APPEND _filters "${CMAKE_MATCH_1}.*")
    endif()
  endforeach()
  list(REMOVE_DUPLICATES _filters)

  set(_tests "")
  foreach(_filter IN LISTS _filters)
    string(REGEX REPLACE "\\.\\*$" "" _name "${_filter}")
    set(_test "[==[${PREFIX}${_name}]==]")
    string(APPEND _tests "add_test(${_test}${_command} [==[--gtest_filter=${_filter}]==])\n"
                         "set_tests_properties(${_test} PROPERTIES${_properties})\n")
  endforeach()
  file(WRITE "${LIST}" "${_tests}")
endif()
include("${LIST}")
