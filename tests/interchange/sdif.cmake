# tests of the SDIF and Commlink field conversions and record readers
kvlr_add_test(sdif_test
  SOURCES SdifRecordsTest.cpp
  LIBS kvlr_interchange)
