# the rows of an import report on screen
target_sources(kvlr_ui PRIVATE
  ImportReportModel.cpp
  ImportReportView.cpp)
