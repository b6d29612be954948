#pragma once
// `frmAthlete`: the swimmers of the database. Selecting a row makes that swimmer current;
// the toolbar adds, edits, deletes, merges and opens the recruiting card.

#include <QDialog>

#include "core/AppState.h"

class QAction;
class QTableView;

namespace kvlr {

class AthleteListModel;

class frmAthlete final : public QDialog {
  Q_OBJECT
 public:
  explicit frmAthlete(AppState& state, QWidget* parent = nullptr);

  AthleteListModel* Model() const { return model_; }
  QTableView* Grid() const { return grid_; }

  // The toolbar commands. The card, merge and recruiting screens open window-modal as
  // children of the list (found by their object names); each returns at once.
  void Add();
  void Edit();
  void Delete();
  void Merge();
  void Recruiting();

 signals:
  // The current swimmer changed (another one, a new name, or none): title and background.
  void currentAthleteChanged();

 private:
  QAction* Command(const QString& text, const QString& name, void (frmAthlete::*slot)());
  // True when there are rows; otherwise the words are told.
  bool HasRows();
  void RowChosen(const QModelIndex& current);
  void SelectCurrent();
  void Refresh();

  AppState& state_;
  AthleteListModel* model_ = nullptr;
  QTableView* grid_ = nullptr;
};

}  // namespace kvlr
