# kvlr_add_test(NAME SOURCES a.cpp b.cpp LIBS lib1 lib2)
# One GoogleTest program registered with CTest; each test runs in a fresh temporary program home.
function(kvlr_add_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} kvlr_testsupport GTest::gtest GTest::gtest_main)
  gtest_discover_tests(${name}
    DISCOVERY_MODE PRE_TEST
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;KVLR_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
endfunction()
