#pragma once
// The rows of frmCodes as a table model: "Meet Type", "Description". The code heading sorts
// by code, the description heading by description.

#include <vector>

#include <QAbstractTableModel>

#include "core/AppState.h"
#include "meets/MeetTypes.h"

namespace kvlr {

class MeetTypeModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit MeetTypeModel(AppState& state, QObject* parent = nullptr);

  // Reads the rows again; a failure is reported (".GetCodes") and leaves no rows.
  void Reload();
  void SortByColumn(int column);
  MeetTypeSort Sort() const { return sort_; }
  const MeetType* TypeAt(int row) const;
  int RowOf(const std::string& abbr) const;

  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;

 private:
  AppState& state_;
  MeetTypeSort sort_ = MeetTypeSort::kDescription;
  std::vector<MeetType> rows_;
};

}  // namespace kvlr
