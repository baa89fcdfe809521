include("${CMAKE_CURRENT_LIST_DIR}/run.cmake")

file(COPY "${GOLDEN}/beam-b12.xml" DESTINATION "${FOLDER}")
run(0 beam-b12.xml)
file(READ "${GOLDEN}/beam-b12.txt" _summary)
expect_text("${OUTPUT}" "beam-b12.xml\n${_summary}")
expect_same_file(beam-b12.xml "${GOLDEN}/beam-b12.xml")

run(1 missing.xml)
if(NOT ERRORS MATCHES "^missing.xml: cannot be read: ")
  message(SEND_ERROR "found: ${ERRORS}")
endif()

file(WRITE "${FOLDER}/broken.xml" "<Document>")
run(1 broken.xml)
expect_text("${ERRORS}" "broken.xml: is no transfer file, or has no elements\n")
file(READ "${FOLDER}/broken.xml" _broken)
expect_text("${_broken}" "<Document>")

run(2)
