#include "interchange/ImportStatsModel.h"

namespace kvlr {
namespace {

QString ToQ(std::string_view s) {
  return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}

constexpr int kRows = static_cast<int>(kImportRowNames.size());

}  // namespace

ImportStatsModel::ImportStatsModel(QObject* parent) : QAbstractTableModel(parent) {}

void ImportStatsModel::SetCounts(const ImportCounts& counts) {
  counts_ = counts;
  emit dataChanged(index(0, 0), index(kRows - 1, 1), {Qt::DisplayRole});
}

int ImportStatsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kRows;
}

int ImportStatsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : 2;
}

QVariant ImportStatsModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
    return {};
  const auto row = static_cast<size_t>(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return index.column() == 0 ? counts_.checked[row] : counts_.processed[row];
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    default:
      return {};
  }
}

QVariant ImportStatsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return QAbstractTableModel::headerData(section, orientation, role);
  if (orientation == Qt::Horizontal && section >= 0 && section < 2) {
    return ToQ(section == 0 ? kRecordsCheckedColumn : kRecordsProcessedColumn);
  }
  if (orientation == Qt::Vertical && section >= 0 && section < kRows) {
    return ToQ(kImportRowNames[static_cast<size_t>(section)]);
  }
  return QAbstractTableModel::headerData(section, orientation, role);
}

}  // namespace kvlr
