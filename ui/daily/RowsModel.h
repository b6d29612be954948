#pragma once
// A read-only grid of finished texts: the health list and the journal show rows the logic
// has already made.

#include <QAbstractTableModel>
#include <QStringList>

namespace kvlr {

class RowsModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  RowsModel(QStringList headers, QObject* parent = nullptr)
      : QAbstractTableModel(parent), headers_(std::move(headers)) {}
  void SetRows(std::vector<QStringList> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
  }
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(headers_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid() || role != Qt::DisplayRole) return {};
    return rows_[index.row()].value(index.column());
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return headers_.value(section);
  }

 private:
  QStringList headers_;
  std::vector<QStringList> rows_;
};

}  // namespace kvlr
