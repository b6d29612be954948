#pragma once
// The rows of frmEvent as a table model: "Event #", "Gen", "Distance", "Stroke", "Age".
// A heading click sorts as the list does; the sex heading turns men first / women last.

#include <vector>

#include <QAbstractTableModel>

#include "core/AppState.h"
#include "meets/MeetEvents.h"

namespace kvlr {

class EventListModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  EventListModel(AppState& state, EventList list, int32_t meet, QObject* parent = nullptr);

  // Reads the rows again; a store failure is reported (".GetEvents") and leaves no rows.
  void Reload();
  void SetFilter(const EventFilter& filter);
  const EventFilter& Filter() const { return filter_; }
  void SortByColumn(int column);

  const MeetEvent* EventAt(int row) const;
  int RowOf(int32_t mt_event) const;

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  AppState& state_;
  EventList list_;
  int32_t meet_;
  EventFilter filter_;
  std::vector<MeetEvent> rows_;
};

}  // namespace kvlr
