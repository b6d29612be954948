# Export of entries, results and best times: Commlink, NV3 and the online form in a zip.
target_sources(kvlr_interchange PRIVATE
  ExportLines.cpp
  SdifWriter.cpp
  Nv3Writer.cpp
  ExportRun.cpp)
