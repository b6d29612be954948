kvlr_add_test(results_test
  SOURCES
    ResultsQueryTest.cpp
    ResultsByNameTest.cpp
  LIBS kvlr_meets)

find_package(Qt6 REQUIRED COMPONENTS Test)
kvlr_add_test(ui_results_test
  SOURCES ResultScreensTest.cpp
  LIBS kvlr_ui Qt6::Test)
