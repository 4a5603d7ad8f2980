# Runs one scenario file; it passes when the runner exits 0 and, where a FILE.out sits beside
# the scenario, prints exactly what that file holds.
# Usage: cmake -DRUNNER=... -DSCENARIO=... -P run_scenario.cmake
execute_process(COMMAND ${RUNNER} ${SCENARIO}
  WORKING_DIRECTORY ${CMAKE_CURRENT_LIST_DIR}/../scenarios
  OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${SCENARIO} exited with ${status}:\n${output}${errors}")
endif()
string(REGEX REPLACE "\\.pelk$" ".out" expected_file ${SCENARIO})
if(EXISTS ${expected_file})
  file(READ ${expected_file} expected)
  if(NOT output STREQUAL expected)
    message(FATAL_ERROR "${SCENARIO} printed:\n${output}\nbut ${expected_file} holds:\n${expected}")
  endif()
endif()
message("${output}")
