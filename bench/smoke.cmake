# cmake -DBENCH=<program> -P smoke.cmake: runs the benchmark on a tiny drawing in the current folder
# and looks at its results.
execute_process(
  COMMAND ${BENCH} --elements 400 --rounds 1 --folder . --json smoke.json
  RESULT_VARIABLE result
  OUTPUT_VARIABLE table
  ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the benchmark failed: ${result}\n${errors}")
endif()

foreach(peer IN ITEMS "limit" "quorvan" "flat reading" "pugixml" "tinyxml2" "libxml2 " "libxml2 reader"
                       "Xerces-C" "system alone" "classes")
  if(NOT table MATCHES "\n${peer}")
    message(FATAL_ERROR "no row for ${peer} in\n${table}")
  endif()
endforeach()

file(READ smoke.json json)
foreach(part IN ITEMS peers growth hiddenBars smallFiles)
  string(JSON count LENGTH "${json}" ${part})
  if(count LESS 1)
    message(FATAL_ERROR "no ${part} in\n${json}")
  endif()
endforeach()
foreach(key IN ITEMS writePeakBytes readPeakBytes fileBytes)
  string(JSON value GET "${json}" peers 1 ${key})
  if(NOT value GREATER 0)
    message(FATAL_ERROR "${key} is ${value}")
  endif()
endforeach()
foreach(processes IN ITEMS fresh warm)
  foreach(key IN ITEMS writeSeconds writeBestSeconds readSeconds readBestSeconds)
    string(JSON value GET "${json}" peers 1 ${processes} ${key})
    if(NOT value GREATER 0)
      message(FATAL_ERROR "${processes} ${key} is ${value}")
    endif()
  endforeach()
  foreach(key IN ITEMS writeSpread readSpread)
    string(JSON value GET "${json}" peers 1 ${processes} ${key})
    if(value LESS 1)
      message(FATAL_ERROR "${processes} ${key} is ${value}")
    endif()
  endforeach()
endforeach()
