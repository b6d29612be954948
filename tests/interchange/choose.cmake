# tests: choose
kvlr_add_test(import_choice_test
  SOURCES ImportChoiceTest.cpp
  LIBS kvlr_interchange)
