#include "meets/MeetTypeScreens.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "meets/MeetTexts.h"
#include "meets/MeetTypeModel.h"
#include "meets/ScreenParts.h"

namespace kvlr {
namespace {

using screen::Button;
using screen::Q;

}  // namespace

frmCodMt::frmCodMt(AppState& state, const MeetType& original, QWidget* parent)
    : QDialog(parent), state_(state), original_(original.abbr) {
  setObjectName("frmCodMt");
  setWindowTitle(original.abbr.empty() ? tr("Add Meet Type") : tr("Edit Meet Type"));
  abbr_ = new QLineEdit(Q(original.abbr), this);
  abbr_->setObjectName("txtAbbr");
  abbr_->setMaxLength(3);
  desc_ = new QLineEdit(Q(original.desc), this);
  desc_->setObjectName("txtDesc");
  desc_->setMaxLength(30);
  auto* form = new QFormLayout;
  form->addRow(tr("Meet Type:"), abbr_);
  form->addRow(tr("Description:"), desc_);
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* save = buttons->addButton(tr("Save"), QDialogButtonBox::AcceptRole);
  save->setObjectName("cmdSave");
  QPushButton* cancel = buttons->addButton(QDialogButtonBox::Cancel);
  connect(save, &QPushButton::clicked, this, [this] { Save(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(buttons);
}

bool frmCodMt::Save() {
  if (!SaveMeetType(state_, original_, abbr_->text().toStdString(), desc_->text().toStdString()))
    return false;
  accept();
  return true;
}

frmCodes::frmCodes(AppState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmCodes");
  setWindowTitle(tr("Meet Types"));
  model_ = new MeetTypeModel(state_, this);
  model_->Reload();
  grid_ = new QTableView(this);
  grid_->setObjectName("grdCodes");
  grid_->setModel(model_);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid_->verticalHeader()->hide();
  grid_->horizontalHeader()->setStretchLastSection(true);
  grid_->setColumnWidth(0, 90);
  connect(grid_->horizontalHeader(), &QHeaderView::sectionClicked, this,
          [this](int column) { model_->SortByColumn(column); });
  connect(grid_, &QTableView::doubleClicked, this, [this] { Edit(); });

  QHBoxLayout* commands =
      screen::CommandBar<frmCodes>(this, {{tr("Add"), "cmdAdd", &frmCodes::Add},
                                          {tr("Edit"), "cmdEdit", &frmCodes::Edit},
                                          {tr("Delete"), "cmdDelete", &frmCodes::Delete},
                                          {tr("Help"), "cmdHelp", &frmCodes::Help}});

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(commands);
  layout->addWidget(grid_);
  resize(420, 320);
}

const MeetType* frmCodes::Current() const {
  return model_->TypeAt(grid_->currentIndex().row());
}

void frmCodes::OpenCard(const MeetType& original) {
  auto* card = new frmCodMt(state_, original, this);
  card->setAttribute(Qt::WA_DeleteOnClose);
  connect(card, &QDialog::accepted, this, [this, card] {
    const std::string abbr = card->AbbrBox()->text().trimmed().toStdString();
    model_->Reload();
    const int row = model_->RowOf(abbr);
    if (row >= 0) grid_->setCurrentIndex(model_->index(row, 0));
  });
  card->open();
}

void frmCodes::Add() {
  OpenCard({});
}

void frmCodes::Edit() {
  if (const MeetType* t = Current()) OpenCard(*t);
}

void frmCodes::Delete() {
  const MeetType* t = Current();
  if (!t) return;
  if (DeleteMeetType(state_, *t)) model_->Reload();
}

void frmCodes::Help() {
  state_.io->Message(meettxt::kMeetTypeHelp, box::kInformation, "");
}

}  // namespace kvlr
