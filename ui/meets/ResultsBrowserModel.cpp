#include "meets/ResultsBrowserModel.h"

#include <QBrush>
#include <QColor>

namespace kvlr {

void ResultsBrowserModel::SetRows(std::vector<ResultRecord> records, std::vector<ResultCells> cells,
                                  ResultSort sort) {
  beginResetModel();
  records_ = std::move(records);
  cells_ = std::move(cells);
  cells_.resize(records_.size());
  headings_ = ResultHeadings(sort);
  endResetModel();
  emit headerDataChanged(Qt::Horizontal, 0, kResultColumnCount - 1);
}

int ResultsBrowserModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(records_.size());
}

int ResultsBrowserModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kResultColumnCount;
}

QVariant ResultsBrowserModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount() || index.column() >= kResultColumnCount) {
    return {};
  }
  const auto row = static_cast<size_t>(index.row());
  if (role == Qt::DisplayRole) {
    return QString::fromStdString(cells_[row][static_cast<size_t>(index.column())]);
  }
  if (role == Qt::BackgroundRole && index.column() == kColIR) {
    const std::string& i_r = records_[row].i_r;
    if (i_r == "L") return QBrush(QColor(0xC0, 0xFF, 0xC0));
    // The colour value C0C0FF as the grid reads it (blue, green, red).
    if (i_r == "N") return QBrush(QColor(0xFF, 0xC0, 0xC0));
  }
  if (role == Qt::TextAlignmentRole &&
      (index.column() == kColDistance || index.column() == kColTime ||
       index.column() == kColConverted || index.column() == kColPlace)) {
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  }
  return {};
}

QVariant ResultsBrowserModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  if (section < 0 || section >= kResultColumnCount) return {};
  return QString::fromStdString(headings_[static_cast<size_t>(section)]);
}

}  // namespace kvlr
