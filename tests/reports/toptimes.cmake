kvlr_add_test(toptimes_test
  SOURCES TopTimesTest.cpp
  LIBS kvlr_reports kvlr_clilib)

kvlr_add_test(ui_toptimes_test
  SOURCES TopTimesScreenTest.cpp
  LIBS kvlr_ui)
