#pragma once
// The Calendar and Health menus and File > Journal.

#include "core/AppState.h"

namespace kvlr {

class MainWindow;

void InstallDailyScreens(MainWindow& window, AppState& state);

}  // namespace kvlr
