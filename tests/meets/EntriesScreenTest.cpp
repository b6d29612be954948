// The entry and favourite screens: their grids under the model tester, ticks and typed
// times going to the store, and the favourite commands.

#include <gtest/gtest.h>

#include <string>

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "meets/EntriesScreen.h"
#include "meets/EntryTexts.h"
#include "meets/EntryWriter.h"
#include "meets/FavoritesScreen.h"
#include "support/QtApp.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

class EntriesScreen : public test::DbTest {
 protected:
  void SetUp() override {
    test::QtApp();
    Db().exec(
        "INSERT INTO MEET (Meet, MName, Start, End, AgeUp, Course, Type) VALUES "
        "(5, 'Harbor Winter Classic', '2026-12-05', '2026-12-06', '2026-12-31', 'Y', 'USS'), "
        "(6, 'Empty Sprint Meet', '2026-12-12', '2026-12-12', NULL, 'S', 'USS')");
    Db().exec(
        "INSERT INTO ATHLETE (Athlete, Last, First, Sex, Birth, Age) VALUES "
        "(1, 'Rivers', 'Ada', 'F', '2014-06-01', 12), (2, 'Banks', 'Leo', 'M', NULL, 11)");
    Db().exec(
        "INSERT INTO MTEVENTE (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, Stroke, Sex, I_R) "
        "VALUES (5, 1, '', 1112, 'Y', 50, 1, 'M', 'I'), (5, 2, '', 1112, 'Y', 100, 2, 'X', 'I'), "
        "(5, 3, '', 1112, 'Y', 200, 5, 'M', 'I')");
    Db().exec(
        "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, DISTANCE, STROKE, MTEVENT, "
        "RANK, COURSE) VALUES (5, 2, 'I', 3150, 'F', 0, 50, 1, 901, 1, 'Y')");
    t.io.shown.clear();
  }
};

TEST_F(EntriesScreen, OpensOnTheFirstSwimmerAndTicksAndTimesGoToTheStore) {
  frmEntNa screen(t.state, 5);
  ASSERT_TRUE(screen.Ready());
  EXPECT_TRUE(std::find(t.io.progress.begin(), t.io.progress.end(), "Opening Entries by Name...") !=
              t.io.progress.end());
  QAbstractItemModelTester swimmers(screen.SwimmerModel(),
                                    QAbstractItemModelTester::FailureReportingMode::Warning);
  QAbstractItemModelTester grid(screen.GridModel(),
                                QAbstractItemModelTester::FailureReportingMode::Warning);
  EntryGridModel& model = *screen.GridModel();
  // "Banks" sorts first; a boy of 11 sees his events and the mixed one.
  ASSERT_EQ(model.rowCount(), 3);
  EXPECT_EQ(model.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), "Best Time");
  EXPECT_EQ(model.data(model.index(0, EntryGridModel::kBestTime), Qt::DisplayRole).toString(),
            "31.50Y");
  EXPECT_EQ(model.data(model.index(1, EntryGridModel::kBestTime), Qt::DisplayRole).toString(),
            "NT");
  ASSERT_TRUE(
      model.setData(model.index(0, EntryGridModel::kEntered), Qt::Checked, Qt::CheckStateRole));
  EXPECT_EQ(Count("SELECT Score FROM ENTRY WHERE Athlete = 2 AND Meet = 5"),
            3150);
  EXPECT_EQ(model.data(model.index(0, EntryGridModel::kCustomTime), Qt::DisplayRole).toString(),
            "31.50");
  EXPECT_EQ(model.data(model.index(0, EntryGridModel::kEntered), Qt::CheckStateRole).toInt(),
            Qt::Checked);
  test::Shoot(screen, "frmEntNa");
  QSignalSpy refused(&model, &EntryGridModel::TimeRefused);
  EXPECT_FALSE(model.setData(model.index(0, EntryGridModel::kCustomTime), "fast", Qt::EditRole));
  EXPECT_EQ(refused.count(), 1);
  EXPECT_TRUE(t.io.Saw("Invalid Entry"));
  ASSERT_TRUE(model.setData(model.index(0, EntryGridModel::kCustomTime), "30.99", Qt::EditRole));
  EXPECT_EQ(Count("SELECT Score FROM ENTRY WHERE Athlete = 2 AND Meet = 5"),
            3099);
  ASSERT_TRUE(
      model.setData(model.index(0, EntryGridModel::kEntered), Qt::Unchecked, Qt::CheckStateRole));
  EXPECT_EQ(Count("SELECT count(*) FROM ENTRY"), 0);
  // The other swimmer: a girl sees the mixed event only.
  screen.SelectSwimmer(1);
  EXPECT_EQ(model.rowCount(), 1);
  t.io.shown.clear();
  screen.findChild<QPushButton*>("cmdHelp")->click();
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_NE(t.io.shown[0].text.find("Custom Time"), std::string::npos);
  frmEntNa empty(t.state, 6);  // a meet without entry events is not shown
  EXPECT_FALSE(empty.Ready());
  EXPECT_TRUE(t.io.Saw("You must have at least one event defined before you can do entries."));
}

class FavoritesScreen : public test::DbTest {
 protected:
  void SetUp() override {
    test::QtApp();
    t.io.shown.clear();
  }
};

TEST_F(FavoritesScreen, AddSetDefaultDeleteAndLeave) {
  frmFav screen(t.state);
  QAbstractItemModelTester tester(screen.Model(),
                                  QAbstractItemModelTester::FailureReportingMode::Warning);
  // The box is answered twice: first a name already taken, then a new one.
  int runs = 0;
  screen.SetDialogRunner([&](QDialog& box) {
    ++runs;
    box.findChild<QLineEdit*>("txtFavName")->setText(runs == 2 ? "summer " : "Summer");
    auto* type = box.findChild<QComboBox*>("cboMeetType");
    type->setCurrentIndex(type->findData("AG"));
    auto* course = box.findChild<QComboBox*>("cboCourse");
    course->setCurrentIndex(course->findText("LCM"));
    if (runs == 3) {
      box.findChild<QLineEdit*>("txtFavName")->setText("Winter");
    }
    return runs == 4 ? QDialog::Rejected : QDialog::Accepted;
  });
  screen.AddFavorite();  // run 1 saves "Summer"
  ASSERT_EQ(screen.Model()->rowCount(), 1);
  screen.AddFavorite();  // run 2 is refused, run 3 saves "Winter"
  EXPECT_TRUE(t.io.Saw("This Filter name already exists.  Please choose another."));
  ASSERT_EQ(screen.Model()->rowCount(), 2);
  screen.AddFavorite();  // run 4 is cancelled
  EXPECT_EQ(screen.Model()->rowCount(), 2);
  screen.View()->selectRow(0);
  screen.SetDefault();
  EXPECT_EQ(t.state.gFavorite, "Summer");
  EXPECT_EQ(t.state.gFavoriteMeetType, "AG");
  EXPECT_EQ(t.state.gFavoriteCourse, "LCM");
  EXPECT_TRUE(screen.Model()
                  ->data(screen.Model()->index(0, 0), Qt::DisplayRole)
                  .toString()
                  .startsWith("Summer"));
  test::Shoot(screen, "frmFav");
  t.io.Script({Answer::kYes});
  screen.DeleteFavorite();
  EXPECT_EQ(screen.Model()->rowCount(), 1);
  EXPECT_EQ(t.state.gFavorite, "");
  t.io.shown.clear();
  screen.findChild<QPushButton*>("cmdHelp")->click();
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_NE(t.io.shown[0].text.find("Heart"), std::string::npos);
  // No default: Yes keeps the screen open to choose one, No lets it go.
  screen.show();
  t.io.Script({Answer::kYes});
  screen.reject();
  EXPECT_TRUE(screen.isVisible());
  t.io.Script({Answer::kNo});
  screen.reject();
  EXPECT_FALSE(screen.isVisible());
}

TEST_F(FavoritesScreen, TheEditBoxOffersNoneAndTheCourseWords) {
  frmFavEdit box(t.state, {0, "Club", "", "SCM"});
  test::Shoot(box, "frmFavEdit");
  auto* course = box.findChild<QComboBox*>("cboCourse");
  QStringList words;
  for (int i = 0; i < course->count(); ++i) words << course->itemText(i);
  EXPECT_EQ(words, (QStringList{"None", "Yards", "SCM", "LCM"}));
  const Favorite values = box.Values();
  EXPECT_EQ(values.meet_type, "");
  EXPECT_EQ(values.course, "SCM");
}

}  // namespace
}  // namespace kvlr
