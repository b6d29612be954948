#pragma once
// The modal dialogs around frmWorkout: the header, one line, the notes, save-as, find, the
// analysis and the permutations of a set. Their checks are the workouts routines'; a dialog
// keeps its data and puts the focus on the wrong box after a message.

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableWidget>

#include "core/AppState.h"
#include "workouts/LineEdits.h"
#include "workouts/Memorized.h"
#include "workouts/WorkoutAnalysis.h"
#include "workouts/WorkoutArrays.h"
#include "workouts/WorkoutStore.h"

namespace kvlr {

// Mode 'A' add, 'E' edit, 'S' save as.
class frmWorkoutAddEdit final : public QDialog {
  Q_OBJECT
 public:
  frmWorkoutAddEdit(AppState& state, char mode, const HeaderEntry& entry, bool disable_energy,
                    bool disable_stroke, QWidget* parent = nullptr);
  HeaderEntry Entry() const;
  bool DisableEnergy() const { return energy_->isChecked(); }
  bool DisableStroke() const { return stroke_->isChecked(); }
  void accept() override;  // the checks, then the row is written
  int32_t WrittenPtr() const { return written_; }
  void SetSource(int32_t source) { source_ = source; }  // save-as copies its lines

 private:
  AppState& state_;
  char mode_;
  HeaderEntry entry_;
  int32_t written_ = 0, source_ = 0;
  QSpinBox* number_;
  QDateEdit* date_;
  QLineEdit* start_;
  QLineEdit* rest_;
  QRadioButton* yards_;
  QRadioButton* meters_;
  QCheckBox* energy_;
  QCheckBox* stroke_;
};

// Mode 'S' set, 'C' circuit line, 'N' note.
class frmWorkoutLineAddEdit final : public QDialog {
  Q_OBJECT
 public:
  struct Setup {
    char mode = 'S';
    QString title;
    SetValues values;
    int16_t circuit_reps = 0;
    bool circuit_reps_on = false;
    bool disable_energy = false, disable_stroke = false;
  };
  frmWorkoutLineAddEdit(const Setup& setup, const EnergyArray& energy,
                        const std::vector<WorkStrokeEntry>& work_stroke,
                        const std::vector<std::string>& descriptions, UserIo& io,
                        QWidget* parent = nullptr);
  SetValues Values() const;
  int16_t CircuitReps() const { return static_cast<int16_t>(circuit_reps_->text().toInt()); }
  std::string Note() const { return note_->text().toStdString(); }
  void accept() override;

  QLineEdit* reps_;
  QLineEdit* dist_;
  QLineEdit* interval_;
  QLineEdit* circuit_reps_;
  QLineEdit* note_;
  QComboBox* desc_;
  QComboBox* energy_;
  QComboBox* type_;
  QComboBox* stroke_;

 private:
  Setup setup_;
  const std::vector<WorkStrokeEntry>& work_stroke_;
  UserIo& io_;
};

class frmWorkoutNotes final : public QDialog {
  Q_OBJECT
 public:
  frmWorkoutNotes(int32_t wk_num, const QString& text, QWidget* parent = nullptr);
  QString Text() const { return text_->toPlainText(); }

 private:
  QPlainTextEdit* text_;
};

class frmWorkoutSaveAs final : public QDialog {
  Q_OBJECT
 public:
  frmWorkoutSaveAs(int32_t from, int32_t to, QWidget* parent = nullptr);
  int32_t Number() const { return number_->value(); }
  bool Today() const { return today_->isChecked(); }

 private:
  QSpinBox* number_;
  QRadioButton* today_;
};

class frmWKSearch final : public QDialog {
  Q_OBJECT
 public:
  explicit frmWKSearch(const Date& start, QWidget* parent = nullptr);
  Date Chosen() const;

 private:
  QDateEdit* date_;
};

// The three tables of one workout in one grid.
class frmWorkoutAnalysis final : public QDialog {
  Q_OBJECT
 public:
  frmWorkoutAnalysis(const WorkoutAnalysis& analysis, bool meters, QWidget* parent = nullptr);
  QTableWidget* grid_;
};

class frmWorkoutPermutations final : public QDialog {
  Q_OBJECT
 public:
  frmWorkoutPermutations(int32_t reps, int32_t dist, int32_t interval, QWidget* parent = nullptr);
  // The chosen reps and interval with the rounding applied.
  std::pair<int32_t, int32_t> Chosen() const;

 private:
  std::vector<Permutation> rows_;
  QTableWidget* grid_;
  QRadioButton* down_;
  QRadioButton* up_;
};

// The libraries of memorized sets and circuits, used to insert into a workout (F10, F11) or
// kept on their own.
class frmWorkoutInsertMemSingle final : public QDialog {
  Q_OBJECT
 public:
  frmWorkoutInsertMemSingle(AppState& state, QWidget* parent = nullptr);
  std::optional<SetValues> Selected() const { return selected_; }

 private:
  void Load(int32_t current);
  void Edit(bool add);
  AppState& state_;
  std::vector<MemSet> sets_;
  std::optional<SetValues> selected_;
  QTableWidget* grid_;
};

// The title of a memorized circuit: up to 30 characters, never empty.
class frmWorkoutInsertMemCirName final : public QDialog {
  Q_OBJECT
 public:
  explicit frmWorkoutInsertMemCirName(const QString& title, QWidget* parent = nullptr);
  QString Title() const { return title_->text().trimmed(); }

  QLineEdit* title_;
};

class frmWorkoutInsertMemCircuit final : public QDialog {
  Q_OBJECT
 public:
  frmWorkoutInsertMemCircuit(AppState& state, QWidget* parent = nullptr);
  bool HasSelection() const { return chosen_; }
  std::vector<SetValues> Lines() const { return lines_; }
  int16_t Cycles() const { return static_cast<int16_t>(cycles_->value()); }

 private:
  void LoadNames(int32_t current);
  void LoadLines();
  int32_t Current() const;
  void LineStep(char step);
  AppState& state_;
  std::vector<MemCircuit> circuits_;
  std::vector<SetValues> lines_;
  bool chosen_ = false;
  QTableWidget* names_;
  QTableWidget* grid_;
  QSpinBox* cycles_;
};

// Opens the line dialog for the libraries (the caller's title and values); nullopt on Cancel.
std::optional<SetValues> AskLibraryLine(AppState& state, QWidget* parent, const QString& title,
                                        const SetValues& values, char mode = 'S');

}  // namespace kvlr
