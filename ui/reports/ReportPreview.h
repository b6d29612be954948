#pragma once
// A report on screen: Qt's print preview of the pages of the layout step (page through,
// zoom, print to the report printer) with a command to save the same pages as PDF.

#include <string_view>

#include <QWidget>

#include "core/AppState.h"
#include "reports/ReportFrame.h"

namespace kvlr {

// Fills and lays out the kind `kind` (a name of BuiltInReports) and shows its preview,
// modal. False when there was nothing to show (the user has been told why).
bool PreviewReport(AppState& state, QWidget* parent, std::string_view kind,
                   const ReportRequest& request);

// The preview of pages already laid out.
void PreviewReportDoc(AppState& state, QWidget* parent, const ReportDoc& doc);

}  // namespace kvlr
