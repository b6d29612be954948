#include "athletes/AthleteListModel.h"

#include "athletes/AthleteTexts.h"
#include "athletes/AthleteWidgets.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"

namespace kvlr {

AthleteListModel::AthleteListModel(AppState& state, QObject* parent)
    : QAbstractTableModel(parent), state_(state) {
  Reload();
}

void AthleteListModel::Reload() {
  beginResetModel();
  rows_.clear();
  if (state_.gDb) {
    try {
      rows_ = ListAthletes(*state_.gDb, sort_, descending_);
    } catch (const std::exception& e) {
      rows_.clear();
      ReportError(state_, athlete_text::kListSource, e);
    }
  }
  endResetModel();
}

int32_t AthleteListModel::AthleteAt(int row) const {
  return row >= 0 && row < static_cast<int>(rows_.size()) ? rows_[static_cast<size_t>(row)].athlete
                                                          : 0;
}

int AthleteListModel::RowOf(int32_t athlete) const {
  for (size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].athlete == athlete) return static_cast<int>(i);
  }
  return -1;
}

int AthleteListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int AthleteListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(kListHeaders.size());
}

QVariant AthleteListModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
    return {};
  }
  const AthleteListRow& row = rows_[static_cast<size_t>(index.row())];
  const auto column = static_cast<ListColumn>(index.column());
  if (role == Qt::CheckStateRole && column == ListColumn::kActive) {
    return row.active ? Qt::Checked : Qt::Unchecked;
  }
  if (role == Qt::TextAlignmentRole && column == ListColumn::kAge) {
    return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole) return {};
  switch (column) {
    case ListColumn::kActive:
      return {};
    case ListColumn::kLast:
      return Q(row.last);
    case ListColumn::kFirst:
      return Q(row.first);
    case ListColumn::kInitial:
      return Q(row.initial);
    case ListColumn::kSex:
      return Q(row.sex);
    case ListColumn::kBirth:
      return row.birth ? Q(ShownDate(*row.birth, state_.gDateOrder)) : QString();
    case ListColumn::kAge: {
      const auto age = ListAge(row, state_.clock->Today());
      return age ? QVariant(*age) : QVariant();
    }
    case ListColumn::kPref:
      return Q(row.pref);
    case ListColumn::kId:
      return Q(row.id_no);
  }
  return {};
}

QVariant AthleteListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal || section < 0 ||
      section >= static_cast<int>(kListHeaders.size())) {
    return QAbstractTableModel::headerData(section, orientation, role);
  }
  return Q(kListHeaders[static_cast<size_t>(section)]);
}

Qt::ItemFlags AthleteListModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (index.column() == static_cast<int>(ListColumn::kActive)) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

bool AthleteListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid) ||
      role != Qt::CheckStateRole || index.column() != static_cast<int>(ListColumn::kActive)) {
    return false;
  }
  AthleteListRow& row = rows_[static_cast<size_t>(index.row())];
  const bool active = value.value<Qt::CheckState>() == Qt::Checked;
  try {
    SetAthleteActive(*state_.gDb, row.athlete, active);
  } catch (const std::exception& e) {
    ReportError(state_, athlete_text::kListSource, e);
    return false;
  }
  row.active = active;
  emit dataChanged(index, index, {Qt::CheckStateRole});
  return true;
}

void AthleteListModel::sort(int column, Qt::SortOrder order) {
  if (column < 0 || column >= static_cast<int>(kListHeaders.size())) {
    sort_.reset();
    descending_ = false;
  } else {
    sort_ = static_cast<ListColumn>(column);
    descending_ = order == Qt::DescendingOrder;
  }
  Reload();
}

}  // namespace kvlr
