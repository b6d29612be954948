#pragma once
// A report on screen: Qt's print preview of the pages of the layout step (page through,
// zoom, print to the report printer) with a command to save the same pages as PDF.

#include <memory>
#include <string_view>

#include <QPrintPreviewDialog>
#include <QWidget>

#include "core/AppState.h"
#include "reports/ReportFrame.h"

namespace kvlr {

// The preview of pages already laid out; it keeps its own copy of the doc. Its printer is
// the report printer of the preferences when the machine has that one.
class ReportPreviewDialog final : public QPrintPreviewDialog {
  Q_OBJECT
 public:
  ReportPreviewDialog(AppState& state, ReportDoc doc, QWidget* parent = nullptr);

  // Writes the pages as PDF; false (the user told) when the file can't be written.
  bool SaveAsPdf(const QString& file);

 private:
  AppState& state_;
  ReportDoc doc_;
};

// Fills and lays out the kind `kind` (a name of BuiltInReports) and shows its preview,
// modal. False when there was nothing to show (the user has been told why).
bool PreviewReport(AppState& state, QWidget* parent, std::string_view kind,
                   const ReportRequest& request);

}  // namespace kvlr
