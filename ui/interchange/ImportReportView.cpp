#include "interchange/ImportReportView.h"

#include <algorithm>

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

#include "interchange/ImportReportModel.h"

namespace kvlr {
namespace {

QTableView* MakeGrid(ImportReportModel* model, const char* name, QWidget* parent) {
  auto* grid = new QTableView(parent);
  grid->setObjectName(name);
  grid->setModel(model);
  grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid->setAlternatingRowColors(true);
  grid->setWordWrap(false);
  grid->verticalHeader()->setVisible(false);
  grid->verticalHeader()->setDefaultSectionSize(grid->fontMetrics().height() + 6);
  grid->horizontalHeader()->setStretchLastSection(false);
  grid->resizeColumnsToContents();
  return grid;
}

}  // namespace

ImportReportView::ImportReportView(AppState& state, const std::string& title, QWidget* parent)
    : QDialog(parent),
      individual_(new ImportReportModel(state, false, this)),
      relays_(new ImportReportModel(state, true, this)),
      pages_(new QTabWidget(this)) {
  setObjectName("frmImportReport");
  setWindowTitle(QString::fromStdString(title));
  individual_->Reload();
  relays_->Reload();

  pages_->setObjectName("tabReports");
  QTableView* individual_grid = MakeGrid(individual_, "grdIndividual", pages_);
  pages_->addTab(individual_grid, "Individual");
  // The relay lines make a report of their own, as the printed reports do.
  if (relays_->rowCount() > 0) pages_->addTab(MakeGrid(relays_, "grdRelays", pages_), "Relays");
  pages_->tabBar()->setVisible(pages_->count() > 1);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  QPushButton* close = buttons->button(QDialogButtonBox::Close);
  close->setObjectName("cmdClose");
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(pages_);
  layout->addWidget(buttons);
  resize(1180, 520);
}

void ShowImportReportRows(AppState& state, QWidget* parent, const std::string& title) {
  ImportReportView view(state, title, parent);
  view.exec();
}

}  // namespace kvlr
