# pelkor-db on a server: a demo file copied to the cluster and back, list through $PELKOR_DB,
# a second copy adds nothing, and a database that holds no IBOs is not listed (nor set up).
# Variables: TOOL, WORK, PG_CLUSTER, PG_HOST, PG_DATABASE.
include(${CMAKE_CURRENT_LIST_DIR}/../../script/pg_database.cmake)
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}")

include(${CMAKE_CURRENT_LIST_DIR}/pelkor_db_test_support.cmake)

pelk_fresh_server_database(server)
run(1 list "${server}")
expect_match("${err}" "it holds no IBOs yet")

run(0 seed "${WORK}/demo.db")
run(0 list "${WORK}/demo.db")
set(listed_file "${out}")
run(0 copy "${WORK}/demo.db" "${server}")
expect_match("${out}" "Copied '.*demo.db' to 'postgresql:.*': 8 main and 1 archived IBO added, 0 already there, 36 new contacts")
set(ENV{PELKOR_DB} "${server}")
run(0 list)
if(NOT out STREQUAL listed_file)
  message(FATAL_ERROR "the server lists:\n${out}\nthe file listed:\n${listed_file}")
endif()
run(0 copy "${WORK}/demo.db" "${server}")
expect_match("${out}" ": 0 main and 0 archived IBOs added, 9 already there, 0 new contacts")
run(0 copy "${server}" "${WORK}/back.db")
run(0 list "${WORK}/back.db")
if(NOT out STREQUAL listed_file)
  message(FATAL_ERROR "the copy back lists:\n${out}\nthe file listed:\n${listed_file}")
endif()
