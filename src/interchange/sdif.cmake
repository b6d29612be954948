target_sources(kvlr_interchange PRIVATE
  MeetText.cpp
  SdifFields.cpp
  SdifRecords.cpp
  SdifRecordChecks.cpp
  Cl2CheckSum.cpp
  SdifChecks.cpp)
