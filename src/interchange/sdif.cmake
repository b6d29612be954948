target_sources(kvlr_interchange PRIVATE
  SdifFields.cpp
  SdifRecords.cpp
  SdifRecordChecks.cpp
  Cl2CheckSum.cpp
  SdifChecks.cpp)
