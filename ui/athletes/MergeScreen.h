#pragma once
// `frmMerge`: merges one swimmer (results, entries, the rest removed) into another.

#include <QDialog>

#include "core/AppState.h"

class QComboBox;

namespace kvlr {

class frmMerge final : public QDialog {
  Q_OBJECT
 public:
  // `from` is preselected as the swimmer to merge (0: the first one).
  frmMerge(AppState& state, int32_t from, QWidget* parent = nullptr);

  QComboBox* Source() const { return from_; }
  QComboBox* Destination() const { return to_; }

  // OK: MergeAthletes with the two choices. Closes unless a check refused.
  void Run();

 signals:
  void merged(int destination);

 private:
  void FillDestinations();

  AppState& state_;
  QComboBox* from_ = nullptr;
  QComboBox* to_ = nullptr;
};

}  // namespace kvlr
