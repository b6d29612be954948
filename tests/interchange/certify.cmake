# tests of the certification pass and the opening check of an import file
kvlr_add_test(certify_test
  SOURCES
    FileMakerTest.cpp
    SdifCertifyTest.cpp
    ImportPrepareTest.cpp
  LIBS kvlr_interchange)
