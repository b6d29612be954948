#pragma once
// Connects the main menu to the screens of every subsystem.

#include "core/AppState.h"

namespace kvlr {

class MainWindow;

// Sets the handler of each menu command whose screen exists, and the shared hooks.
void InstallScreens(MainWindow& window, AppState& state);

}  // namespace kvlr
