#pragma once
// frmRptTopTimes ("Top Times Report") with its option groups, frmRptSaveCustom (memorize the
// settings) and frmRptCustom (the memorized reports: run, rename, remove).

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QLineEdit>
#include <QSpinBox>
#include <QTableWidget>

#include "core/AppState.h"
#include "reports/Memorized.h"
#include "reports/ReportFrame.h"

namespace kvlr {

class MainWindow;

class frmRptTopTimes final : public QDialog {
  Q_OBJECT
 public:
  explicit frmRptTopTimes(AppState& state, QWidget* parent = nullptr);

  ReportRequest Request() const;
  // The controls set from a request (a memorized report); swimmer and meet stay.
  void SetRequest(const ReportRequest& request);
  // "top-times", or "top-times-meet" with a meet chosen.
  std::string Kind() const;
  // Fills, lays out and previews; false when there was nothing (the user told).
  bool Preview();
  // Opens frmRptSaveCustom on the current settings.
  void Memorize();

 private:
  AppState& state_;
  QComboBox* swimmer_ = nullptr;
  QComboBox* meet_ = nullptr;
  QComboBox* course_ = nullptr;
  QComboBox* prelim_ = nullptr;
  QComboBox* splits_ = nullptr;
  QComboBox* stroke_ = nullptr;
  QComboBox* distance_ = nullptr;
  QCheckBox* nt_ = nullptr;
  QCheckBox* lead_off_ = nullptr;
  QComboBox* type_ = nullptr;
  QCheckBox* use_standards_ = nullptr;
  QComboBox* standards_ = nullptr;
  QButtonGroup* sort_ = nullptr;
  QCheckBox* use_since_ = nullptr;
  QDateEdit* since_ = nullptr;
  QCheckBox* use_until_ = nullptr;
  QDateEdit* until_ = nullptr;
  QCheckBox* chronological_ = nullptr;
  QButtonGroup* improve_ = nullptr;
  QCheckBox* baseline_ = nullptr;
  QSpinBox* top_n_ = nullptr;
  QCheckBox* goals_ = nullptr;
  QCheckBox* comments_ = nullptr;
  QComboBox* orientation_ = nullptr;
};

class frmRptSaveCustom final : public QDialog {
  Q_OBJECT
 public:
  frmRptSaveCustom(AppState& state, MemorizedType type, ReportRequest request,
                   QWidget* parent = nullptr);
  // OK: saves and closes, or stays with the user told why.
  void Save();

 private:
  AppState& state_;
  MemorizedType type_;
  ReportRequest request_;
  QLineEdit* name_ = nullptr;
};

class frmRptCustom final : public QDialog {
  Q_OBJECT
 public:
  explicit frmRptCustom(AppState& state, QWidget* parent = nullptr);
  // False when there is no row to show (the user told, the screen not worth opening).
  bool Load(bool by_type = false);
  void RunSelected();
  void RenameSelected();
  void RemoveSelected();

 private:
  void NameEdited(QTableWidgetItem* item);
  std::optional<MemorizedReport> Selected() const;

  AppState& state_;
  QTableWidget* grid_ = nullptr;
  std::vector<MemorizedReport> rows_;
  bool loading_ = false;
};

// The Reports menu's Top Times and Memorized Reports.
void InstallTopTimesScreens(MainWindow& window, AppState& state);

}  // namespace kvlr
