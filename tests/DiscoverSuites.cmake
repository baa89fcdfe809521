# One CTest test a suite, found when CTest runs. A program takes longer to start under an emulator or
# the sanitizers than most tests take, so a test case alone is not worth a run there.
#
# Included by CTest with EXECUTABLE, EMULATOR, PREFIX, PROPERTIES and LIST set: the tests are
# written into LIST, again only when the executable has changed.

if(NOT EXISTS "${EXECUTABLE}")
  add_test("${PREFIX}${EXECUTABLE}_NOT_BUILT" NOT_BUILT)
  return()
endif()

if(NOT EXISTS "${LIST}" OR "${EXECUTABLE}" IS_NEWER_THAN "${LIST}")
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
  set(_tests "")
  foreach(_line IN LISTS _lines)
    if(_line MATCHES "^([^ ]+)\\.( |$)")
      set(_suite "${CMAKE_MATCH_1}")
      set(_test "[==[${PREFIX}${_suite}]==]")
      string(APPEND _tests "add_test(${_test}${_command} [==[--gtest_filter=${_suite}.*]==])\n"
                           "set_tests_properties(${_test} PROPERTIES${_properties})\n")
    endif()
  endforeach()
  file(WRITE "${LIST}" "${_tests}")
endif()
include("${LIST}")
