#include "athletes/AthleteListScreen.h"

#include <QAction>
#include <QHeaderView>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

#include "athletes/AthleteCardScreen.h"
#include "athletes/AthleteList.h"
#include "athletes/AthleteListModel.h"
#include "athletes/AthleteRemoval.h"
#include "athletes/AthleteTexts.h"
#include "athletes/AthleteWidgets.h"
#include "athletes/CurrentAthlete.h"
#include "athletes/MergeScreen.h"
#include "athletes/RecruitingScreen.h"
#include "core/ErrorHandler.h"

namespace kvlr {
namespace txt = athlete_text;

frmAthlete::frmAthlete(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmAthlete");
  setWindowTitle(tr("Athletes"));
  state_.io->Progress(txt::kOpening);

  auto* toolbar = new QToolBar(this);
  toolbar->setToolButtonStyle(Qt::ToolButtonTextOnly);
  toolbar->addAction(Command(Q(txt::kAddCommand), "cmdAdd", &frmAthlete::Add));
  toolbar->addAction(Command(Q(txt::kEditCommand), "cmdEdit", &frmAthlete::Edit));
  toolbar->addAction(Command(Q(txt::kDeleteCommand), "cmdDelete", &frmAthlete::Delete));
  toolbar->addSeparator();
  toolbar->addAction(Command(tr("Merge Athletes"), "cmdMerge", &frmAthlete::Merge));
  toolbar->addAction(Command(tr("Recruiting Profile"), "cmdRecruiting", &frmAthlete::Recruiting));
  toolbar->addSeparator();
  QAction* exit = Command(Q(txt::kExitCommand), "cmdExit", nullptr);
  connect(exit, &QAction::triggered, this, &QDialog::accept);
  toolbar->addAction(exit);

  model_ = new AthleteListModel(state_, this);
  grid_ = new QTableView(this);
  grid_->setObjectName("grdAthletes");
  grid_->setModel(model_);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->verticalHeader()->hide();
  grid_->verticalHeader()->setDefaultSectionSize(grid_->fontMetrics().height() + 8);
  grid_->horizontalHeader()->setStretchLastSection(true);
  // No sort indicator at first: the list comes in its own order, by name.
  grid_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  grid_->setSortingEnabled(true);
  grid_->resizeColumnsToContents();
  connect(grid_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) { RowChosen(current); });
  connect(grid_, &QTableView::doubleClicked, this, [this] { Edit(); });
  connect(model_, &QAbstractItemModel::modelReset, this, &frmAthlete::SelectCurrent);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(toolbar);
  layout->addWidget(grid_);
  resize(760, 260);
  SelectCurrent();
}

QAction* frmAthlete::Command(const QString& text, const QString& name, void (frmAthlete::*slot)()) {
  auto* action = new QAction(text, this);
  action->setObjectName(name);
  if (slot) connect(action, &QAction::triggered, this, slot);
  return action;
}

bool frmAthlete::HasRows() {
  if (model_->rowCount() > 0) return true;
  state_.io->Tell(txt::kNoAthletes);
  return false;
}

void frmAthlete::SelectCurrent() {
  const int row = state_.gAthlete > 0 ? model_->RowOf(state_.gAthlete) : -1;
  if (row < 0) {
    grid_->selectionModel()->clearSelection();
    return;
  }
  grid_->selectionModel()->setCurrentIndex(
      model_->index(row, 1), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void frmAthlete::RowChosen(const QModelIndex& current) {
  const int32_t athlete = model_->AthleteAt(current.row());
  if (athlete == 0 || athlete == state_.gAthlete) return;
  try {
    if (!SetCurrentAthlete(state_, athlete)) return;
  } catch (const std::exception& e) {
    ReportError(state_, txt::kListSource, e);
    return;
  }
  emit currentAthleteChanged();
}

void frmAthlete::Refresh() {
  model_->Reload();
  grid_->resizeColumnsToContents();
}

void frmAthlete::Add() {
  try {
    if (!MayAddAthlete(state_)) return;
  } catch (const std::exception& e) {
    ReportError(state_, txt::kListSource, e);
    return;
  }
  auto* card = new frmAthMt(state_, 0, this);
  card->setAttribute(Qt::WA_DeleteOnClose);
  connect(card, &frmAthMt::saved, this, [this] {
    Refresh();
    emit currentAthleteChanged();
  });
  card->open();
}

void frmAthlete::Edit() {
  if (!HasRows()) return;
  const int32_t athlete = model_->AthleteAt(grid_->currentIndex().row());
  if (athlete == 0) return;
  auto* card = new frmAthMt(state_, athlete, this);
  card->setAttribute(Qt::WA_DeleteOnClose);
  if (!card->Loaded()) {
    card->deleteLater();
    Refresh();
    return;
  }
  connect(card, &frmAthMt::saved, this, [this] {
    Refresh();
    emit currentAthleteChanged();
  });
  card->open();
}

void frmAthlete::Delete() {
  if (!HasRows()) return;
  const int32_t athlete = model_->AthleteAt(grid_->currentIndex().row());
  if (athlete == 0) return;
  const bool was_current = state_.gAthlete == athlete;
  if (!DeleteOneAthlete(state_, athlete)) return;
  Refresh();
  if (was_current) emit currentAthleteChanged();
}

void frmAthlete::Merge() {
  if (!HasRows()) return;
  const int32_t from = model_->AthleteAt(grid_->currentIndex().row());
  auto* merge = new frmMerge(state_, from, this);
  merge->setAttribute(Qt::WA_DeleteOnClose);
  connect(merge, &frmMerge::merged, this, [this] {
    Refresh();
    emit currentAthleteChanged();
  });
  merge->open();
}

void frmAthlete::Recruiting() {
  if (!HasRows()) return;
  const int32_t athlete = model_->AthleteAt(grid_->currentIndex().row());
  if (athlete == 0) return;
  auto* card = new frmRecr(state_, athlete, this);
  card->setAttribute(Qt::WA_DeleteOnClose);
  if (!card->Loaded()) {
    card->deleteLater();
    return;
  }
  card->open();
}

}  // namespace kvlr
