#include "interchange/ExportScreens.h"

#include "core/MainWindow.h"
#include "interchange/ExportEntriesScreen.h"
#include "interchange/ExportResultsScreen.h"

namespace kvlr {

void InstallExportScreens(MainWindow& window, AppState& state) {
  using C = MenuCommand;
  window.SetHandler(C::kExportEntries, [&window, &state] {
    frmExpEnt screen(state, &window);
    screen.exec();
  });
  window.SetHandler(C::kExportResults, [&window, &state] {
    frmExpRes screen(state, ResultExportKind::kResults, &window);
    screen.exec();
  });
  window.SetHandler(C::kExportBestTimes, [&window, &state] {
    frmExpRes screen(state, ResultExportKind::kBestTimes, &window);
    screen.exec();
  });
}

}  // namespace kvlr
