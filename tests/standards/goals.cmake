kvlr_add_test(goals_test
  SOURCES GoalsTest.cpp
  LIBS kvlr_meets)

find_package(Qt6 REQUIRED COMPONENTS Test)
kvlr_add_test(ui_goals_test
  SOURCES GoalsScreenTest.cpp
  LIBS kvlr_ui Qt6::Test)
