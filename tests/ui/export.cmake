# export screen tests
kvlr_add_test(ui_export_test
  SOURCES ExportScreenTest.cpp
  LIBS kvlr_ui)
