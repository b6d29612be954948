# tests of the online result files, event files and unzipping
kvlr_add_test(online_test
  SOURCES EventFileTest.cpp PsnTest.cpp
  LIBS kvlr_interchange kvlr_athletes)
