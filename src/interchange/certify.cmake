# The certification pass, file statistics and reading an import file.
target_sources(kvlr_interchange PRIVATE
  SdifCertify.cpp
  MeetFileLines.cpp
  ImportPrepare.cpp)
