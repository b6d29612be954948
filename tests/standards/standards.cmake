kvlr_add_test(standards_logic_test
  SOURCES
    StandardsTest.cpp
    StandardEditingTest.cpp
    StandardsCsvTest.cpp
  LIBS kvlr_standards)

find_package(Qt6 REQUIRED COMPONENTS Test)
kvlr_add_test(ui_standards_screens_test
  SOURCES StandardScreensTest.cpp
  LIBS kvlr_ui Qt6::Test)
