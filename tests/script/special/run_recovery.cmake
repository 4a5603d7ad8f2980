# Runs the crash file, then the recovery file, in one run with one database and one journal,
# and compares what the run prints with the expected output.
# Usage: cmake -DRUNNER=... -DCRASH=... -DRESTORE=... -DEXPECTED=... -DWORK_DIR=... -P run_recovery.cmake
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
execute_process(
  COMMAND ${RUNNER} --db ${WORK_DIR}/ibos.pelkdb --journal ${WORK_DIR}/journal ${CRASH} ${RESTORE}
  WORKING_DIRECTORY ${WORK_DIR}
  OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
message("${output}${errors}")
if(NOT status EQUAL 0)
  message(FATAL_ERROR "the recovery run exited with ${status}")
endif()
file(READ ${EXPECTED} expected)
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "the output differs from ${EXPECTED}")
endif()
file(GLOB left ${WORK_DIR}/journal/*)
if(left)
  message(FATAL_ERROR "changes are still kept after they were saved or given up: ${left}")
endif()
