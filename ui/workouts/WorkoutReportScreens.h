#pragma once
// The options of the logbook ("Log Books") and of the workout statistics; each turns its
// choices into a ReportRequest and opens the preview of the report frame.

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSpinBox>

#include "core/AppState.h"
#include "reports/ReportFrame.h"

namespace kvlr {

// The users of the workouts with their marks, saved under the report's name.
class WorkoutUserChoice final : public QListWidget {
  Q_OBJECT
 public:
  WorkoutUserChoice(AppState& state, std::string report, QWidget* parent = nullptr);
  std::vector<std::string> Marked() const;
  void Save() const;

 private:
  AppState& state_;
  std::string report_;
};

class frmWorkoutRptLogBook final : public QDialog {
  Q_OBJECT
 public:
  // `number`: the workout the screen opens on (0: the whole date range).
  frmWorkoutRptLogBook(AppState& state, int32_t number, QWidget* parent = nullptr);
  ReportRequest Request() const;
  void Preview();

 private:
  AppState& state_;
  QRadioButton* by_number_;
  QDateEdit* from_date_;
  QDateEdit* to_date_;
  QSpinBox* from_number_;
  QSpinBox* to_number_;
  QCheckBox *energy_, *strokes_, *times_, *notes_, *analysis_, *stress_, *paces_, *per_page_;
  QRadioButton* selected_;
  QRadioButton* double_;
  WorkoutUserChoice* users_;
};

class frmWorkoutRptStats final : public QDialog {
  Q_OBJECT
 public:
  frmWorkoutRptStats(AppState& state, QWidget* parent = nullptr);
  ReportRequest Request() const;
  void Preview();

 private:
  AppState& state_;
  QComboBox* type_;
  QRadioButton* meters_;
  QRadioButton* minutes_;
  QLineEdit* days_;
  QDateEdit* from_;
  QDateEdit* to_;
  QRadioButton* selected_;
  WorkoutUserChoice* users_;
};

}  // namespace kvlr
