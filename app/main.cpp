#include <clocale>

#include <QApplication>

#include <langinfo.h>

#include "core/MainWindow.h"
#include "core/QtUserIo.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  std::setlocale(LC_TIME, "");
  kvlr::QtUserIo io;
  kvlr::SystemClock clock;
  kvlr::SystemDiskInfo disk;
  kvlr::AppState state(kvlr::ProgramHome::FromEnvironment(), io, clock, disk);
  state.locale_date_format = nl_langinfo(D_FMT);
  state.home.Ensure();

  kvlr::MainWindow window(state);
  io.SetParent(&window);
  window.show();
  return app.exec();
}
