#pragma once
// frmSplits: the splits of one result, one column per 25 of the race, a "Splits" row of
// cumulative times and a "Laps" row, shown at a step of 25, 50 or 100.

#include <array>
#include <string>

#include <QAbstractTableModel>
#include <QDialog>

#include "core/AppState.h"
#include "meets/Splits.h"

class QRadioButton;
class QTableView;

namespace kvlr {

// What the caller hands over.
struct SplitsRequest {
  int64_t result = 0;  // the split id
  int distance = 0;
  int32_t score = 0;
  int32_t split = 0;  // RESULT.SPLIT
  std::string course;
  std::string caption;
};

// The two rows over the places of a SplitSheet; edits go through SplitSheet::Edit.
class SplitsModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  SplitsModel(AppState& state, SplitSheet& sheet, QObject* parent = nullptr)
      : QAbstractTableModel(parent), state_(state), sheet_(sheet) {}

  void SetStep(int step);
  int Step() const { return step_; }

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

 private:
  AppState& state_;
  SplitSheet& sheet_;
  int step_ = 50;
};

class frmSplits final : public QDialog {
  Q_OBJECT
 public:
  frmSplits(AppState& state, const SplitsRequest& request, QWidget* parent = nullptr);

  // Changes the step (25, 50 or 100): shows and hides columns, recomputes the laps.
  void SetStep(int step);
  // "Save": writes the splits when changed and closes. False after a failure (reported as
  // "frmSplits.SaveSplits"), the screen then stays.
  bool Save();
  // "Cancel": with changes asks "Do you want to save the changes you made?"; Cancel stays.
  void CancelClicked();

  SplitsModel& Model() { return model_; }
  const SplitSheet& Sheet() const { return sheet_; }
  QTableView& Grid() { return *grid_; }

 signals:
  void saved();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void ShowStepColumns();

  AppState& state_;
  SplitsRequest request_;
  SplitSheet sheet_;
  SplitsModel model_;
  QTableView* grid_ = nullptr;
  std::array<QRadioButton*, 3> steps_{};
  bool closing_ = false;
};

}  // namespace kvlr
