#pragma once
// The File > Export menu's ways into the export screens.

namespace kvlr {

class MainWindow;
struct AppState;

// Meet Entries: frmExpEnt; Meet Results and Best Times: frmExpRes.
void InstallExportScreens(MainWindow& window, AppState& state);

}  // namespace kvlr
