#pragma once
// The rows of an import report (RPTISDIN) on screen: the individual lines and, when the
// file had any, the relay lines on a second page. Stands in for the printed report.

#include <string>

#include <QDialog>

#include "core/AppState.h"

class QTabWidget;

namespace kvlr {

class ImportReportModel;

class ImportReportView final : public QDialog {
  Q_OBJECT
 public:
  // Reads the rows at once; `title` is the report's title (ReportTitle of the file).
  ImportReportView(AppState& state, const std::string& title, QWidget* parent = nullptr);

  ImportReportModel* Individual() const { return individual_; }
  ImportReportModel* Relays() const { return relays_; }

 private:
  ImportReportModel* individual_;
  ImportReportModel* relays_;
  QTabWidget* pages_;
};

// Shows the rows modally.
void ShowImportReportRows(AppState& state, QWidget* parent, const std::string& title);

}  // namespace kvlr
