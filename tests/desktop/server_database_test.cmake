# pelkor-edit on a PostgreSQL database: the editor loads its PostgreSQL module at the first
# server URI, shows a deal from the server and writes its pictures.
# Usage: cmake -DEDITOR=... -DSEEDER=... -DWORK=... -DPG_CLUSTER=... -DPG_HOST=... -DPG_DATABASE=...
#        -P server_database_test.cmake
include(${CMAKE_CURRENT_LIST_DIR}/../script/pg_database.cmake)
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}")
pelk_fresh_server_database(uri)
execute_process(COMMAND ${SEEDER} seed "${uri}" RESULT_VARIABLE seeded ERROR_VARIABLE why)
if(NOT seeded EQUAL 0)
  message(FATAL_ERROR "cannot seed ${uri}: ${why}")
endif()
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen XDG_STATE_HOME=${WORK}/state
          ${EDITOR} --db "${uri}" --ibo 1001 --screenshots "${WORK}/shots"
  RESULT_VARIABLE shown OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT shown EQUAL 0 OR NOT err STREQUAL "")
  message(FATAL_ERROR "pelkor-edit on ${uri} failed (${shown}):\n${err}")
endif()
if(NOT EXISTS "${WORK}/shots/ibo1001-essentials.png")
  message(FATAL_ERROR "no picture of the server's IBO 1001:\n${out}")
endif()
