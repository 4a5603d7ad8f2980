# pelk_add_gtest(NAME SOURCES... LIBS... [PROPERTIES...]): one GoogleTest executable registered
# with CTest; PROPERTIES are set on each of its tests (FIXTURES_REQUIRED postgres, say).
find_package(GTest REQUIRED)
include(GoogleTest)
function(pelk_add_gtest name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS;PROPERTIES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
                       ${ARG_PROPERTIES})
endfunction()
