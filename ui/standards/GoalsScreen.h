#pragma once
// frmGoals: the current swimmer's goals in the goal meet of one course (TDBGMtEvents:
// "Event", "Time", "Comments"). Splits, relay legs and comments are other screens, opened
// through the callbacks the caller sets; a callback not set leaves its command disabled.

#include <functional>
#include <string>
#include <vector>

#include <QAbstractTableModel>
#include <QDialog>

#include "core/AppState.h"
#include "meets/Goals.h"

class QPushButton;
class QTableView;

namespace kvlr {

class GoalGridModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column { kEvent = 0, kTime, kComments, kColumns };

  GoalGridModel(AppState& state, int32_t meet, QObject* parent = nullptr)
      : QAbstractTableModel(parent), state_(state), meet_(meet) {}

  // Reads the goals of the current swimmer again.
  void Reload();
  const std::vector<GoalRow>& Rows() const { return rows_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 signals:
  void TimeRefused(const QModelIndex& index);

 private:
  AppState& state_;
  int32_t meet_;
  std::vector<GoalRow> rows_;
};

class frmGoals final : public QDialog {
  Q_OBJECT
 public:
  // `course` is 'Y', 'S' or 'L'. Finds or makes the goal meet; when it can't be had
  // ("Problem getting Goal Meet") Ready() is false and the screen should not be shown.
  frmGoals(AppState& state, char course, QWidget* parent = nullptr);

  bool Ready() const { return meet_ != 0; }
  int32_t Meet() const { return meet_; }

  // The screens of a goal, given its RESULT key. After each the grid is read again.
  void SetOpenSplits(std::function<void(int32_t result)> open);
  void SetOpenRelayLegs(std::function<void(int32_t result)> open);
  // `heading` is "Event: ... - Time: ...".
  void SetOpenComment(std::function<void(int32_t result, const std::string& heading)> open);

  // The commands on the current row.
  void OpenSplits();
  void OpenRelayLegs();
  void AddComment();
  void OpenCalculator();
  void Print();

  GoalGridModel* Model() const { return model_; }
  QTableView* View() const { return view_; }

 private:
  const GoalRow* Current() const;
  void UpdateCommands();

  AppState& state_;
  int32_t meet_ = 0;
  GoalGridModel* model_ = nullptr;
  QTableView* view_ = nullptr;
  QPushButton* splits_ = nullptr;
  QPushButton* relay_legs_ = nullptr;
  QPushButton* comment_ = nullptr;
  std::function<void(int32_t)> open_splits_;
  std::function<void(int32_t)> open_relay_legs_;
  std::function<void(int32_t, const std::string&)> open_comment_;
};

}  // namespace kvlr
