#pragma once
// The "Import Statistics" grid of frmImpCL: a row per kind of record (Meets, Teams,
// Individual Results, Relay Results, Splits), the counts of the certification pass and of
// the import side by side.

#include <QAbstractTableModel>

#include "interchange/ImportTypes.h"

namespace kvlr {

class ImportStatsModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit ImportStatsModel(QObject* parent = nullptr);

  void SetCounts(const ImportCounts& counts);
  const ImportCounts& Counts() const { return counts_; }

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  ImportCounts counts_;
};

}  // namespace kvlr
