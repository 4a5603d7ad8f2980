# Runs a scenario against a database file filled with bytes that are not a database.
# Usage: cmake -DRUNNER=... -DSCENARIO=... -DWORK_DIR=... -P run_with_junk_database.cmake
file(MAKE_DIRECTORY ${WORK_DIR})
set(junk ${WORK_DIR}/junk.pelkdb)
string(REPEAT "not a database, just text that happens to sit here. " 80 junk_text)
file(WRITE ${junk} "${junk_text}")
file(SHA256 ${junk} before)
execute_process(COMMAND ${RUNNER} --db ${junk} ${SCENARIO}
  OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
message("${output}${errors}")
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${SCENARIO} exited with ${status}")
endif()
file(SHA256 ${junk} after)
if(NOT before STREQUAL after)
  message(FATAL_ERROR "the junk database file was changed")
endif()
