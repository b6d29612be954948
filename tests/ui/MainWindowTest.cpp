#include <gtest/gtest.h>

#include <QApplication>
#include <QMenuBar>
#include <QPointer>

#include "core/MainWindow.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

int argc = 1;
char arg0[] = "ui_test";
char* argv[] = {arg0, nullptr};

TEST(MainWindow, OpensWithTheStateTitleAndClosesCleanly) {
  QApplication app(argc, argv);
  test::TempHome t;
  auto* window = new MainWindow(t.state);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->show();
  EXPECT_EQ(window->windowTitle(), "Norvan's KVL RENEWED");
  t.state.gTitle = "KVL-R for Ada Lane";
  window->RefreshTitle();
  EXPECT_EQ(window->windowTitle(), "KVL-R for Ada Lane");
  auto* exit = window->findChild<QAction*>("mnuExit");
  ASSERT_NE(exit, nullptr);
  QPointer<MainWindow> alive(window);
  exit->trigger();
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(alive.isNull());
}

}  // namespace
}  // namespace kvlr
