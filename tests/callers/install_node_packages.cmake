# Puts the example host in JavaScript into FOLDER with the packages that it needs. Where they cannot be
# had, its tests are skipped and say so.
file(COPY "${SOURCE}/write_drawing.js" "${SOURCE}/package.json" DESTINATION "${FOLDER}")
if(NOT EXISTS "${FOLDER}/node_modules/koffi")
  execute_process(
    COMMAND "${NPM}" install --no-audit --no-fund --no-package-lock
    WORKING_DIRECTORY "${FOLDER}"
    RESULT_VARIABLE _result
    OUTPUT_VARIABLE _output
    ERROR_VARIABLE _output
    TIMEOUT 120)
  if(NOT _result EQUAL 0)
    message(STATUS "the packages of the host in JavaScript cannot be installed: ${_output}")
    file(REMOVE_RECURSE "${FOLDER}/node_modules")
  endif()
endif()
