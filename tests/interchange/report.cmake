# tests of the report mode and the NV3 athlete check
kvlr_add_test(import_report_test
  SOURCES ImportReportTest.cpp
  LIBS kvlr_interchange)
