#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "standards/CalcScreen.h"
#include "support/QtApp.h"

namespace kvlr {
namespace {

class CalcScreen : public testing::Test {
 protected:
  CalcScreen() {
    test::QtApp();
    screen.show();
    screen.activateWindow();
    QApplication::processEvents();
  }
  QLineEdit* Box(const char* name) { return test::Child<QLineEdit>(screen, name); }
  static void PressEnter(QLineEdit* box) {
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(box, &enter);
  }
  // Types into a box as a user would and leaves it with Enter.
  void Enter(const char* name, const QString& text) {
    QLineEdit* box = Box(name);
    box->setFocus();
    box->selectAll();
    for (QChar ch : text) {
      QKeyEvent press(QEvent::KeyPress, ch.unicode(), Qt::NoModifier, QString(ch));
      QApplication::sendEvent(box, &press);
    }
    PressEnter(box);
    QApplication::processEvents();
  }

  frmCalc screen;
};

TEST_F(CalcScreen, StaysOnTopAndEnterMovesToTheNextBoxInEveryBox) {
  EXPECT_EQ(screen.windowTitle(), "Time Calculator");
  EXPECT_TRUE(screen.windowFlags() & Qt::WindowStaysOnTopHint);
  QStringList captions;
  for (auto* label : screen.findChildren<QLabel*>()) captions << label->text();
  EXPECT_EQ(captions,
            QStringList({"Time 1", "Time 2", "Sum", "Difference", "Divide by", "Average"}));
  const char* order[] = {"txtTime1",      "txtTime2",    "txtSum",
                         "txtDifference", "txtDivideBy", "txtAverage"};
  for (size_t i = 0; i + 1 < std::size(order); ++i) {
    Box(order[i])->setFocus();
    PressEnter(Box(order[i]));
    EXPECT_EQ(QApplication::focusWidget(), Box(order[i + 1])) << order[i];
  }
  EXPECT_TRUE(screen.isVisible());  // Enter never closes it; its button does
  test::Child<QPushButton>(screen, "cmdClose")->click();
  EXPECT_FALSE(screen.isVisible());
}

TEST_F(CalcScreen, LeavingTimesGivesSumDifferenceAndAverage) {
  Enter("txtTime1", "5875");
  EXPECT_EQ(Box("txtTime1")->text(), "00:58.75");
  Enter("txtTime2", "1:02.5");
  EXPECT_EQ(Box("txtTime2")->text(), "01:02.50");
  EXPECT_EQ(Box("txtSum")->text(), " 2:01.25");
  EXPECT_EQ(Box("txtDifference")->text(), "   03.75");
  EXPECT_EQ(Box("txtAverage")->text(), " 2:01.25");
  Enter("txtDivideBy", "2");
  EXPECT_EQ(Box("txtAverage")->text(), " 1:00.62");  // 6062.5 to even

  // Dividing by zero or nothing divides by one.
  Enter("txtDivideBy", "0");
  EXPECT_EQ(Box("txtDivideBy")->text(), "1");
  EXPECT_EQ(Box("txtAverage")->text(), " 2:01.25");
  Box("txtDivideBy")->setFocus();
  Box("txtDivideBy")->clear();
  PressEnter(Box("txtDivideBy"));
  EXPECT_EQ(Box("txtDivideBy")->text(), "1");
}

}  // namespace
}  // namespace kvlr
