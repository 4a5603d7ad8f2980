# Runs one scenario file; it passes when the runner exits 0 and, where a FILE.out sits beside
# the scenario, prints exactly what that file holds.
# Usage: cmake -DRUNNER=... -DSCENARIO=... [-DPG_CLUSTER=... -DPG_HOST=... -DPG_DATABASE=...]
#        -P run_scenario.cmake
# With PG_*, the scenario runs on a fresh database of the PostgreSQL test cluster; messages that
# name the database are compared as if they named the in-memory one.
set(db_args)
if(DEFINED PG_HOST)
  include(${CMAKE_CURRENT_LIST_DIR}/pg_database.cmake)
  pelk_fresh_server_database(uri)
  set(db_args --db ${uri})
endif()
execute_process(COMMAND ${RUNNER} ${db_args} ${SCENARIO}
  WORKING_DIRECTORY ${CMAKE_CURRENT_LIST_DIR}/../scenarios
  OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${SCENARIO} exited with ${status}:\n${output}${errors}")
endif()
if(DEFINED PG_HOST)
  string(REPLACE "'${uri}'" "the in-memory database" output "${output}")
endif()
string(REGEX REPLACE "\\.pelk$" ".out" expected_file ${SCENARIO})
if(EXISTS ${expected_file})
  file(READ ${expected_file} expected)
  if(NOT output STREQUAL expected)
    message(FATAL_ERROR "${SCENARIO} printed:\n${output}\nbut ${expected_file} holds:\n${expected}")
  endif()
endif()
message("${output}")
