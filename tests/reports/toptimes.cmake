kvlr_add_test(toptimes_test
  SOURCES TopTimesTest.cpp
  LIBS kvlr_reports kvlr_clilib)
