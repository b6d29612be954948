#include <gtest/gtest.h>

#include <QDialog>
#include <QMainWindow>
#include <QPalette>

#include "core/Look.h"
#include "core/ScreenPlacement.h"
#include "support/QtApp.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

TEST(ScreenPlacement, AScreenOpensInsideTheMainWindowThenWhereItWasLeft) {
  test::QtApp();
  test::TempHome t;
  QMainWindow main;
  main.setObjectName("frmMain");
  main.setGeometry(100, 100, 900, 600);
  new ScreenPlacement(main, t.Home() / "screens.ini");
  main.show();
  {
    QDialog screen(&main);
    screen.setObjectName("frmResults");
    screen.resize(1180, 640);
    screen.show();
    EXPECT_TRUE(main.geometry().contains(screen.geometry())) << screen.geometry().x();
    screen.setGeometry(150, 160, 500, 400);
    screen.hide();
  }
  QDialog again(&main);
  again.setObjectName("frmResults");
  again.show();
  EXPECT_EQ(again.geometry().size(), QSize(500, 400));
  // The fit of a small screen keeps its size and centres it.
  EXPECT_EQ(ScreenPlacement::Fit(QRect(0, 0, 900, 600), QSize(300, 200)), QRect(300, 200, 300, 200));
}

TEST(Look, DarkWhenThePaletteOrTheDesktopSaysSo) {
  QPalette light, dark;
  light.setColor(QPalette::Window, QColor(240, 240, 240));
  dark.setColor(QPalette::Window, QColor(30, 30, 30));
  EXPECT_FALSE(DesktopPrefersDark(light, "Adwaita", ""));
  EXPECT_TRUE(DesktopPrefersDark(dark, "", ""));
  EXPECT_TRUE(DesktopPrefersDark(light, "Adwaita:dark", ""));
  EXPECT_TRUE(DesktopPrefersDark(light, "Arc-dark", ""));
  EXPECT_TRUE(DesktopPrefersDark(light, "", "prefer-dark"));
}

}  // namespace
}  // namespace kvlr
