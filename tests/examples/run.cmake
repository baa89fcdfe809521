# Helpers of the scripts that try one example program each, in an empty folder of its own.

file(REMOVE_RECURSE "${FOLDER}")
file(MAKE_DIRECTORY "${FOLDER}")

# run(<exit code> <argument>...): runs the program; its output is in OUTPUT and ERRORS afterwards.
macro(run expected)
  execute_process(
    COMMAND "${PROGRAM}" ${ARGN}
    WORKING_DIRECTORY "${FOLDER}"
    RESULT_VARIABLE _result
    OUTPUT_VARIABLE OUTPUT
    ERROR_VARIABLE ERRORS)
  if(NOT _result STREQUAL "${expected}")
    message(SEND_ERROR "${ARGN}: exit code ${_result} instead of ${expected}: ${ERRORS}")
  endif()
endmacro()

function(expect_same_file name golden)
  file(SHA256 "${FOLDER}/${name}" _found)
  file(SHA256 "${golden}" _expected)
  if(NOT _found STREQUAL _expected)
    message(SEND_ERROR "${FOLDER}/${name} differs from ${golden}")
  endif()
endfunction()

function(expect_text found expected)
  if(NOT found STREQUAL expected)
    message(SEND_ERROR "found:\n${found}\nexpected:\n${expected}")
  endif()
endfunction()
