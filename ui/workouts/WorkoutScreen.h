#pragma once
// frmWorkout: the workout list above, the lines of the selected workout below, and the
// buttons, keys and drag and drop that edit those lines through the steps of LineEdits.h.

#include <functional>

#include <QAbstractTableModel>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QTableView>

#include "core/AppState.h"
#include "workouts/LineEdits.h"
#include "workouts/WorkoutArrays.h"
#include "workouts/WorkoutLines.h"
#include "workouts/WorkoutSetup.h"
#include "workouts/WorkoutStore.h"

namespace kvlr {

class WorkoutListModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit WorkoutListModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}
  void Reset(std::vector<WkHeader> rows, std::vector<WorkoutUser> users);
  const std::vector<WkHeader>& Rows() const { return rows_; }
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation o, int role) const override;

 private:
  std::vector<WkHeader> rows_;
  std::vector<WorkoutUser> users_;
};

// Columns 0..8 of the lines table; rows are dragged onto rows (a drop names the row in front
// of which the line goes).
class WorkoutLinesModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit WorkoutLinesModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}
  void Reset(WkTable rows, bool meters, int base);
  const WkTable& Rows() const { return rows_; }
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation o, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QStringList mimeTypes() const override;
  QMimeData* mimeData(const QModelIndexList& indexes) const override;
  Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
  // Emits lineDropped and declines the drop: the rows change through the store only.
  bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                    const QModelIndex& parent) override;

 signals:
  // 1-based rows: the dragged line and the row it goes in front of (n + 1 the End row).
  void lineDropped(int from, int to);

 private:
  WkTable rows_;
  bool meters_ = false;
  int base_ = 100;
};

class frmWorkout final : public QDialog {
  Q_OBJECT
 public:
  explicit frmWorkout(AppState& state, QWidget* parent = nullptr);

  // Tests answer the modal dialogs; the default runs them.
  void SetDialogRunner(std::function<int(QDialog&)> run) { run_ = std::move(run); }

  // The actions of the buttons and keys, on the current row.
  void AddWorkout();
  void EditHeader();
  void DeleteWorkoutAsked();
  void SaveAs();
  void Find();
  void AddSingle();
  void AddCircuitLineAt();
  void NewCircuitAt();
  void AddNoteAt();
  void EditLineAt();
  void DeleteLineAt();
  void Notes();
  void Analysis();
  void InsertMemSingle();
  void InsertMemCircuit();
  void MemorizeAt();
  void Permutations(int row);
  void Reports();
  // The workouts to a WorkoutExport zip in a chosen folder, as `kvlr export-workouts` does.
  void Export();
  // A workout file copied to a chosen folder.
  void CopyFile();
  // Every workout deleted after the question; memorized sets, categories and notes stay.
  void Purge();
  void MoveDropped(int from, int to);

  // Positions the list on a workout; false when it isn't listed.
  bool SelectWorkout(int32_t wk_ptr);
  void SelectLine(int row);  // 1-based
  int32_t CurrentPtr() const { return ptr_; }
  const std::vector<WkLine>& Lines() const { return lines_; }
  WorkoutListModel& ListModel() { return list_model_; }
  WorkoutLinesModel& LinesModel() { return lines_model_; }
  QTableView* LinesView() { return lines_view_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int Run(QDialog& d) { return run_ ? run_(d) : d.exec(); }
  int CurrentRow() const;  // 1-based r; 1 with no lines
  void LoadList(int32_t keep);
  void ShowWorkout();
  // Writes the edited lines, re-reads and makes `row` current.
  void Store(int row);
  bool LineDialog(char mode, const QString& title, SetValues& values, int16_t& circuit_reps,
                  bool circuit_reps_on);
  void SortBy(int column);

  AppState& state_;
  StartValues start_;
  EnergyArray energy_;
  std::vector<WorkStrokeEntry> work_stroke_;
  std::vector<std::string> descriptions_;
  std::vector<WorkoutUser> users_;
  std::string user_ = "0";
  std::string order_ = "wk_date, start_time";
  WorkoutSort sort_ = WorkoutSort::kDate;
  bool descending_[5] = {false, false, false, false, false};
  int32_t ptr_ = 0;
  std::vector<WkLine> lines_;
  std::function<int(QDialog&)> run_;
  WorkoutListModel list_model_;
  WorkoutLinesModel lines_model_;
  QComboBox* user_box_;
  QTableView* list_view_;
  QTableView* lines_view_;
  QLabel* caption_;
};

}  // namespace kvlr
