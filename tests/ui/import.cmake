# import screen tests
kvlr_add_test(ui_import_test
  SOURCES ImportScreenTest.cpp
  LIBS kvlr_ui)
