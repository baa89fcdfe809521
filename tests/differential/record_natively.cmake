# Builds the recorder for this system in BUILD and records into RECORDS.
if(NOT EXISTS "${BUILD}/CMakeCache.txt")
  execute_process(
    COMMAND "${CMAKE_COMMAND}" -S "${SOURCE}" -B "${BUILD}" -G "${GENERATOR}"
            -DCMAKE_BUILD_TYPE=Release -DQUORVAN_BUILD_TESTS=ON -DQUORVAN_BUILD_TOOL=OFF
            -DQUORVAN_BUILD_EXAMPLES=OFF COMMAND_ERROR_IS_FATAL ANY)
endif()
execute_process(
  COMMAND "${CMAKE_COMMAND}" --build "${BUILD}" --target record_call_scripts
          COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND "${BUILD}/tests/differential/record_call_scripts" "${RECORDS}" COMMAND_ERROR_IS_FATAL
                                                                             ANY)
