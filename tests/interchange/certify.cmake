# tests of the certification pass and the opening check of an import file
kvlr_add_test(certify_test
  SOURCES SdifCertifyTest.cpp
  LIBS kvlr_interchange)

kvlr_add_test(check_cli_test
  SOURCES CheckCliTest.cpp
  LIBS kvlr_clilib)
target_include_directories(check_cli_test PRIVATE ${PROJECT_SOURCE_DIR}/tests/interchange)
