# tests of the certification pass and the opening check of an import file
kvlr_add_test(certify_test
  SOURCES SdifCertifyTest.cpp
  LIBS kvlr_interchange)
