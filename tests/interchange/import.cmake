# tests of the import of results, the report mode and the NV3 athlete check
kvlr_add_test(import_test
  SOURCES ImportTest.cpp
  LIBS kvlr_interchange kvlr_athletes)
