// The course conversion setup and the time calculator screens.

#include <gtest/gtest.h>

#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "standards/CalcScreen.h"
#include "standards/ConversionSettings.h"
#include "standards/ConvertScreen.h"
#include "support/QtApp.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::MakeOpenDatabase;
using test::TempHome;

void Type(QWidget* box, const QString& text) {
  for (QChar ch : text) {
    QKeyEvent press(QEvent::KeyPress, ch.unicode(), Qt::NoModifier, QString(ch));
    QApplication::sendEvent(box, &press);
  }
}

void Press(QWidget* widget, int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(widget, &press);
}

class ConvertScreen : public testing::Test {
 protected:
  ConvertScreen() {
    test::QtApp();
    MakeOpenDatabase(t);
  }
  QLineEdit* Box(const char* name) { return screen->findChild<QLineEdit*>(name); }
  // Replaces a box's text as a user would, then leaves it with Enter.
  void Retype(const char* name, const QString& text) {
    QLineEdit* box = Box(name);
    box->selectAll();
    Type(box, text);
    Press(box, Qt::Key_Return);
  }
  bool TurnBoxesEnabled() {
    bool all = true, any = false;
    for (const char* name :
         {"txtFreeTurn", "txtBackTurn", "txtBreastTurn", "txtFlyTurn", "txtIMTurn"}) {
      all = all && Box(name)->isEnabled();
      any = any || Box(name)->isEnabled();
    }
    EXPECT_EQ(all, any) << "the five turn boxes go together";
    return all;
  }
  double OptionsField(const char* field) {
    return t.state.gDb->execAndGet(std::string("SELECT ") + field + " FROM OPTIONS").getDouble();
  }
  TempHome t;
  std::unique_ptr<frmConvt> screen;
};

TEST_F(ConvertScreen, ShowsTheSavedFactorsAndLeavingStraightAppliesItsRule) {
  screen = std::make_unique<frmConvt>(t.state);
  const std::vector<std::pair<const char*, QString>> boxes = {
      {"txtCvtFactor", "1.11"}, {"txtFreeTurn", "0.8"}, {"txtBackTurn", "0.6"},
      {"txtBreastTurn", "1"},   {"txtFlyTurn", "0.7"},  {"txtIMTurn", "0.8"},
      {"txtStraight", "0"},     {"txtCvt500", "0.875"}, {"txtCvt1650", "1.006"}};
  for (const auto& [name, text] : boxes) {
    ASSERT_NE(Box(name), nullptr) << name;
    EXPECT_EQ(Box(name)->text(), text) << name;
  }
  EXPECT_EQ(screen->windowTitle(), "Course Conversion Setup");
  EXPECT_TRUE(screen->findChild<QRadioButton*>("optY2L")->isChecked());
  EXPECT_EQ(screen->findChild<QRadioButton*>("optY2L")->text(), "LC Meters to Yards");
  EXPECT_EQ(screen->findChild<QRadioButton*>("optL2S")->text(), "LC Meters to SC Meters");
  EXPECT_TRUE(TurnBoxesEnabled());
  QStringList shown;
  for (auto* group : screen->findChildren<QGroupBox*>()) shown << group->title();
  for (auto* label : screen->findChildren<QLabel*>()) shown << label->text();
  std::vector<std::string_view> words = {kYardsGroup,     kTurnGroup,     kLongGroup,
                                         kYardsHelp,      kTurnHelp,      kStraightHelp,
                                         kCvt500Caption,  kCvt500Typical, kCvt1650Caption,
                                         kCvt1650Typical, kLongToMeters,  kLongToYards};
  words.insert(words.end(), kTurnExample.begin(), kTurnExample.end());
  for (std::string_view w : words)
    EXPECT_TRUE(shown.contains(QString::fromUtf8(w.data(), w.size()))) << w;
  Retype("txtStraight", "0.05");
  EXPECT_FALSE(TurnBoxesEnabled());
  EXPECT_TRUE(t.io.shown.empty());
  Retype("txtStraight", "0.2");
  EXPECT_TRUE(t.io.Saw("Maximum allowable is 0.1 ( 10% )"));
  EXPECT_EQ(Box("txtStraight")->text(), "0");
  EXPECT_TRUE(TurnBoxesEnabled());
  // A minus sign can't be typed: no factor is ever negative.
  Box("txtStraight")->clear();
  Type(Box("txtStraight"), "-0.05");
  EXPECT_EQ(Box("txtStraight")->text(), "0.05");
  // A saved straight factor opens the screen with the turn boxes off.
  t.state.gDb->exec("UPDATE OPTIONS SET Straight = 0.02");
  screen = std::make_unique<frmConvt>(t.state);
  EXPECT_FALSE(TurnBoxesEnabled());
}

TEST_F(ConvertScreen, SaveChecksThenWritesWhatWasTyped) {
  screen = std::make_unique<frmConvt>(t.state);
  // A straight box not yet left is checked first.
  Box("txtStraight")->selectAll();
  Type(Box("txtStraight"), "0.5");
  screen->findChild<QPushButton*>("cmdSave")->click();
  EXPECT_TRUE(t.io.Saw("Maximum allowable is 0.1 ( 10% )"));
  EXPECT_EQ(OptionsField("Straight"), 0);
  Retype("txtCvtFactor", "1.2");
  Retype("txtFreeTurn", "1");
  screen->findChild<QRadioButton*>("optL2S")->click();
  screen->findChild<QPushButton*>("cmdSave")->click();
  EXPECT_EQ(screen->result(), QDialog::Accepted);
  EXPECT_EQ(t.state.gCvtFactors[1], 1.0);
  EXPECT_DOUBLE_EQ(OptionsField("CvtFactor"), 1.2);
  EXPECT_DOUBLE_EQ(OptionsField("FreeTurn"), 1.0);
  EXPECT_EQ(OptionsField("Y2L"), 0);
  EXPECT_EQ(OptionsField("Straight"), 0);
}

TEST_F(ConvertScreen, CancelAndEscapeLeaveEverythingAsItWas) {
  for (bool escape : {false, true}) {
    screen = std::make_unique<frmConvt>(t.state);
    screen->show();
    Retype("txtCvtFactor", "1.3");
    if (escape) {
      Press(screen.get(), Qt::Key_Escape);
    } else {
      screen->findChild<QPushButton*>("cmdCancel")->click();
    }
    EXPECT_EQ(screen->result(), QDialog::Rejected) << escape;
    EXPECT_FALSE(screen->isVisible()) << escape;
    EXPECT_EQ(t.state.gCvtFactors[0], 1.11) << escape;
    EXPECT_DOUBLE_EQ(OptionsField("CvtFactor"), 1.11) << escape;
  }
  // A failed save is reported and keeps the screen.
  screen = std::make_unique<frmConvt>(t.state);
  screen->show();
  t.state.gDb->exec("DROP TABLE OPTIONS");
  EXPECT_FALSE(screen->Save());
  EXPECT_TRUE(t.io.Saw("frmConvt.cmdSave_Click"));
  EXPECT_TRUE(screen->isVisible());
  EXPECT_EQ(t.state.gCvtFactors[0], 1.11);
}

class CalcScreen : public testing::Test {
 protected:
  CalcScreen() {
    screen.show();
    screen.activateWindow();
    QApplication::processEvents();
  }
  QLineEdit* Box(const char* name) { return test::Child<QLineEdit>(screen, name); }
  // Types into a box as a user would and leaves it with Enter.
  void Enter(const char* name, const QString& text) {
    QLineEdit* box = Box(name);
    box->setFocus();
    box->selectAll();
    Type(box, text);
    Press(box, Qt::Key_Return);
    QApplication::processEvents();
  }
  QApplication& app = test::QtApp();  // before the screen
  frmCalc screen;
};

TEST_F(CalcScreen, LeavingTimesGivesSumDifferenceAndAverageEnterMovesOnAndItStaysOnTop) {
  Enter("txtTime1", "5875");
  EXPECT_EQ(Box("txtTime1")->text(), "00:58.75");
  Enter("txtTime2", "1:02.5");
  EXPECT_EQ(Box("txtTime2")->text(), "01:02.50");
  EXPECT_EQ(Box("txtSum")->text(), " 2:01.25");
  EXPECT_EQ(Box("txtDifference")->text(), "   03.75");
  EXPECT_EQ(Box("txtAverage")->text(), " 2:01.25");
  Enter("txtDivideBy", "2");
  EXPECT_EQ(Box("txtAverage")->text(), " 1:00.62");  // 6062.5 to even
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
    Press(Box(order[i]), Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), Box(order[i + 1])) << order[i];
  }
  EXPECT_TRUE(screen.isVisible());  // Enter never closes it; its button does
  test::Child<QPushButton>(screen, "cmdClose")->click();
  EXPECT_FALSE(screen.isVisible());
}

}  // namespace
}  // namespace kvlr
