#pragma once
// frmResNa: the results of one meet entered by swimmer. Left the active swimmers, right the
// meet's individual events for the chosen swimmer with Time, DQ and Place per round.

#include <QDialog>

#include "core/AppState.h"
#include "meets/ResultsByNameModel.h"

class QTableView;

namespace kvlr {

class frmResNa final : public QDialog {
  Q_OBJECT
 public:
  frmResNa(AppState& state, int32_t meet, QWidget* parent = nullptr);

  // Makes swimmer row `row` current: its age for this meet and its events.
  void SelectSwimmer(int row);
  // The tools: splits of the current cell, relay legs, print, the calculator.
  void OpenSplits();
  void OpenRelayLegs();
  void Print();
  void OpenCalculator();

  ResNaSwimmerModel& Swimmers() { return swimmers_; }
  ResNaEventModel& Events() { return events_; }
  QTableView& EventGrid() { return *event_grid_; }
  int16_t Age() const { return events_.Age(); }

 private:
  AppState& state_;
  int32_t meet_;
  std::string meet_name_;
  int swimmer_row_ = -1;
  ResNaSwimmerModel swimmers_;
  ResNaEventModel events_;
  QTableView* swimmer_grid_ = nullptr;
  QTableView* event_grid_ = nullptr;
};

}  // namespace kvlr
