# import screen tests
find_package(Qt6 REQUIRED COMPONENTS Test)
kvlr_add_test(ui_import_test
  SOURCES ImportScreenTest.cpp
  LIBS kvlr_ui Qt6::Test)
