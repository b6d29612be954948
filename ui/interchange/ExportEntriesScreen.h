#pragma once
// frmExpEnt ("Export Entries"): a meet's entries to the meet host. The work is
// ExportEntries'.

#include <QDialog>

#include "core/AppState.h"
#include "interchange/ExportRun.h"

class QCheckBox;
class QComboBox;

namespace kvlr {

class ExportFolderBox;

class frmExpEnt final : public QDialog {
  Q_OBJECT
 public:
  explicit frmExpEnt(AppState& state, QWidget* parent = nullptr);
  // The options the screen stands at.
  EntryExportOptions Options() const;
  // "Export": true when the zip was written (the screen then closes).
  bool Export();

 private:
  AppState& state_;
  std::vector<ExportMeetChoice> meets_;
  QComboBox* meet_;
  QCheckBox* actual_;
  ExportFolderBox* folder_;
};

// The team labels both export screens show.
void AddTeamRows(AppState& state, class QFormLayout* form);

}  // namespace kvlr
