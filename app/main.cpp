#include <clocale>
#include <cstring>

#include <QApplication>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>

#include <langinfo.h>

#include "core/InstanceLock.h"
#include "core/MainWindow.h"
#include "core/QtUserIo.h"
#include "core/Screens.h"
#include "shell/Hooks.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  std::setlocale(LC_TIME, "");
  const kvlr::ProgramHome home = kvlr::ProgramHome::FromEnvironment();

  // A second copy is refused before anything is touched.
  kvlr::InstanceLock lock(home.Root());
  if (!lock.Held()) {
    QMessageBox::warning(nullptr, "KVL-R", kvlr::kAlreadyRunning);
    return 1;
  }

  kvlr::QtUserIo io;
  kvlr::SystemClock clock;
  kvlr::SystemDiskInfo disk;
  kvlr::AppState state(home, io, clock, disk);
  kvlr::InstallHooks(state);
  state.locale_date_format = nl_langinfo(D_FMT);
  const char* time_format = nl_langinfo(T_FMT);
  state.g12Hour = std::strstr(time_format, "%p") || std::strstr(time_format, "%r");
  try {
    state.home.Ensure();
  } catch (const std::exception& e) {
    QMessageBox::critical(nullptr, "KVL-R", e.what());
    return 1;
  }

  kvlr::MainWindow window(state);
  io.SetParent(&window);
  io.SetProgressSink([&window](const QString& line) { window.statusBar()->showMessage(line); });
  kvlr::InstallScreens(window, state);
  window.show();
  QTimer::singleShot(0, &window, [&window] { window.Start(); });
  return app.exec();
}
