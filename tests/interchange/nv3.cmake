# tests of the NV3 records
kvlr_add_test(nv3_test
  SOURCES Nv3Test.cpp
  LIBS kvlr_interchange)
