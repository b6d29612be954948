# tests of the SDIF and Commlink records
kvlr_add_test(sdif_test
  SOURCES
    SdifFieldsTest.cpp
    SdifRecordsTest.cpp
    SdifChecksTest.cpp
    SdifRecordChecksTest.cpp
  LIBS kvlr_interchange)
