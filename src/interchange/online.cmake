# Online result files (.psn, scrambled .txt), event files (.nvv) and unpacking zips.
target_sources(kvlr_interchange PRIVATE
  Scramble.cpp
  PsnLines.cpp
  Psn.cpp
  UnZip.cpp
  EventFileReader.cpp
  EventFile.cpp)
