kvlr_add_test(cli_import_test
  SOURCES ImportCliTest.cpp
  LIBS kvlr_clilib)
