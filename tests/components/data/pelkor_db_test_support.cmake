# What the pelkor-db test scripts share: run(EXPECTED_RC ARGS...) runs TOOL and leaves its output
# in `out` and `err`; expect_match(TEXT PATTERN) fails the test when TEXT does not match.
function(run expected_rc)
  execute_process(COMMAND "${TOOL}" ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out
                  ERROR_VARIABLE err)
  if(NOT rc EQUAL expected_rc)
    message(FATAL_ERROR "pelkor-db ${ARGN}: exit ${rc}, expected ${expected_rc}\n${out}${err}")
  endif()
  set(out "${out}" PARENT_SCOPE)
  set(err "${err}" PARENT_SCOPE)
endfunction()

function(expect_match text pattern)
  if(NOT text MATCHES "${pattern}")
    message(FATAL_ERROR "expected '${pattern}' in:\n${text}")
  endif()
endfunction()
