# Seeds a fresh demo database and runs a scenario against it.
# Usage: cmake -DSEEDER=... -DRUNNER=... -DSCENARIO=... -DWORK_DIR=... -P run_on_demo_database.cmake
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
set(db ${WORK_DIR}/demo.pelkdb)
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
