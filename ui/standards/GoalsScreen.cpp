#include "standards/GoalsScreen.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include "reports/ReportPreview.h"
#include "standards/CalcScreen.h"

namespace kvlr {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

void GoalGridModel::Reload() {
  beginResetModel();
  rows_ = meet_ ? LoadGoals(state_, meet_, state_.gAthlete, state_.gAthleteSex)
                : std::vector<GoalRow>{};
  endResetModel();
}

int GoalGridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GoalGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant GoalGridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const GoalRow& row = rows_[static_cast<size_t>(index.row())];
  if (index.column() == kComments) {
    if (role == Qt::CheckStateRole) return row.has_comment ? Qt::Checked : Qt::Unchecked;
    return {};
  }
  if (role == Qt::TextAlignmentRole && index.column() == kTime) {
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
  return QString::fromStdString(index.column() == kEvent ? row.event_text : row.TimeText());
}

QVariant GoalGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  switch (section) {
    case kEvent:
      return Q(goaltxt::kColEvent);
    case kTime:
      return Q(goaltxt::kColTime);
    case kComments:
      return Q(goaltxt::kColComments);
    default:
      return {};
  }
}

Qt::ItemFlags GoalGridModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (index.column() == kTime) f |= Qt::ItemIsEditable;
  return f;
}

bool GoalGridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || index.row() >= rowCount() || index.column() != kTime ||
      role != Qt::EditRole) {
    return false;
  }
  GoalRow& row = rows_[static_cast<size_t>(index.row())];
  const bool stored =
      WriteGoal(state_, row, value.toString().toStdString(), state_.gAthleteAge, state_.gAthlete);
  if (!stored) emit TimeRefused(index);
  emit dataChanged(this->index(index.row(), 0), this->index(index.row(), kColumns - 1));
  return stored;
}

frmGoals::frmGoals(AppState& state, char course, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmGoals");
  setWindowTitle(Q(GoalMeetName(course)));
  meet_ = GetGoalMeet(state_, course);

  auto* swimmer = new QLabel(QString::fromStdString(state_.gAthleteName), this);
  swimmer->setObjectName("lblAthlete");
  QFont bold = swimmer->font();
  bold.setBold(true);
  swimmer->setFont(bold);

  model_ = new GoalGridModel(state_, meet_, this);
  model_->Reload();
  view_ = new QTableView(this);
  view_->setObjectName("TDBGMtEvents");
  view_->setModel(model_);
  view_->setSelectionBehavior(QAbstractItemView::SelectRows);
  view_->setSelectionMode(QAbstractItemView::SingleSelection);
  view_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                         QAbstractItemView::AnyKeyPressed);
  view_->verticalHeader()->hide();
  view_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  view_->horizontalHeader()->setSectionResizeMode(GoalGridModel::kEvent, QHeaderView::Stretch);
  view_->setColumnWidth(GoalGridModel::kTime, 110);
  view_->setColumnWidth(GoalGridModel::kComments, 90);

  auto make = [this](std::string_view text, const char* name) {
    auto* b = new QPushButton(Q(text), this);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
  };
  QPushButton* print = make("Print", "cmdPrint");
  splits_ = make(goaltxt::kSplitsCommand, "cmdSplits");
  QPushButton* calc = make(goaltxt::kCalcCommand, "cmdCalc");
  relay_legs_ = make(goaltxt::kRelayLegsCommand, "cmdRelayLegs");
  comment_ = make(goaltxt::kCommentCommand, "cmdComment");
  QPushButton* leave = make("Leave", "cmdLeave");

  auto* tools = new QHBoxLayout;
  for (QPushButton* b : {print, splits_, calc, relay_legs_, comment_}) tools->addWidget(b);
  tools->addStretch(1);
  tools->addWidget(leave);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(swimmer);
  layout->addWidget(view_, 1);
  layout->addLayout(tools);
  resize(720, 520);

  connect(print, &QPushButton::clicked, this, &frmGoals::Print);
  connect(splits_, &QPushButton::clicked, this, &frmGoals::OpenSplits);
  connect(calc, &QPushButton::clicked, this, &frmGoals::OpenCalculator);
  connect(relay_legs_, &QPushButton::clicked, this, &frmGoals::OpenRelayLegs);
  connect(comment_, &QPushButton::clicked, this, &frmGoals::AddComment);
  connect(leave, &QPushButton::clicked, this, &QDialog::accept);
  connect(model_, &GoalGridModel::TimeRefused, this, [this](const QModelIndex& index) {
    QTimer::singleShot(0, this, [this, index] {
      view_->setCurrentIndex(index);
      view_->edit(index);
    });
  });
  connect(model_, &QAbstractItemModel::dataChanged, this, &frmGoals::UpdateCommands);
  connect(view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &frmGoals::UpdateCommands);
  if (model_->rowCount() > 0) view_->selectRow(0);
  UpdateCommands();
}

void frmGoals::SetOpenSplits(std::function<void(int32_t)> open) {
  open_splits_ = std::move(open);
  UpdateCommands();
}

void frmGoals::SetOpenRelayLegs(std::function<void(int32_t)> open) {
  open_relay_legs_ = std::move(open);
  UpdateCommands();
}

void frmGoals::SetOpenComment(std::function<void(int32_t, const std::string&)> open) {
  open_comment_ = std::move(open);
  UpdateCommands();
}

const GoalRow* frmGoals::Current() const {
  const QModelIndex at = view_->currentIndex();
  if (!at.isValid() || at.row() >= model_->rowCount()) return nullptr;
  return &model_->Rows()[static_cast<size_t>(at.row())];
}

void frmGoals::UpdateCommands() {
  const GoalRow* row = Current();
  const bool has_goal = row && row->result != 0;
  splits_->setEnabled(open_splits_ && has_goal);
  relay_legs_->setEnabled(open_relay_legs_ && has_goal);
  comment_->setEnabled(open_comment_ && row);
}

void frmGoals::OpenSplits() {
  const GoalRow* row = Current();
  if (!row || row->result == 0 || !open_splits_) return;
  const int keep = view_->currentIndex().row();
  open_splits_(static_cast<int32_t>(row->result));
  model_->Reload();
  view_->selectRow(keep);
}

void frmGoals::OpenRelayLegs() {
  const GoalRow* row = Current();
  if (!row || row->result == 0 || !open_relay_legs_) return;
  const int keep = view_->currentIndex().row();
  open_relay_legs_(static_cast<int32_t>(row->result));
  model_->Reload();
  view_->selectRow(keep);
}

void frmGoals::AddComment() {
  const GoalRow* row = Current();
  if (!row || !open_comment_) return;
  const std::string heading = GoalCommentHeading(state_, *row);
  if (heading.empty()) return;
  const int keep = view_->currentIndex().row();
  open_comment_(static_cast<int32_t>(row->result), heading);
  model_->Reload();
  view_->selectRow(keep);
}

void frmGoals::OpenCalculator() {
  auto* calc = new frmCalc(this);
  calc->setAttribute(Qt::WA_DeleteOnClose);
  calc->show();
}

void frmGoals::Print() {
  ReportRequest request;
  request.meet = meet_;
  PreviewReport(state_, this, "goals", request);
}

}  // namespace kvlr
