#pragma once
// The one QApplication of a widget test program, and the small helpers of screen tests.

#include <cstdlib>

#include <gtest/gtest.h>
#include <QApplication>
#include <QPixmap>
#include <QWidget>

namespace kvlr::test {

// Made on first use and never destroyed: destroying it after the tests' widgets are gone
// crashes at exit.
inline QApplication& QtApp() {
  static int argc = 1;
  static char arg0[] = "kvlr_widget_test";
  static char* argv[] = {arg0, nullptr};
  static QApplication* app = new QApplication(argc, argv);
  return *app;
}

// A named child of a screen; a missing one fails the test.
template <typename T>
T* Child(QWidget& w, const char* name) {
  T* child = w.findChild<T*>(name);
  EXPECT_NE(child, nullptr) << name;
  return child;
}

// Shows the screen and checks that it draws at all, at no less than its smallest size; with
// KVLR_SCREENSHOTS naming a folder the picture is saved there to be looked at.
inline void Shoot(QWidget& w, const char* name) {
  w.show();
  QtApp().processEvents();
  const QPixmap shot = w.grab();
  EXPECT_FALSE(shot.isNull());
  EXPECT_GE(shot.width(), w.minimumSizeHint().width()) << name << " is squeezed";
  if (const char* folder = std::getenv("KVLR_SCREENSHOTS")) {
    shot.save(QString("%1/%2.png").arg(folder, name));
  }
}

}  // namespace kvlr::test
