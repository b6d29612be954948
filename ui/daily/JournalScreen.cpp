#include "daily/JournalScreen.h"

#include <QDateEdit>
#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

#include "core/ErrorHandler.h"
#include "daily/DailyTexts.h"
#include "daily/RowsModel.h"

namespace kvlr {

namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

}  // namespace

frmJourn::frmJourn(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmJourn");
  setWindowTitle(tr("Journal"));
  auto* layout = new QVBoxLayout(this);
  auto* tools = new QToolBar(this);
  tools->addAction(tr("Add"), this, &frmJourn::Add);
  tools->addAction(tr("Edit"), this, &frmJourn::Edit);
  tools->addAction(tr("Delete"), this, &frmJourn::Delete);
  tools->addAction(Q(dailytext::kExitForm), this, &QDialog::reject);
  layout->addWidget(tools);
  model_ = new RowsModel({"Date", "Subject", "Comment"}, this);
  grid_ = new QTableView(this);
  grid_->setObjectName("TDBGJournal");
  grid_->setModel(model_);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->horizontalHeader()->setStretchLastSection(true);
  layout->addWidget(grid_, 1);
  frame_ = new QGroupBox(Q(dailytext::kJournalFrame), this);
  auto* form = new QFormLayout(frame_);
  date_ = new QDateEdit(this);
  date_->setObjectName("dtpDate");
  date_->setCalendarPopup(true);
  date_->setDateRange(QDate(1950, 1, 1), QDate(2099, 12, 31));
  subject_ = new QLineEdit(this);
  subject_->setObjectName("txtSubject");
  subject_->setMaxLength(20);
  comment_ = new QPlainTextEdit(this);
  comment_->setObjectName("txtComment");
  comment_->setMaximumHeight(90);
  auto* save = new QPushButton(tr("Save"), this);
  save->setObjectName("cmdSave");
  form->addRow(tr("Date"), date_);
  form->addRow(tr("Subject"), subject_);
  form->addRow(tr("Comment"), comment_);
  form->addRow(save);
  frame_->setEnabled(false);
  layout->addWidget(frame_);
  connect(save, &QPushButton::clicked, this, &frmJourn::Save);
  connect(grid_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
    order_ = NextJournalOrder(order_, column);
    Refresh();
  });
  resize(640, 520);
  Refresh();
}

void frmJourn::Refresh(int64_t select) {
  rows_ = RunTrapped(state_, "frmJourn.LoadJournal",
                     [&] { return ListJournal(*state_.gDb, order_); });
  std::vector<QStringList> texts;
  int at = -1;
  for (const JournalEntry& e : rows_) {
    if (e.row == select) at = static_cast<int>(texts.size());
    texts.push_back({e.date ? QString::fromStdString(JournalDateText(*e.date)) : QString(),
                     QString::fromStdString(e.subject), QString::fromStdString(e.comment)});
  }
  model_->SetRows(std::move(texts));
  if (at >= 0) grid_->selectRow(at);
}

void frmJourn::Add() {
  editing_ = 0;
  const Date today = state_.clock->Today();
  date_->setDate(QDate(today.year, today.month, today.day));
  subject_->clear();
  comment_->clear();
  frame_->setEnabled(true);
  subject_->setFocus();
}

void frmJourn::Edit() {
  const int row = grid_->currentIndex().row();
  if (rows_.empty()) {
    state_.io->Tell(dailytext::kAddJournalFirst);
    return;
  }
  const JournalEntry& e = rows_[row >= 0 ? row : 0];
  editing_ = e.row;
  if (e.date) date_->setDate(QDate(e.date->year, e.date->month, e.date->day));
  subject_->setText(QString::fromStdString(e.subject));
  comment_->setPlainText(QString::fromStdString(e.comment));
  frame_->setEnabled(true);
}

void frmJourn::Save() {
  const QDate d = date_->date();
  JournalEntry entry{editing_, d.isValid() ? std::optional<Date>(Date{d.year(), d.month(), d.day()})
                                           : std::nullopt,
                     subject_->text().trimmed().toStdString(),
                     comment_->toPlainText().toStdString()};
  const int64_t row = SaveJournal(state_, entry);
  if (row == 0) return;
  frame_->setEnabled(false);
  editing_ = 0;
  Refresh(row);
}

void frmJourn::Delete() {
  const int row = grid_->currentIndex().row();
  if (row < 0 || row >= static_cast<int>(rows_.size())) return;
  if (DeleteOneEntry(state_, rows_[row])) Refresh();
}

}  // namespace kvlr
