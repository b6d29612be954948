#include <gtest/gtest.h>

#include <QApplication>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "standards/CalcScreen.h"

#include "support/QtApp.h"

namespace kvlr {
namespace {

void EnsureApp() {
  test::QtApp();
}

class CalcScreen : public testing::Test {
 protected:
  CalcScreen() {
    EnsureApp();
    screen = std::make_unique<frmCalc>();
    screen->show();
    screen->activateWindow();
    QApplication::processEvents();
  }
  QLineEdit* Box(const char* name) {
    auto* box = screen->findChild<QLineEdit*>(name);
    EXPECT_NE(box, nullptr) << name;
    return box;
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
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(box, &enter);
    QApplication::processEvents();
  }

  std::unique_ptr<frmCalc> screen;
};

TEST_F(CalcScreen, HasItsBoxesAndStaysOnTop) {
  EXPECT_EQ(screen->windowTitle(), "Time Calculator");
  EXPECT_TRUE(screen->windowFlags() & Qt::WindowStaysOnTopHint);
  QStringList captions;
  for (auto* label : screen->findChildren<QLabel*>()) captions << label->text();
  EXPECT_EQ(captions,
            QStringList({"Time 1", "Time 2", "Sum", "Difference", "Divide by", "Average"}));
  EXPECT_EQ(screen->findChildren<QPushButton*>().size(), 1);
}

TEST_F(CalcScreen, EnterMovesToTheNextBoxInEveryBox) {
  const char* order[] = {"txtTime1",      "txtTime2",    "txtSum",
                         "txtDifference", "txtDivideBy", "txtAverage"};
  for (size_t i = 0; i + 1 < std::size(order); ++i) {
    Box(order[i])->setFocus();
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(Box(order[i]), &enter);
    EXPECT_EQ(QApplication::focusWidget(), Box(order[i + 1])) << order[i];
  }
  EXPECT_TRUE(screen->isVisible());  // Enter never closes it
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
}

TEST_F(CalcScreen, DivideByZeroOrEmptyBecomesOne) {
  Enter("txtTime1", "1:00.00");
  Enter("txtDivideBy", "0");
  EXPECT_EQ(Box("txtDivideBy")->text(), "1");
  EXPECT_EQ(Box("txtAverage")->text(), " 1:00.00");
  Box("txtDivideBy")->setFocus();
  Box("txtDivideBy")->clear();
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(Box("txtDivideBy"), &enter);
  EXPECT_EQ(Box("txtDivideBy")->text(), "1");
}

TEST_F(CalcScreen, ItsButtonCloses) {
  screen->findChild<QPushButton*>("cmdClose")->click();
  EXPECT_FALSE(screen->isVisible());
}

}  // namespace
}  // namespace kvlr
