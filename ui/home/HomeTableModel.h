#pragma once
// One table of the home page. An empty table shows its hint as its one row.

#include <QAbstractTableModel>

#include "home/HomeTables.h"

namespace kvlr {

class HomeTableModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void SetTable(HomeTable table);
  const HomeTable& Table() const { return table_; }
  bool ShowsHint() const { return table_.rows.empty(); }
  // Where row `row` leads; the hint row leads to the table's empty link.
  HomeLink LinkAt(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  HomeTable table_;
};

}  // namespace kvlr
