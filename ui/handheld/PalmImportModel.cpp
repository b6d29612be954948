#include "handheld/PalmImportModel.h"

#include <QBrush>
#include <QColor>

#include "handheld/HandheldTexts.h"

namespace kvlr {

void PalmImportModel::SetRows(std::vector<PalmRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

void PalmImportModel::RowsChanged() {
  if (!rows_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int PalmImportModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int PalmImportModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(std::size(palm_text::kGridHeadings));
}

QVariant PalmImportModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const PalmRow& r = rows_[static_cast<size_t>(index.row())];
  if (role == Qt::CheckStateRole && index.column() == 0) {
    return r.chosen ? Qt::Checked : Qt::Unchecked;
  }
  if (role == Qt::ForegroundRole) {
    if (!r.chosen) return QBrush(QColor(Qt::gray));
    if (r.NoTime()) return QBrush(QColor(Qt::red));
    return {};
  }
  if (role != Qt::DisplayRole) return {};
  const std::string* columns[] = {&r.state,     &r.show_name, &r.sex,   &r.event_num, &r.age_group,
                                  &r.distance, &r.stroke,    &r.swim, &r.swim_time};
  return QString::fromStdString(*columns[index.column()]);
}

bool PalmImportModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || index.column() != 0 || role != Qt::CheckStateRole) return false;
  rows_[static_cast<size_t>(index.row())].chosen = value.toInt() == Qt::Checked;
  emit dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount() - 1));
  return true;
}

Qt::ItemFlags PalmImportModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags f = QAbstractTableModel::flags(index);
  if (index.isValid() && index.column() == 0) f |= Qt::ItemIsUserCheckable;
  return f;
}

QVariant PalmImportModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
      section >= columnCount()) {
    return {};
  }
  return QString::fromUtf8(palm_text::kGridHeadings[section].data(),
                           static_cast<int>(palm_text::kGridHeadings[section].size()));
}

}  // namespace kvlr
