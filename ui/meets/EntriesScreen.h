#pragma once
// frmEntNa, "Entries by Name": the swimmers on the left (TDBGAthlete), the entry events the
// chosen swimmer is offered on the right (TDBGEntry). Every change is written at once.

#include <memory>
#include <vector>

#include <QAbstractTableModel>
#include <QDialog>

#include "core/AppState.h"
#include "meets/Entries.h"

class QLabel;
class QTableView;

namespace kvlr {

// The swimmers: "Last", "First".
class EntrySwimmerModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit EntrySwimmerModel(std::vector<EntrySwimmer> swimmers, QObject* parent = nullptr)
      : QAbstractTableModel(parent), swimmers_(std::move(swimmers)) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  const std::vector<EntrySwimmer>& Swimmers() const { return swimmers_; }

 private:
  std::vector<EntrySwimmer> swimmers_;
};

// The entry grid: "Event", "Entered", "Best Time", "Custom Time", "Exhib". The two ticks
// and the typed time go straight to the sheet.
class EntryGridModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column { kEvent = 0, kEntered, kBestTime, kCustomTime, kExhib, kColumns };

  explicit EntryGridModel(EntrySheet& sheet, QObject* parent = nullptr)
      : QAbstractTableModel(parent), sheet_(sheet) {}

  // Fills the grid for another swimmer.
  void Load(const EntrySwimmer& swimmer);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 signals:
  // A typed time was refused (the user was told): the cell is to be edited again.
  void TimeRefused(const QModelIndex& index);

 private:
  EntrySheet& sheet_;
};

class frmEntNa final : public QDialog {
  Q_OBJECT
 public:
  // Reads the meet and fills the grids. With no such meet, or a meet with no entry events
  // ("You must have at least one event defined before you can do entries."), Ready() is
  // false and the screen should not be shown.
  frmEntNa(AppState& state, int32_t meet, QWidget* parent = nullptr);
  ~frmEntNa() override;

  bool Ready() const { return ready_; }

  // Chooses the swimmer of a row of the left grid.
  void SelectSwimmer(int row);

  EntrySwimmerModel* SwimmerModel() const { return swimmers_; }
  EntryGridModel* GridModel() const { return grid_; }
  QTableView* EntryView() const { return entry_view_; }

 private:
  void OpenCalculator();

  AppState& state_;
  std::unique_ptr<EntrySheet> sheet_;
  EntrySwimmerModel* swimmers_ = nullptr;
  EntryGridModel* grid_ = nullptr;
  QTableView* swimmer_view_ = nullptr;
  QTableView* entry_view_ = nullptr;
  QLabel* swimmer_label_ = nullptr;
  bool ready_ = false;
};

}  // namespace kvlr
