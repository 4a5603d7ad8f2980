# pelkor-edit's start-up mistakes, run headless: a --db path that does not exist, a file that
# is not a database, an IBO id that does not exist; and an archived IBO found without --view.
# Usage: cmake -DEDITOR=... -DSEEDER=... -DWORK=... -P command_line_test.cmake
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}")

function(run_editor)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${EDITOR} ${ARGN}
    RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
  set(status "${status}" PARENT_SCOPE)
  set(err "${err}" PARENT_SCOPE)
endfunction()

function(expect_failure_saying text)
  if(status EQUAL 0)
    message(FATAL_ERROR "expected a failure, got exit 0")
  endif()
  string(FIND "${err}" "${text}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "expected '${text}' on the error stream, got:\n${err}")
  endif()
endfunction()

run_editor(--db "${WORK}/mistyped.pelkdb" --screenshots "${WORK}/shots")
expect_failure_saying("The database '${WORK}/mistyped.pelkdb' does not exist")
if(EXISTS "${WORK}/mistyped.pelkdb")
  message(FATAL_ERROR "a mistyped --db path created a database")
endif()

file(WRITE "${WORK}/notes.txt" "a shopping list, not a database\n")
run_editor(--db "${WORK}/notes.txt" --screenshots "${WORK}/shots")
expect_failure_saying("the file is not an IBO database")

execute_process(COMMAND ${SEEDER} seed "${WORK}/demo.pelkdb" RESULT_VARIABLE seeded OUTPUT_QUIET)
if(NOT seeded EQUAL 0)
  message(FATAL_ERROR "pelkor-db seed failed")
endif()
run_editor(--db "${WORK}/demo.pelkdb" --ibo 424242 --screenshots "${WORK}/shots")
expect_failure_saying("IBO 424242 was not found in the main table of '${WORK}/demo.pelkdb'")

run_editor(--db "${WORK}/demo.pelkdb" --ibo 9001 --screenshots "${WORK}/shots")
if(NOT status EQUAL 0 OR NOT EXISTS "${WORK}/shots/ibo9001-essentials.png")
  message(FATAL_ERROR "the archived IBO 9001 was not shown without --view:\n${err}")
endif()
if(NOT err STREQUAL "")
  message(FATAL_ERROR "a headless run wrote to the error stream:\n${err}")
endif()
