#pragma once
// frmResults, the "Individual Results Browser": every result of the current swimmer
// (state.gAthlete), with the filters, sorts and columns of the browser, and the doors to
// the splits, the comment and the removal of a result.

#include <QDialog>

#include "core/AppState.h"
#include "meets/ResultsBrowserModel.h"
#include "meets/ResultsQuery.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLineEdit;
class QPushButton;
class QTableView;

namespace kvlr {

class frmResults final : public QDialog {
  Q_OBJECT
 public:
  explicit frmResults(AppState& state, QWidget* parent = nullptr);

  // Reads the filters from the bar, runs the query (ranking a filtered selection first when
  // "Fastest" asks for it) and fills the grid. A failure is reported as "frmResults.GetResults"
  // and leaves the grid empty.
  void GetResults();
  // Filters the grid to one event in every course.
  void ShowEvent(int16_t distance, int16_t stroke);
  // A click on a column heading.
  void HeadingClicked(int column);
  // "Last Entered First".
  void LastEnteredFirst();
  // Removes the current row after the question; the grid is filled again.
  void DeleteCurrent();
  // Opens the splits or the comment of the current row (non-modal; refills when saved).
  void OpenSplits();
  void OpenComment();
  // The graph of the current row's event in its course, with the browser's since date and
  // meet type.
  void OpenGraph();

  ResultsBrowserModel& Model() { return model_; }
  QTableView& Grid() { return *grid_; }
  const ResultFilter& Filter() const { return filter_; }
  // The row of the grid's current index, -1 when none.
  int CurrentRow() const;

 private:
  void BuildFilterBar();
  void ReadFilters();

  AppState& state_;
  ResultFilter filter_;
  ResultsBrowserModel model_;
  bool loading_ = false;

  QTableView* grid_ = nullptr;
  QComboBox* meets_ = nullptr;
  QComboBox* course_ = nullptr;
  QComboBox* stroke_ = nullptr;
  QComboBox* distance_ = nullptr;
  QComboBox* meet_type_ = nullptr;
  QCheckBox* use_since_ = nullptr;
  QDateEdit* since_ = nullptr;
  QCheckBox* fastest_ = nullptr;
  QLineEdit* fastest_n_ = nullptr;
  QCheckBox* chronological_ = nullptr;
  QCheckBox* non_lead_ = nullptr;
  QCheckBox* goals_ = nullptr;
  QCheckBox* conversion_ = nullptr;
  std::array<QPushButton*, 3> convert_to_{};  // SSRibCvt 0 = L, 1 = S, 2 = Y
  QCheckBox* standards_ = nullptr;
  QCheckBox* current_age_ = nullptr;
};

}  // namespace kvlr
