# The report mode of the import screen and the NV3 athlete check.
target_sources(kvlr_interchange PRIVATE
  ImportReport.cpp
  ImportReportTexts.cpp
  ImportReportRows.cpp
  Nv3AthleteCheck.cpp)
