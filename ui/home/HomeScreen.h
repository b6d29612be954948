#pragma once
// frmHome, the page the main window shows while a swimmer is current: best times against
// the current standard, the last meet, the next meet, goals. A double-click on a row opens
// the screen behind it.

#include <array>
#include <functional>

#include <QWidget>

#include "core/AppState.h"
#include "home/HomeTableModel.h"

class QComboBox;
class QLabel;
class QTableView;

namespace kvlr {

class frmHome final : public QWidget {
  Q_OBJECT
 public:
  explicit frmHome(AppState& state, QWidget* parent = nullptr);

  // Reads the page of the current swimmer again (nothing with none).
  void Refresh();
  // The swimmer's picture beside the name; a null pixmap shows none.
  void SetPicture(const QPixmap& picture);
  void SetOpen(std::function<void(const HomeLink&)> open) { open_ = std::move(open); }

  // The tables in HomeTables order.
  HomeTableModel& Model(int table) { return *models_[static_cast<size_t>(table)]; }
  QTableView& View(int table) { return *views_[static_cast<size_t>(table)]; }
  // Opens what row `row` of table `table` leads to.
  void Activate(int table, int row);

 private:
  AppState& state_;
  HomeDateText date_text_;
  std::function<void(const HomeLink&)> open_;
  QLabel* picture_ = nullptr;
  QLabel* heading_ = nullptr;
  QComboBox* target_ = nullptr;
  std::array<HomeTableModel*, 4> models_{};
  std::array<QTableView*, 4> views_{};
  std::array<QLabel*, 4> titles_{};
};

}  // namespace kvlr
