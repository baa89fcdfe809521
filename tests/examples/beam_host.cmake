include("${CMAKE_CURRENT_LIST_DIR}/run.cmake")

run(0 beam-b7.xml)
expect_same_file(beam-b7.xml "${GOLDEN}/beam-b7.xml")

# A file that is there is replaced, not added to, and nothing is left beside it.
run(0 beam-b7.xml)
expect_same_file(beam-b7.xml "${GOLDEN}/beam-b7.xml")
file(GLOB _files RELATIVE "${FOLDER}" "${FOLDER}/*")
expect_text("${_files}" beam-b7.xml)

run(1 no-such-folder/beam.xml)
if(NOT ERRORS MATCHES "^no-such-folder/beam.xml: cannot be written \\(error 0x")
  message(SEND_ERROR "found: ${ERRORS}")
endif()

run(2)
