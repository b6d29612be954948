#pragma once
// frmExpRes: results ("Export Results"), best times ("Export Best Times") or best times as
// proof of time ("Export Proof of Time") of the current swimmer or the whole family. The
// work is ExportResults'.

#include <QDialog>

#include "core/AppState.h"
#include "interchange/ExportRun.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;

namespace kvlr {

class ExportFolderBox;

class frmExpRes final : public QDialog {
  Q_OBJECT
 public:
  frmExpRes(AppState& state, ResultExportKind kind, QWidget* parent = nullptr);
  ResultExportOptions Options() const;
  // "Export": true when the zip was written (the screen then closes).
  bool Export();

 private:
  void ShowKind();

  AppState& state_;
  ResultExportKind kind_;
  std::vector<ExportMeetChoice> meets_;
  QLabel* heading_;
  QDateEdit* since_;
  QCheckBox* use_since_;
  QComboBox* meet_;
  QComboBox* course_;
  QCheckBox* splits_;
  QCheckBox* all_;
  QCheckBox* proof_;
  ExportFolderBox* folder_;
};

}  // namespace kvlr
