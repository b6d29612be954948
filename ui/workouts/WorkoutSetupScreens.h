#pragma once
// Set-up > Workouts (start parameters, set descriptions, energy, stroke and work categories),
// File > Import > Workouts, and the install of every workout screen into the main menu.

#include <QDialog>
#include <QLineEdit>
#include <QTableWidget>

#include "core/AppState.h"
#include "workouts/WorkoutSetup.h"

namespace kvlr {

class MainWindow;

class frmWorkoutStartParam final : public QDialog {
  Q_OBJECT
 public:
  frmWorkoutStartParam(AppState& state, QWidget* parent = nullptr);
  void accept() override;

 private:
  AppState& state_;
  StartParameters p_;
  std::vector<QWidget*> boxes_;  // one per line of the file, 0..10
};

class frmWorkoutSetupEnergy final : public QDialog {
  Q_OBJECT
 public:
  frmWorkoutSetupEnergy(AppState& state, QWidget* parent = nullptr);

 private:
  void Load();
  void Edit();
  void Remove();
  AppState& state_;
  std::vector<EnergyRow> rows_;
  QTableWidget* grid_;
};

// One window for the stroke and work categories and the set descriptions.
class frmWorkoutSetupStokeCat final : public QDialog {
  Q_OBJECT
 public:
  frmWorkoutSetupStokeCat(AppState& state, CategoryKind kind, QWidget* parent = nullptr);

 private:
  void Load();
  void Edit(bool add);
  void Remove();
  AppState& state_;
  CategoryKind kind_;
  std::vector<CategoryRow> rows_;
  QTableWidget* grid_;
};

// File > Import > Workouts: a ".wk3" or a "…WorkoutExport….zip" into the open database.
void ShowImportWorkouts(AppState& state, QWidget* parent);

// The Workouts menu, the five Set-up > Workouts entries, File > Import > Workouts and the two
// workout reports.
void InstallWorkoutScreens(MainWindow& window, AppState& state);

}  // namespace kvlr
