#include "meets/MeetTypeModel.h"

#include "core/ErrorHandler.h"
#include "core/VbRules.h"

namespace kvlr {

MeetTypeModel::MeetTypeModel(AppState& state, QObject* parent)
    : QAbstractTableModel(parent), state_(state) {}

void MeetTypeModel::Reload() {
  beginResetModel();
  rows_.clear();
  if (state_.gDb) {
    try {
      rows_ = ListMeetTypes(*state_.gDb, sort_);
    } catch (const std::exception& e) {
      rows_.clear();
      ReportError(state_, ".GetCodes", e);
    }
  }
  endResetModel();
}

void MeetTypeModel::SortByColumn(int column) {
  sort_ = column == 0 ? MeetTypeSort::kAbbr : MeetTypeSort::kDescription;
  Reload();
}

const MeetType* MeetTypeModel::TypeAt(int row) const {
  return row >= 0 && row < static_cast<int>(rows_.size()) ? &rows_[static_cast<size_t>(row)]
                                                          : nullptr;
}

int MeetTypeModel::RowOf(const std::string& abbr) const {
  for (size_t i = 0; i < rows_.size(); ++i) {
    if (UCase(rows_[i].abbr) == UCase(abbr)) return static_cast<int>(i);
  }
  return -1;
}

int MeetTypeModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int MeetTypeModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 2;
}

QVariant MeetTypeModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
    return {};
  if (role != Qt::DisplayRole) return {};
  const MeetType& t = rows_[static_cast<size_t>(index.row())];
  return QString::fromStdString(index.column() == 0 ? t.abbr : t.desc);
}

QVariant MeetTypeModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section > 1)
    return QAbstractTableModel::headerData(section, orientation, role);
  return section == 0 ? QStringLiteral("Meet Type") : QStringLiteral("Description");
}

}  // namespace kvlr
