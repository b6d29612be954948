#pragma once
// The one QApplication of a widget test program. It is made on first use and never
// destroyed: destroying it after the tests' widgets are gone crashes at exit.

#include <QApplication>

namespace kvlr::test {

inline QApplication& QtApp() {
  static int argc = 1;
  static char arg0[] = "kvlr_widget_test";
  static char* argv[] = {arg0, nullptr};
  static QApplication* app = new QApplication(argc, argv);
  return *app;
}

}  // namespace kvlr::test
