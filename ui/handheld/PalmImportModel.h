#pragma once
// TDBGPalm: the companion's rows as a table model. "Imp" is a check box (with the import's
// word once done); rows not chosen take NoImpStyle (grey), rows without a time DQStyle (red).

#include <vector>

#include <QAbstractTableModel>

#include "handheld/PalmImport.h"

namespace kvlr {

class PalmImportModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit PalmImportModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

  void SetRows(std::vector<PalmRow> rows);
  std::vector<PalmRow>& Rows() { return rows_; }
  // After an import: the rows' words shown.
  void RowsChanged();

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  std::vector<PalmRow> rows_;
};

}  // namespace kvlr
