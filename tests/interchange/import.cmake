# tests of the import of results
kvlr_add_test(import_test
  SOURCES ImportTest.cpp
  LIBS kvlr_interchange kvlr_athletes)
