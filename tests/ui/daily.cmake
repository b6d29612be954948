# the calendar screen
find_package(Qt6 REQUIRED COMPONENTS Test)
kvlr_add_test(ui_daily_test
  SOURCES CalendarDragTest.cpp
  LIBS kvlr_ui Qt6::Test)
