#pragma once
// frmReRank: ranks the top times of a selection (AddTRank) while it is shown, with a
// progress bar, then closes itself. The caller sets the selection before showing it.

#include <QDialog>

#include "core/AppState.h"
#include "meets/Ranking.h"

class QLabel;
class QProgressBar;

namespace kvlr {

class frmReRank final : public QDialog {
  Q_OBJECT
 public:
  explicit frmReRank(AppState& state, QWidget* parent = nullptr);

  void SetSelection(const TRankSelection& selection) { selection_ = selection; }
  // True once the ranking ran to its end; the dialog is then accepted, else rejected.
  bool Succeeded() const { return succeeded_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Run();

  AppState& state_;
  TRankSelection selection_;
  QProgressBar* progress_;
  bool started_ = false;
  bool succeeded_ = false;
};

}  // namespace kvlr
