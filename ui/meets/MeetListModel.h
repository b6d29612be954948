#pragma once
// The rows of frmMeets as a table model: "Meet Name", "Start Date", "Course", "Type", "End",
// "Ageup", "Since", "Location". A heading click sorts as the list does; dragging one row
// onto another asks for a merge (the model itself never moves rows).

#include <vector>

#include <QAbstractTableModel>

#include "core/AppState.h"
#include "meets/Meets.h"

namespace kvlr {

class MeetListModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit MeetListModel(AppState& state, QObject* parent = nullptr);

  // Reads the rows again by the filter. A store failure is reported and leaves no rows.
  void Reload();
  void SetFilter(const MeetFilter& filter);
  const MeetFilter& Filter() const { return filter_; }

  // The sort of a heading: name, start (each click turns newest/oldest first), course; other
  // headings keep the sort.
  void SortByColumn(int column);

  const std::vector<Meet>& Rows() const { return rows_; }
  // The meet of a row; nullptr outside the rows.
  const Meet* MeetAt(int row) const;
  int RowOf(int32_t meet) const;

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  Qt::DropActions supportedDropActions() const override;
  QStringList mimeTypes() const override;
  QMimeData* mimeData(const QModelIndexList& indexes) const override;
  bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                       const QModelIndex& parent) const override;
  bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                    const QModelIndex& parent) override;

 signals:
  // A row was dropped onto another: merge `from` into `to`.
  void mergeRequested(int32_t from, int32_t to);

 private:
  AppState& state_;
  MeetFilter filter_;
  std::vector<Meet> rows_;
};

}  // namespace kvlr
