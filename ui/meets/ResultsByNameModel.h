#pragma once
// The two grids of frmResNa: the active swimmers, and the meet's individual events for the
// chosen swimmer with a Time, DQ and (Final, Prelim, Semi) Place cell per round. The event
// grid is unbound: each round's cells come from that round's RESULT row, and edits go
// through the result writers.

#include <array>
#include <vector>

#include <QAbstractTableModel>

#include "core/AppState.h"
#include "meets/ResultsByName.h"

namespace kvlr {

class ResNaSwimmerModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit ResNaSwimmerModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}
  void SetRows(std::vector<ResNaSwimmer> rows);
  const ResNaSwimmer& Swimmer(int row) const { return rows_.at(static_cast<size_t>(row)); }

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  std::vector<ResNaSwimmer> rows_;
};

class ResNaEventModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum class CellKind { kFixed, kTime, kDq, kPlace };
  struct Column {
    CellKind kind;
    int round;  // index into kResultRounds; -1 for the fixed columns
  };

  ResNaEventModel(AppState& state, int32_t meet, QObject* parent = nullptr);

  // Shows `events` for `athlete` at `age`; reads every round's row.
  void SetSwimmer(int32_t athlete, int16_t age, std::vector<ResNaEvent> events);
  const Column& ColumnAt(int column) const { return columns_.at(static_cast<size_t>(column)); }
  const ResNaEvent& Event(int row) const { return events_.at(static_cast<size_t>(row)); }
  const ResNaCell& Cell(int row, int round) const {
    return cells_.at(static_cast<size_t>(row)).at(static_cast<size_t>(round));
  }
  int32_t Athlete() const { return athlete_; }
  int16_t Age() const { return age_; }

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

 private:
  void Fetch(int row, int round);
  void RowChanged(int row);

  AppState& state_;
  int32_t meet_;
  int32_t athlete_ = 0;
  int16_t age_ = 0;
  std::vector<Column> columns_;
  std::vector<ResNaEvent> events_;
  std::vector<std::array<ResNaCell, kResultRounds.size()>> cells_;
};

}  // namespace kvlr
