# tests of the SDIF, Commlink and NV3 field conversions, check sums and record readers
kvlr_add_test(sdif_test
  SOURCES SdifRecordsTest.cpp
  LIBS kvlr_interchange)
