#pragma once
// The rows of frmResults as a table model: the browser's columns in order, read only, the
// I/R cell coloured for relay legs.

#include <vector>

#include <QAbstractTableModel>

#include "meets/ResultsQuery.h"

namespace kvlr {

class ResultsBrowserModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit ResultsBrowserModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

  // Replaces every row; `cells` has one entry per record.
  void SetRows(std::vector<ResultRecord> records, std::vector<ResultCells> cells, ResultSort sort);
  const ResultRecord& Record(int row) const { return records_.at(static_cast<size_t>(row)); }

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  std::vector<ResultRecord> records_;
  std::vector<ResultCells> cells_;
  std::array<std::string, kResultColumnCount> headings_ = ResultHeadings(ResultSort::kStart);
};

}  // namespace kvlr
