#pragma once
// The Reports menu's screens of options ("Meets", "Time Standards", "Meet Results",
// "Meet Entries"); each turns its choices into a ReportRequest and opens the preview.

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>

#include "core/AppState.h"
#include "reports/ReportFrame.h"

namespace kvlr {

class MainWindow;

// frmRptMeet: the options a kind reads, and only those.
class frmRptMeet final : public QDialog {
  Q_OBJECT
 public:
  // `kind` is "meets", "standards", "meet-results" or "meet-entries".
  frmRptMeet(AppState& state, std::string kind, QWidget* parent = nullptr);

  // The request of the current choices.
  ReportRequest Request() const;
  // Runs the report into the preview; the screen stays for another run.
  void Preview();
  // Opens frmRptSaveCustom on the current settings (meet results and entries only).
  void Memorize();

 private:
  AppState& state_;
  std::string kind_;
  QComboBox* meet_ = nullptr;
  QComboBox* swimmer_ = nullptr;
  QComboBox* course_ = nullptr;
  QComboBox* sex_ = nullptr;
  QComboBox* standard_ = nullptr;
  QComboBox* splits_ = nullptr;
  QComboBox* type_ = nullptr;
  QCheckBox* use_since_ = nullptr;
  QCheckBox* use_until_ = nullptr;
  QDateEdit* since_ = nullptr;
  QDateEdit* until_ = nullptr;
  QComboBox* orientation_ = nullptr;
};

// The four menu reports' handlers.
void InstallReportScreens(MainWindow& window, AppState& state);

}  // namespace kvlr
