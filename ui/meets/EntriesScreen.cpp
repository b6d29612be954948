#include "meets/EntriesScreen.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include "core/ErrorHandler.h"
#include "meets/EntryTexts.h"
#include "meets/Meets.h"
#include "reports/ReportPreview.h"
#include "standards/CalcScreen.h"

namespace kvlr {
namespace {

QString Q(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}


}  // namespace

int EntrySwimmerModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(swimmers_.size());
}

int EntrySwimmerModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 2;
}

QVariant EntrySwimmerModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount() || role != Qt::DisplayRole) return {};
  const EntrySwimmer& s = swimmers_[static_cast<size_t>(index.row())];
  return QString::fromStdString(index.column() == 0 ? s.last : s.first);
}

QVariant EntrySwimmerModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return section == 0 ? tr("Last") : tr("First");
}

void EntryGridModel::Load(const EntrySwimmer& swimmer) {
  beginResetModel();
  sheet_.Load(swimmer);
  endResetModel();
}

int EntryGridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(sheet_.Rows().size());
}

int EntryGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant EntryGridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const EntryRow& row = sheet_.Rows()[static_cast<size_t>(index.row())];
  const int column = index.column();
  if (role == Qt::CheckStateRole) {
    if (column == kEntered) return row.entered ? Qt::Checked : Qt::Unchecked;
    if (column == kExhib) return row.exhib ? Qt::Checked : Qt::Unchecked;
    return {};
  }
  if (role == Qt::TextAlignmentRole && (column == kBestTime || column == kCustomTime)) {
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
  switch (column) {
    case kEvent:
      return QString::fromStdString(EntryEventText(row.event));
    case kBestTime:
      return QString::fromStdString(row.best_text);
    case kCustomTime:
      return QString::fromStdString(row.CustomText());
    default:
      return {};
  }
}

QVariant EntryGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  static constexpr std::string_view kHeads[] = {entrytxt::kColEvent, entrytxt::kColEntered,
                                                entrytxt::kColBestTime, entrytxt::kColCustomTime,
                                                entrytxt::kColExhib};
  if (section < 0 || section >= kColumns) return {};
  return Q(kHeads[section]);
}

Qt::ItemFlags EntryGridModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (index.column() == kEntered || index.column() == kExhib) f |= Qt::ItemIsUserCheckable;
  if (index.column() == kCustomTime) f |= Qt::ItemIsEditable;
  return f;
}

bool EntryGridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || index.row() >= rowCount()) return false;
  const auto row = static_cast<size_t>(index.row());
  bool stored = false;
  if (role == Qt::CheckStateRole && index.column() == kEntered) {
    stored = sheet_.SetEntered(row, value.toInt() == Qt::Checked);
  } else if (role == Qt::CheckStateRole && index.column() == kExhib) {
    stored = sheet_.SetExhib(row, value.toInt() == Qt::Checked);
  } else if (role == Qt::EditRole && index.column() == kCustomTime) {
    stored = sheet_.TypeTime(row, value.toString().toStdString());
    if (!stored) emit TimeRefused(index);
  } else {
    return false;
  }
  // The row is read back whatever happened: a tick also changes the time and the mark.
  emit dataChanged(this->index(index.row(), 0), this->index(index.row(), kColumns - 1));
  return stored;
}

frmEntNa::frmEntNa(AppState& state, int32_t meet, QWidget* parent)
    : QDialog(parent), state_(state) {
  setObjectName("frmEntNa");
  setWindowTitle(Q(entrytxt::kEntriesTitle));
  state_.io->Progress(entrytxt::kOpeningEntries);

  std::optional<EntryMeet> entry_meet;
  std::vector<EntrySwimmer> swimmers;
  const bool read = RunTrapped(state_, "frmEntNa.Form_Load", [&] {
    entry_meet = ReadEntryMeet(*state_.gDb, meet);
    if (!entry_meet) return false;
    if (!HasEntryEvents(*state_.gDb, meet)) {
      state_.io->Tell(entrytxt::kNeedEventForEntries);
      return false;
    }
    swimmers = LoadEntrySwimmers(*state_.gDb);
    return true;
  });
  if (!read) entry_meet = EntryMeet{};
  sheet_ = std::make_unique<EntrySheet>(state_, *entry_meet);

  auto* heading = new QLabel(QString::fromStdString(entry_meet->name) + "   " +
                                 Q(MeetShortDate(entry_meet->start, state_.gDateOrder)),
                             this);
  heading->setObjectName("lblMeet");
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);

  swimmers_ = new EntrySwimmerModel(std::move(swimmers), this);
  swimmer_view_ = new QTableView(this);
  swimmer_view_->setObjectName("TDBGAthlete");
  swimmer_view_->setModel(swimmers_);
  swimmer_view_->setSelectionBehavior(QAbstractItemView::SelectRows);
  swimmer_view_->setSelectionMode(QAbstractItemView::SingleSelection);
  swimmer_view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  swimmer_view_->verticalHeader()->hide();
  swimmer_view_->horizontalHeader()->setStretchLastSection(true);
  swimmer_view_->setMinimumWidth(220);
  swimmer_view_->setMaximumWidth(280);

  grid_ = new EntryGridModel(*sheet_, this);
  entry_view_ = new QTableView(this);
  entry_view_->setObjectName("TDBGEntry");
  entry_view_->setModel(grid_);
  entry_view_->setSelectionBehavior(QAbstractItemView::SelectItems);
  entry_view_->setSelectionMode(QAbstractItemView::SingleSelection);
  entry_view_->setEditTriggers(QAbstractItemView::DoubleClicked |
                               QAbstractItemView::EditKeyPressed |
                               QAbstractItemView::AnyKeyPressed);
  entry_view_->verticalHeader()->hide();
  entry_view_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  entry_view_->horizontalHeader()->setSectionResizeMode(EntryGridModel::kEvent,
                                                        QHeaderView::Stretch);
  entry_view_->setMinimumWidth(560);

  swimmer_label_ = new QLabel(this);
  swimmer_label_->setObjectName("lblSwimmer");

  auto* calc = new QPushButton(Q(entrytxt::kTimeCalculator), this);
  calc->setObjectName("cmdCalc");
  auto* print = new QPushButton(tr("&Print"), this);
  print->setObjectName("cmdPrint");
  auto* help = new QPushButton(tr("&Help"), this);
  help->setObjectName("cmdHelp");
  auto* close = new QPushButton(tr("&Close"), this);
  close->setObjectName("cmdClose");
  for (QPushButton* b : {calc, print, help, close}) b->setAutoDefault(false);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(calc);
  buttons->addWidget(print);
  buttons->addWidget(help);
  buttons->addStretch(1);
  buttons->addWidget(close);

  auto* right = new QVBoxLayout;
  right->addWidget(swimmer_label_);
  right->addWidget(entry_view_, 1);
  auto* grids = new QHBoxLayout;
  grids->addWidget(swimmer_view_);
  grids->addLayout(right, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(heading);
  layout->addLayout(grids, 1);
  layout->addLayout(buttons);
  resize(920, 520);

  connect(swimmer_view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current) {
            if (current.isValid()) SelectSwimmer(current.row());
          });
  connect(grid_, &EntryGridModel::TimeRefused, this, [this](const QModelIndex& index) {
    // After the editor that held the refused text has closed.
    QTimer::singleShot(0, this, [this, index] {
      entry_view_->setCurrentIndex(index);
      entry_view_->edit(index);
    });
  });
  connect(calc, &QPushButton::clicked, this, &frmEntNa::OpenCalculator);
  connect(print, &QPushButton::clicked, this, [this] {
    ReportRequest request;
    request.meet = sheet_->Meet().meet;
    PreviewReport(state_, this, "meet-entries", request);
  });
  connect(help, &QPushButton::clicked, this,
          [this] { state_.io->Message(entrytxt::kEntriesHelp, box::kInformation, ""); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);

  ready_ = read;
  if (ready_ && swimmers_->rowCount() > 0) swimmer_view_->selectRow(0);
}

frmEntNa::~frmEntNa() {
  // The views and the grid read the sheet: they go before it.
  delete entry_view_;
  delete grid_;
}

void frmEntNa::SelectSwimmer(int row) {
  if (row < 0 || row >= swimmers_->rowCount()) return;
  const EntrySwimmer& s = swimmers_->Swimmers()[static_cast<size_t>(row)];
  swimmer_label_->setText(QString::fromStdString(s.first + " " + s.last));
  grid_->Load(s);
  entry_view_->resizeColumnsToContents();
  entry_view_->horizontalHeader()->setSectionResizeMode(EntryGridModel::kEvent,
                                                        QHeaderView::Stretch);
  if (swimmer_view_->currentIndex().row() != row) swimmer_view_->selectRow(row);
}

void frmEntNa::OpenCalculator() {
  auto* calc = new frmCalc(this);
  calc->setAttribute(Qt::WA_DeleteOnClose);
  calc->show();
}

}  // namespace kvlr
