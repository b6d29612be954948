# tests of this area
find_package(Qt6 REQUIRED COMPONENTS Test)

kvlr_add_test(meetlist_test
  SOURCES MeetsTest.cpp
  LIBS kvlr_meets)

kvlr_add_test(ui_meetlist_test
  SOURCES MeetScreensTest.cpp
  LIBS kvlr_ui Qt6::Test)
