# tests of the online result files, event files, zips and the choice of an import file
kvlr_add_test(online_test
  SOURCES EventFileTest.cpp
  LIBS kvlr_interchange kvlr_athletes)
