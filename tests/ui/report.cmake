# the import report grid
kvlr_add_test(ui_import_report_test
  SOURCES ImportReportViewTest.cpp
  LIBS kvlr_ui Qt6::Test)
