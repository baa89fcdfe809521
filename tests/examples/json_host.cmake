include("${CMAKE_CURRENT_LIST_DIR}/run.cmake")

run(0 "${DRAWINGS}/beam-b12.json" beam-b12.xml)
expect_same_file(beam-b12.xml "${GOLDEN}/beam-b12.xml")

# A file that is there is replaced, not added to.
run(0 "${DRAWINGS}/slab-d2.json" beam-b12.xml)
expect_same_file(beam-b12.xml "${GOLDEN}/slab-d2.xml")

file(WRITE "${FOLDER}/wrong.json"
     [=[{"drawing": {"name": "", "version": "", "servicePack": 0, "checkSum": 0},
         "elements": [{"class": "CKtZantoLine", "Point1": [0, 0, 0], "Color": 7}]}]=])
run(1 wrong.json wrong.xml)
expect_text("${ERRORS}" "wrong.json: element 1 (CKtZantoLine) has no item \"Point2\"\n")
if(EXISTS "${FOLDER}/wrong.xml")
  message(SEND_ERROR "a drawing that cannot be written left a file")
endif()

run(1 missing.json missing.xml)
expect_text("${ERRORS}" "missing.json: cannot be opened\n")

run(1 "${DRAWINGS}/slab-d2.json" no-such-folder/slab.xml)
if(NOT ERRORS MATCHES "^no-such-folder/slab.xml: cannot be written \\(error 0x")
  message(SEND_ERROR "found: ${ERRORS}")
endif()

run(2)
