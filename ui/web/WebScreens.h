#pragma once
// The web window and the File commands that start other programs: Convert KVL, Install
// Update, Create Update. Set from the app, so that only it links the browser.

#include <filesystem>
#include <optional>

#include "core/AppState.h"

namespace kvlr {

class MainWindow;

// Before the QApplication is made: the GL sharing the browser needs, and no Chromium sandbox
// when running as root, where it refuses to start.
void PrepareWebEngine();

// Sets the handlers of Web Browser, Convert KVL, Install Update and Create Update.
void InstallWebScreens(MainWindow& window, AppState& state);

// Install Update: with a database open, the question to exit first (No ends here); then
// `package`, or the newest update package in the program's folders and the downloads folder,
// is handed to the desktop's package installer, and the program ends when the user agreed.
void InstallUpdate(MainWindow& window, AppState& state,
                   std::optional<std::filesystem::path> package = {});

}  // namespace kvlr
