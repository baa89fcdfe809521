include("${CMAKE_CURRENT_LIST_DIR}/run.cmake")

run(0)
expect_same_file(lintel.xml "${GOLDEN}/lintel.xml")
