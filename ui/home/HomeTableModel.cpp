#include "home/HomeTableModel.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

namespace kvlr {

void HomeTableModel::SetTable(HomeTable table) {
  beginResetModel();
  table_ = std::move(table);
  endResetModel();
}

HomeLink HomeTableModel::LinkAt(int row) const {
  if (ShowsHint()) return table_.empty_link;
  if (row < 0 || row >= static_cast<int>(table_.links.size())) return {};
  return table_.links[static_cast<size_t>(row)];
}

int HomeTableModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return ShowsHint() ? 1 : static_cast<int>(table_.rows.size());
}

int HomeTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(table_.headers.size());
}

QVariant HomeTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto row = static_cast<size_t>(index.row());
  const auto column = static_cast<size_t>(index.column());
  if (ShowsHint()) {
    if (role == Qt::DisplayRole && column == 0) return QString::fromStdString(table_.empty_text);
    if (role == Qt::ForegroundRole) return QApplication::palette().color(QPalette::PlaceholderText);
    return {};
  }
  switch (role) {
    case Qt::DisplayRole:
      return column < table_.rows[row].size() ? QString::fromStdString(table_.rows[row][column])
                                               : QString();
    case Qt::FontRole:
      if (table_.good[row]) {
        QFont bold;
        bold.setBold(true);
        return bold;
      }
      return {};
    case Qt::ForegroundRole:
      if (table_.good[row]) {
        // Readable green on a light or a dark palette.
        const bool dark = QApplication::palette().color(QPalette::Base).lightness() < 128;
        return QColor(dark ? "#7fd18b" : "#1d7a34");
      }
      return {};
    case Qt::TextAlignmentRole:
      return column < table_.text_columns ? QVariant(Qt::AlignLeft | Qt::AlignVCenter)
                         : QVariant(Qt::AlignRight | Qt::AlignVCenter);
    default:
      return {};
  }
}

QVariant HomeTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
  if (section < 0 || section >= static_cast<int>(table_.headers.size())) return {};
  return QString::fromStdString(table_.headers[static_cast<size_t>(section)]);
}

}  // namespace kvlr
