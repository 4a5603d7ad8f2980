# pelk_fresh_server_database(OUT): an empty database PG_DATABASE on the test cluster at PG_HOST
# (made by PG_CLUSTER); OUT is set to its URI.
function(pelk_fresh_server_database out)
  execute_process(COMMAND ${PG_CLUSTER} createdb ${PG_HOST} ${PG_DATABASE}
    RESULT_VARIABLE made ERROR_VARIABLE why)
  if(NOT made EQUAL 0)
    message(FATAL_ERROR "cannot create ${PG_DATABASE} on ${PG_HOST}: ${why}")
  endif()
  set(${out} "postgresql:///${PG_DATABASE}?host=${PG_HOST}&user=pelkor" PARENT_SCOPE)
endfunction()
