#include "athletes/MergeScreen.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "athletes/AthleteList.h"
#include "athletes/AthleteRemoval.h"
#include "athletes/AthleteTexts.h"
#include "athletes/AthleteWidgets.h"
#include "core/ErrorHandler.h"

namespace kvlr {

frmMerge::frmMerge(AppState& state, int32_t from, QWidget* parent)
    : QDialog(parent), state_(state) {
  setObjectName("frmMerge");
  setWindowTitle(tr("Merge Athletes"));

  from_ = new QComboBox(this);
  from_->setObjectName("cboFrom");
  to_ = new QComboBox(this);
  to_->setObjectName("cboTo");
  try {
    for (const AthleteListRow& row : ListAthletes(*state_.gDb)) {
      from_->addItem(QString("%1  (%2)").arg(Q(ListName(row)), Q(row.sex)), row.athlete);
    }
  } catch (const std::exception& e) {
    ReportError(state_, athlete_text::kMergeSource, e);
  }
  const int at = from_->findData(from);
  if (at >= 0) from_->setCurrentIndex(at);
  FillDestinations();
  connect(from_, &QComboBox::currentIndexChanged, this, &frmMerge::FillDestinations);

  auto* note = new QLabel(tr("Results and entries of the first swimmer move to the second; the "
                             "first swimmer is then removed."),
                          this);
  note->setWordWrap(true);
  auto* form = new QFormLayout;
  form->addRow(tr("Merge:"), from_);
  form->addRow(tr("Into:"), to_);

  auto* buttons = new QDialogButtonBox(this);
  auto* ok = buttons->addButton(tr("&Merge"), QDialogButtonBox::AcceptRole);
  ok->setObjectName("cmdOK");
  auto* cancel = buttons->addButton(QDialogButtonBox::Cancel);
  cancel->setObjectName("cmdCancel");
  connect(ok, &QPushButton::clicked, this, &frmMerge::Run);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(note);
  layout->addLayout(form);
  layout->addWidget(buttons);
  setMinimumWidth(420);
}

void frmMerge::FillDestinations() {
  const QVariant kept = to_->currentData();
  to_->clear();
  for (int i = 0; i < from_->count(); ++i) {
    if (i != from_->currentIndex()) to_->addItem(from_->itemText(i), from_->itemData(i));
  }
  const int at = to_->findData(kept);
  if (at >= 0) to_->setCurrentIndex(at);
}

void frmMerge::Run() {
  if (from_->currentIndex() < 0 || to_->currentIndex() < 0) return;
  const int32_t from = from_->currentData().toInt();
  const int32_t to = to_->currentData().toInt();
  switch (MergeAthletes(state_, from, to)) {
    case MergeOutcome::kMerged:
      emit merged(to);
      accept();
      break;
    case MergeOutcome::kRefused:
      break;  // another choice may do
    case MergeOutcome::kDeclined:
    case MergeOutcome::kFailed:
      reject();
      break;
  }
}

}  // namespace kvlr
