#pragma once
// `frmHealth`: the swimmer's health records between two dates, add, edit, delete, the report
// (`frmRptHealth`) and the graph of the checked measures (`chkHealth`).

#include <optional>
#include <vector>

#include <QDialog>

#include "core/AppState.h"
#include "daily/Health.h"

class QCheckBox;
class QLineEdit;
class QRadioButton;
class QTableView;

namespace kvlr {

class RowsModel;

class frmHealth final : public QDialog {
  Q_OBJECT
 public:
  explicit frmHealth(AppState& state, QWidget* parent = nullptr);
  void Refresh();
  void Add();
  void Edit();
  void Delete();
  void Print();
  void Graph();
  RowsModel* Model() const { return model_; }

 private:
  std::optional<Date> BoxDate(QLineEdit* box) const;
  const HealthRecord* Current() const;

  AppState& state_;
  std::vector<HealthRecord> rows_;
  QLineEdit* from_;
  QLineEdit* until_;
  QTableView* grid_;
  RowsModel* model_;
  QCheckBox* chk_[4];
};

// `frmRptHealth` ("Health Reports"): which measures, "Health Since", "Health Until", the order.
class frmRptHealth final : public QDialog {
  Q_OBJECT
 public:
  explicit frmRptHealth(AppState& state, QWidget* parent = nullptr);
  HealthReportOptions Options() const;
  void Run();

 private:
  AppState& state_;
  QCheckBox* chk_[4];
  QLineEdit* since_;
  QLineEdit* until_;
  QRadioButton* descending_;
};

}  // namespace kvlr
