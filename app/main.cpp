#include <clocale>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <QApplication>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>

#include <langinfo.h>

#include "core/InstanceLock.h"
#include "core/Look.h"
#include "core/MainWindow.h"
#include "core/QtUserIo.h"
#include "core/ScreenPlacement.h"
#include "core/Screens.h"
#include "shell/Hooks.h"
#include "shell/Startup.h"
#include "web/WebScreens.h"

int main(int argc, char** argv) {
  // Crisp at fractional scales instead of rounding to whole ones.
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
      Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  kvlr::PrepareWebEngine();
  QApplication app(argc, argv);
  kvlr::ApplyDesktopLook(app);
  std::setlocale(LC_TIME, "");
  // Qt has taken its own options out of the list by now.
  std::vector<std::string> args;
  for (const QString& arg : QCoreApplication::arguments().mid(1)) args.push_back(arg.toStdString());
  const kvlr::StartArguments start = kvlr::ParseStartArguments(args);
  if (!start.error.empty()) {
    std::fprintf(stderr, "kvl-r: %s\nUsage: kvl-r [--home DIR] [FILE.mdb]\n", start.error.c_str());
    return 2;
  }
  const kvlr::ProgramHome home =
      start.home.empty() ? kvlr::ProgramHome::FromEnvironment() : kvlr::ProgramHome(start.home);

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
  window.SetStartFile(start.file);
  io.SetParent(&window);
  io.SetProgressSink([&window](const QString& line) { window.statusBar()->showMessage(line); });
  kvlr::InstallScreens(window, state);
  kvlr::InstallWebScreens(window, state);
  new kvlr::ScreenPlacement(window, state.home.Root() / "KVL-Rscreens.ini");
  window.show();
  QTimer::singleShot(0, &window, [&window] { window.Start(); });
  return app.exec();
}
