// The goals screen: its grid under the model tester, a typed goal, and the commands that
// hand a goal to the splits, relay-leg and comment screens.

#include <gtest/gtest.h>

#include <string>

#include <QAbstractItemModelTester>
#include <QPushButton>
#include <QTableView>

#include "standards/GoalsScreen.h"
#include "support/QtApp.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

class GoalsScreen : public test::DbTest {
 protected:
  void SetUp() override {
    test::QtApp();
    t.state.gAthlete = 4;
    t.state.gAthleteSex = "F";
    t.state.gAthleteAge = 13;
    t.state.gAthleteName = "Ada Rivers";
    meet_ = GetGoalMeet(t.state, 'L');
    t.state.gDb->exec("DELETE FROM MTEVENT");
    SQLite::Statement q(*t.state.gDb,
                        "INSERT INTO MTEVENT (Meet, MtEv, Lo_Hi, Course, Distance, Stroke, Sex, "
                        "I_R) VALUES (?, 1, 99, 'L', 100, 1, 'F', 'I'), "
                        "(?, 2, 99, 'L', 200, 4, 'F', 'I')");
    q.bind(1, meet_);
    q.bind(2, meet_);
    q.exec();
    t.io.shown.clear();
  }
  int32_t meet_ = 0;
};

TEST_F(GoalsScreen, TypedGoalsAreStoredAndHandedToTheOtherScreens) {
  frmGoals screen(t.state, 'L');
  ASSERT_TRUE(screen.Ready());
  EXPECT_EQ(screen.Meet(), meet_);
  QAbstractItemModelTester tester(screen.Model(),
                                  QAbstractItemModelTester::FailureReportingMode::Warning);
  GoalGridModel& model = *screen.Model();
  ASSERT_EQ(model.rowCount(), 2);
  EXPECT_EQ(model.data(model.index(0, 0), Qt::DisplayRole).toString(), "100 Free");
  int32_t split_result = 0;
  std::string heading;
  screen.SetOpenSplits([&](int32_t result) { split_result = result; });
  screen.SetOpenComment([&](int32_t, const std::string& h) { heading = h; });
  auto* splits = screen.findChild<QPushButton*>("cmdSplits");
  screen.View()->selectRow(0);
  EXPECT_FALSE(splits->isEnabled());  // no goal yet
  screen.AddComment();
  EXPECT_TRUE(t.io.Saw("You must add a Goal Time before adding a comment."));
  EXPECT_EQ(heading, "");
  ASSERT_TRUE(model.setData(model.index(0, GoalGridModel::kTime), "59.80", Qt::EditRole));
  EXPECT_EQ(model.data(model.index(0, GoalGridModel::kTime), Qt::DisplayRole).toString(), "59.80");
  EXPECT_EQ(
      Count("SELECT RANK FROM RESULT WHERE I_R = 'G' AND ATHLETE = 4"),
      -1);
  EXPECT_TRUE(splits->isEnabled());
  screen.OpenSplits();
  EXPECT_NE(split_result, 0);
  screen.AddComment();
  EXPECT_EQ(heading, "Event: 100 Free Goal - Time: 59.80");
  test::Shoot(screen, "frmGoals");
  t.io.shown.clear();
  EXPECT_FALSE(model.setData(model.index(1, GoalGridModel::kTime), "7", Qt::EditRole));
  EXPECT_TRUE(t.io.Saw("Invalid Time"));
}

}  // namespace
}  // namespace kvlr
