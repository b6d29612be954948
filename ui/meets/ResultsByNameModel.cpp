#include "meets/ResultsByNameModel.h"

#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"

namespace kvlr {
namespace {

constexpr int kFixedColumns = 5;
constexpr const char* kFixedHeadings[kFixedColumns] = {"Event", "Age", "Gen", "Distance", "Stroke"};

}  // namespace

void ResNaSwimmerModel::SetRows(std::vector<ResNaSwimmer> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int ResNaSwimmerModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ResNaSwimmerModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 2;
}

QVariant ResNaSwimmerModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid() || index.row() >= rowCount()) return {};
  const auto& s = rows_[static_cast<size_t>(index.row())];
  return QString::fromStdString(index.column() == 0 ? s.last : s.first);
}

QVariant ResNaSwimmerModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
  return section == 0 ? "Last" : "First";
}

ResNaEventModel::ResNaEventModel(AppState& state, int32_t meet, QObject* parent)
    : QAbstractTableModel(parent), state_(state), meet_(meet) {
  for (int i = 0; i < kFixedColumns; ++i) columns_.push_back({CellKind::kFixed, -1});
  for (size_t r = 0; r < kResultRounds.size(); ++r) {
    const int round = static_cast<int>(r);
    columns_.push_back({CellKind::kTime, round});
    columns_.push_back({CellKind::kDq, round});
    if (kResultRounds[r].has_place) columns_.push_back({CellKind::kPlace, round});
  }
}

void ResNaEventModel::SetSwimmer(int32_t athlete, int16_t age, std::vector<ResNaEvent> events) {
  beginResetModel();
  athlete_ = athlete;
  age_ = age;
  events_ = std::move(events);
  cells_.assign(events_.size(), {});
  for (int row = 0; row < static_cast<int>(events_.size()); ++row) {
    for (int round = 0; round < static_cast<int>(kResultRounds.size()); ++round) Fetch(row, round);
  }
  endResetModel();
}

void ResNaEventModel::Fetch(int row, int round) {
  const auto& event = events_[static_cast<size_t>(row)];
  cells_[static_cast<size_t>(row)][static_cast<size_t>(round)] =
      RunTrapped(state_, "frmResNa.FetchCell", [&] {
        return FetchResNaCell(*state_.gDb, meet_, athlete_, event.mt_event,
                              kResultRounds[static_cast<size_t>(round)].f_p);
      });
}

void ResNaEventModel::RowChanged(int row) {
  // Any write may re-rank or add the row: read the whole event again.
  for (int round = 0; round < static_cast<int>(kResultRounds.size()); ++round) Fetch(row, round);
  emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

int ResNaEventModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(events_.size());
}

int ResNaEventModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ResNaEventModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount()) return {};
  const auto& event = events_[static_cast<size_t>(index.row())];
  const Column& column = columns_[static_cast<size_t>(index.column())];
  if (column.kind == CellKind::kFixed) {
    if (role != Qt::DisplayRole) return {};
    switch (index.column()) {
      case 0:
        return QString::fromStdString(event.mt_ev);
      case 1:
        return QString::fromStdString(LoHiText(event.lo_hi));
      case 2:
        return QString::fromStdString(event.sex);
      case 3:
        return event.distance;
      default:
        return QString::fromStdString(StrokeText(event.stroke, ""));
    }
  }
  const ResNaCell& cell = Cell(index.row(), column.round);
  switch (column.kind) {
    case CellKind::kTime:
      if (role == Qt::DisplayRole || role == Qt::EditRole) {
        return QString::fromStdString(TimeCellText(cell, event.stroke));
      }
      if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
      return {};
    case CellKind::kDq:
      if (role == Qt::CheckStateRole) return cell.nt == 5 ? Qt::Checked : Qt::Unchecked;
      return {};
    case CellKind::kPlace:
      if (role == Qt::DisplayRole || role == Qt::EditRole) {
        return cell.exists ? QString::number(cell.place) : QString();
      }
      return {};
    case CellKind::kFixed:
      break;
  }
  return {};
}

QVariant ResNaEventModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
  if (section < 0 || section >= columnCount()) return {};
  const Column& column = columns_[static_cast<size_t>(section)];
  if (column.kind == CellKind::kFixed) return kFixedHeadings[section];
  const auto& round = kResultRounds[static_cast<size_t>(column.round)];
  const char* word = column.kind == CellKind::kTime ? "Time"
                     : column.kind == CellKind::kDq ? "DQ"
                                                    : "Place";
  return QString::fromUtf8(round.heading.data(), static_cast<qsizetype>(round.heading.size())) +
         "\n" + word;
}

Qt::ItemFlags ResNaEventModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const Qt::ItemFlags base = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
  switch (ColumnAt(index.column()).kind) {
    case CellKind::kTime:
    case CellKind::kPlace:
      return base | Qt::ItemIsEditable;
    case CellKind::kDq:
      return base | Qt::ItemIsUserCheckable;
    case CellKind::kFixed:
      break;
  }
  return base;
}

bool ResNaEventModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount()) {
    return false;
  }
  const Column& column = ColumnAt(index.column());
  if (column.kind == CellKind::kFixed) return false;
  const ResNaEvent& event = Event(index.row());
  const std::string_view f_p = kResultRounds[static_cast<size_t>(column.round)].f_p;
  switch (column.kind) {
    case CellKind::kTime: {
      if (role != Qt::EditRole) return false;
      const std::string old_text = TimeCellText(Cell(index.row(), column.round), event.stroke);
      const TimeCellEdit edit = EnterResultTime(state_, event, f_p, athlete_, age_, old_text,
                                                value.toString().toStdString());
      if (!edit.accepted) return false;
      break;
    }
    case CellKind::kDq: {
      if (role != Qt::CheckStateRole) return false;
      const bool on = value.toInt() == Qt::Checked;
      if (!UpdateResultDQ(state_, "", on, f_p, event.Rec(), age_, athlete_)) return false;
      break;
    }
    case CellKind::kPlace: {
      if (role != Qt::EditRole) return false;
      UpdateResultPlace(state_, static_cast<int16_t>(Val(value.toString().toStdString())), f_p,
                        event.Rec(), athlete_);
      break;
    }
    case CellKind::kFixed:
      return false;
  }
  RowChanged(index.row());
  return true;
}

}  // namespace kvlr
