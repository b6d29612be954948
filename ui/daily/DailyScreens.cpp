#include "daily/DailyScreens.h"

#include "core/MainWindow.h"
#include "daily/CalendarScreen.h"
#include "daily/HealthScreen.h"
#include "daily/JournalScreen.h"

namespace kvlr {

void InstallDailyScreens(MainWindow& window, AppState& state) {
  window.SetHandler(MenuCommand::kCalendar, [&window, &state] {
    frmCalendar screen(state, &window);
    screen.exec();
  });
  window.SetHandler(MenuCommand::kHealth, [&window, &state] {
    frmHealth screen(state, &window);
    screen.exec();
  });
  window.SetHandler(MenuCommand::kJournal, [&window, &state] {
    frmJourn screen(state, &window);
    screen.exec();
  });
}

}  // namespace kvlr
