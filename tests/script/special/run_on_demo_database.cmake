# Seeds a fresh demo database and runs a scenario against it: a file in WORK_DIR, or with PG_*
# a database of the PostgreSQL test cluster (see ../pg_database.cmake).
# Usage: cmake -DSEEDER=... -DRUNNER=... -DSCENARIO=... (-DWORK_DIR=... | -DPG_CLUSTER=...
#        -DPG_HOST=... -DPG_DATABASE=...) -P run_on_demo_database.cmake
if(DEFINED PG_HOST)
  include(${CMAKE_CURRENT_LIST_DIR}/../pg_database.cmake)
  pelk_fresh_server_database(db)
else()
  file(REMOVE_RECURSE ${WORK_DIR})
  file(MAKE_DIRECTORY ${WORK_DIR})
  set(db ${WORK_DIR}/demo.pelkdb)
endif()
execute_process(COMMAND ${SEEDER} seed ${db} RESULT_VARIABLE seeded)
if(NOT seeded EQUAL 0)
  message(FATAL_ERROR "seeding ${db} failed")
endif()
execute_process(COMMAND ${RUNNER} --db ${db} ${SCENARIO}
  OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
message("${output}${errors}")
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${SCENARIO} exited with ${status}")
endif()
