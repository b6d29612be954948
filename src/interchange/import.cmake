# The import of results into the open database.
target_sources(kvlr_interchange PRIVATE
  SwimmerMatch.cpp
  ImportReportTable.cpp
  ImportSession.cpp
  SdifImport.cpp
  Nv3Import.cpp
  ImportRun.cpp)
