#include "core/Screens.h"

#include <QTimer>

#include "athletes/AthleteListScreen.h"
#include "athletes/TeamScreen.h"
#include "core/MainWindow.h"
#include "standards/ConvertScreen.h"
#include "store/BackupScreen.h"
#include "store/RestoreScreen.h"

namespace kvlr {

namespace {

// The athlete list; `add_first` opens its card for a new swimmer at once.
void ShowAthletes(MainWindow& window, AppState& state, bool add_first) {
  frmAthlete list(state, &window);
  QObject::connect(&list, &frmAthlete::currentAthleteChanged, &window, &MainWindow::RefreshTitle);
  if (add_first) QTimer::singleShot(0, &list, [&list] { list.Add(); });
  list.exec();
  window.RefreshTitle();
}

}  // namespace

void InstallScreens(MainWindow& window, AppState& state) {
  using C = MenuCommand;
  window.SetHandler(C::kAthletes, [&window, &state] { ShowAthletes(window, state, false); });
  window.SetAddAthleteScreen([&window, &state] { ShowAthletes(window, state, true); });
  window.SetHandler(C::kTeam, [&window, &state] {
    frmTeamMaint screen(state, &window);
    screen.exec();
  });
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
