#pragma once
// The one main window: its title follows the state, its menu opens every screen.

#include <QMainWindow>

#include "core/AppState.h"

namespace kvlr {

class MainWindow final : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(AppState& state, QWidget* parent = nullptr);

  // Renews the title from the state.
  void RefreshTitle();

 private:
  void BuildMenus();

  AppState& state_;
};

}  // namespace kvlr
