#include "core/Screens.h"

#include "core/MainWindow.h"
#include "standards/ConvertScreen.h"
#include "store/BackupScreen.h"
#include "store/RestoreScreen.h"

namespace kvlr {

void InstallScreens(MainWindow& window, AppState& state) {
  using C = MenuCommand;
  window.SetHandler(C::kCourseConversion, [&window, &state] {
    frmConvt screen(state, &window);
    screen.exec();
  });
  window.SetHandler(C::kBackup, [&window, &state] {
    frmBackup screen(state, &window);
    screen.exec();
    window.DatabaseChanged();
  });
  window.SetHandler(C::kRestore, [&window, &state] {
    frmRestore screen(state, &window);
    if (screen.ChooseBackup()) screen.exec();
    window.DatabaseChanged();
  });
}

}  // namespace kvlr
