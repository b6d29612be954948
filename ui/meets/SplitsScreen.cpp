#include "meets/SplitsScreen.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

#include "core/ErrorHandler.h"
#include "meets/ResultTexts.h"

namespace kvlr {
void SplitsModel::SetStep(int step) {
  beginResetModel();
  step_ = step;
  endResetModel();
}

int SplitsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 2;
}

int SplitsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : sheet_.Count();
}

QVariant SplitsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() > 1 || index.column() >= sheet_.Count()) return {};
  if (role != Qt::DisplayRole && role != Qt::EditRole) {
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
  }
  const int place = index.column() + 1;
  if (!SplitSheet::Visible(place, step_)) return QString();
  const SplitPlace value = index.row() == 0 ? sheet_.At(place) : sheet_.Lap(place, step_);
  return QString::fromStdString(SplitText(value));
}

QVariant SplitsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section == 0 ? "Splits" : "Laps";
  return (section + 1) * 25;
}

Qt::ItemFlags SplitsModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable;
}

bool SplitsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !index.isValid() || index.row() > 1) return false;
  const bool laps = index.row() == 1;
  const bool changed = RunTrapped(state_, "frmSplits.TDBGSplits_BeforeColUpdate", [&] {
    return sheet_.Edit(index.column() + 1, laps, value.toString().toStdString(), step_);
  });
  if (!changed) return false;
  // A split moves the laps after it.
  emit dataChanged(this->index(0, 0), this->index(1, columnCount() - 1));
  return true;
}

frmSplits::frmSplits(AppState& state, const SplitsRequest& request, QWidget* parent)
    : QDialog(parent),
      state_(state),
      request_(request),
      sheet_(request.distance, request.score),
      model_(state, sheet_, this) {
  setObjectName("frmSplits");
  setWindowTitle("Splits");
  RunTrapped(state_, "frmSplits.LoadSplitArray", [&] {
    sheet_.Load(*state_.gDb, request_.result);
    return true;
  });

  auto* caption = new QLabel(QString::fromStdString(request.caption), this);
  caption->setObjectName("lblCaption");
  auto* step_box = new QHBoxLayout;
  step_box->addWidget(new QLabel("Split distance:", this));
  const int start = StartSplitStep(request.split, request.course);
  const std::array<int, 3> steps = {25, 50, 100};
  for (size_t i = 0; i < steps.size(); ++i) {
    steps_[i] = new QRadioButton(QString::number(steps[i]), this);
    steps_[i]->setObjectName(QString("optStep%1").arg(steps[i]));
    steps_[i]->setChecked(steps[i] == start);
    const int step = steps[i];
    connect(steps_[i], &QRadioButton::toggled, this, [this, step](bool on) {
      if (on) SetStep(step);
    });
    step_box->addWidget(steps_[i]);
  }
  step_box->addStretch();

  grid_ = new QTableView(this);
  grid_->setObjectName("TDBGSplits");
  grid_->setModel(&model_);
  grid_->horizontalHeader()->setDefaultSectionSize(64);

  auto* buttons = new QDialogButtonBox(this);
  auto* save = buttons->addButton("Save", QDialogButtonBox::AcceptRole);
  auto* cancel = buttons->addButton("Cancel", QDialogButtonBox::RejectRole);
  save->setObjectName("cmdSave");
  cancel->setObjectName("cmdCancel");
  connect(save, &QPushButton::clicked, this, [this] { Save(); });
  connect(cancel, &QPushButton::clicked, this, &frmSplits::CancelClicked);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(caption);
  layout->addLayout(step_box);
  layout->addWidget(grid_);
  layout->addWidget(buttons);
  resize(720, 220);
  SetStep(start);
}

void frmSplits::SetStep(int step) {
  for (auto* option : steps_) {
    if (option && option->text().toInt() == step && !option->isChecked()) {
      const QSignalBlocker quiet(option);
      option->setChecked(true);
    }
  }
  model_.SetStep(step);
  ShowStepColumns();
}

void frmSplits::ShowStepColumns() {
  for (int i = 1; i <= sheet_.Count(); ++i) {
    grid_->setColumnHidden(i - 1, !SplitSheet::Visible(i, model_.Step()));
  }
}

bool frmSplits::Save() {
  if (sheet_.Changed()) {
    const bool written = RunTrapped(state_, "frmSplits.SaveSplits", [&] {
      sheet_.Save(*state_.gDb, request_.result);
      return true;
    });
    if (!written) return false;
    sheet_.MarkSaved();
    emit saved();
  }
  closing_ = true;
  accept();
  return true;
}

void frmSplits::CancelClicked() {
  if (sheet_.Changed()) {
    const Answer answer = state_.io->Message(kSaveSplitChanges, box::kYesNoCancel + box::kQuestion,
                                             kSaveSplitChangesTitle);
    if (answer == Answer::kCancel) return;
    if (answer == Answer::kYes) {
      Save();
      return;
    }
  }
  closing_ = true;
  reject();
}

void frmSplits::closeEvent(QCloseEvent* event) {
  if (closing_ || !sheet_.Changed()) {
    QDialog::closeEvent(event);
    return;
  }
  event->ignore();
  CancelClicked();
}

}  // namespace kvlr
