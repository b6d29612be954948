#pragma once
// The rows of RPTISDIN as a grid: one report (the individual lines, or the relay lines)
// until the printed report takes over. Read-only.

#include <vector>

#include <QAbstractTableModel>

#include "core/AppState.h"
#include "interchange/ImportReportRows.h"

namespace kvlr {

class ImportReportModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column {
    kReason,
    kMeet,
    kDates,
    kTeam,
    kName,
    kSex,
    kAge,
    kBirth,
    kIdNo,
    kEvent,
    kPrelim,
    kFinals,
    kColumnCount
  };

  // `relay` picks the relay report's rows.
  ImportReportModel(AppState& state, bool relay, QObject* parent = nullptr);

  // Reads the rows again; a failure is reported (".LoadReportRows") and leaves none.
  void Reload();
  const ReportRow* RowAt(int row) const;

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  AppState& state_;
  bool relay_;
  std::vector<ReportRow> rows_;
};

}  // namespace kvlr
