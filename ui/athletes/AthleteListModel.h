#pragma once
// The rows of the athlete list as a table model: the columns of the list in their order,
// sortable by any column, the Active checkbox writable.

#include <vector>

#include <QAbstractTableModel>

#include "athletes/AthleteList.h"
#include "core/AppState.h"

namespace kvlr {

class AthleteListModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit AthleteListModel(AppState& state, QObject* parent = nullptr);

  // Reads the rows again in the present order. A store failure is reported and leaves the
  // list empty.
  void Reload();

  // The key of a row, 0 outside the rows; the row of a key, -1 when not shown.
  int32_t AthleteAt(int row) const;
  int RowOf(int32_t athlete) const;
  const AthleteListRow& Row(int row) const { return rows_.at(static_cast<size_t>(row)); }

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

 private:
  AppState& state_;
  std::vector<AthleteListRow> rows_;
  std::optional<ListColumn> sort_;
  bool descending_ = false;
};

}  // namespace kvlr
