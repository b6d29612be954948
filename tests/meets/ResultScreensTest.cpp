#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

#include "ResultsFixture.h"
#include "meets/CommentsScreen.h"
#include "meets/RelayLegsScreen.h"
#include "meets/ResultTexts.h"
#include "meets/ResultsBrowserScreen.h"
#include "meets/ResultsByNameScreen.h"
#include "meets/SplitsScreen.h"
#include "support/QtApp.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using Tester = QAbstractItemModelTester;
constexpr auto kFatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

class ResultScreens : public test::QuietDbTest {
 protected:
  void SetUp() override {
    test::QtApp();
    season.Athlete(1, "Lane", "F", "2014-06-15", 12);
    season.Meet(7, "Autumn Open", "2026-10-03", "AG", "Y", "2026-10-01");
    back = season.Event(7, 2, 100, 2, "I", "F", "Y");
    relay = season.Event(7, 9, 200, 1, "R", "F", "Y");
    t.state.gAthlete = 1;
    t.state.gAthleteName = "Robin Lane";
    t.state.gUseLeadOff = true;
  }
  test::Season season{Db()};
  int32_t back = 0, relay = 0;
};

// Column of round `f_p` and kind in the event grid.
int ColumnOf(ResNaEventModel& m, int round, ResNaEventModel::CellKind kind) {
  for (int c = 0; c < m.columnCount(); ++c) {
    if (m.ColumnAt(c).round == round && m.ColumnAt(c).kind == kind) return c;
  }
  return -1;
}

TEST_F(ResultScreens, ResNaTimesDqAndPlace) {
  frmResNa screen(t.state, 7);
  Tester swimmers(&screen.Swimmers(), kFatal);
  Tester events(&screen.Events(), kFatal);
  ResNaEventModel& m = screen.Events();
  ASSERT_EQ(m.rowCount(), 1);
  EXPECT_EQ(screen.Age(), 12);
  EXPECT_EQ(m.headerData(5, Qt::Horizontal).toString(), "Final\nTime");
  EXPECT_EQ(m.columnCount(), 5 + 3 + 3 + 3 + 2 + 2);
  using Kind = ResNaEventModel::CellKind;
  const QModelIndex time = m.index(0, ColumnOf(m, 0, Kind::kTime));
  const QModelIndex dq = m.index(0, ColumnOf(m, 0, Kind::kDq));
  const QModelIndex place = m.index(0, ColumnOf(m, 0, Kind::kPlace));
  EXPECT_TRUE(m.setData(time, "1:05.2L"));
  EXPECT_EQ(m.data(time).toString(), " 1:05.20L");  // the course of this row only
  EXPECT_FALSE(m.setData(time, ""));                // blank over a time
  EXPECT_TRUE(t.io.Saw("Please use the Results Browser to Delete a Meet Result."));
  EXPECT_EQ(m.data(time).toString(), " 1:05.20L");
  EXPECT_TRUE(m.setData(dq, Qt::Checked, Qt::CheckStateRole));
  EXPECT_EQ(m.data(dq, Qt::CheckStateRole).toInt(), Qt::Checked);
  EXPECT_EQ(m.data(time).toString(), " 1:05.20L");  // the tick keeps the time
  EXPECT_TRUE(m.setData(dq, Qt::Unchecked, Qt::CheckStateRole));
  EXPECT_TRUE(m.setData(place, "3"));
  EXPECT_EQ(m.data(place).toString(), "3");
  EXPECT_TRUE(m.setData(time, "DQ"));  // typed: the time is lost
  EXPECT_EQ(m.data(time).toString(), "DQ");
  EXPECT_EQ(m.data(dq, Qt::CheckStateRole).toInt(), Qt::Checked);
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT SCORE FROM RESULT"), 0);
  // A text that is no time makes no row.
  t.io.shown.clear();
  EXPECT_FALSE(m.setData(m.index(0, ColumnOf(m, 1, Kind::kTime)), "abc"));
  EXPECT_FALSE(t.io.shown.empty());
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT count(*) FROM RESULT"), 1);
  // A place without a result of the round is refused by the writer.
  t.io.shown.clear();
  m.setData(m.index(0, ColumnOf(m, 1, Kind::kPlace)), "2");
  EXPECT_TRUE(t.io.Saw(kEnterResultBeforePlace));
  screen.EventGrid().setCurrentIndex(m.index(0, 0));
  t.io.shown.clear();
  screen.OpenSplits();
  EXPECT_TRUE(t.io.Saw("You must be in a Time column to show splits."));
  test::Shoot(screen, "frmResNa");
  season.Athlete(2, "Adams", "M");
  frmResNa boys(t.state, 7);
  boys.SelectSwimmer(0);  // Adams: no relay for boys
  boys.OpenRelayLegs();
  EXPECT_TRUE(t.io.Saw(kNoRelayEventsYet));
}

TEST_F(ResultScreens, BrowserFiltersSortsAndColours) {
  const int32_t lead_event = season.Event(7, 10, 200, 1, "R", "F", "Y");
  test::Season::Swim swim;
  swim.meet = 7;
  swim.event = back;
  swim.stroke = 2;
  swim.score = 6500;
  season.Result(swim);
  swim.event = lead_event;
  swim.i_r = "L";
  swim.stroke = 1;
  swim.distance = 50;
  swim.score = 2900;
  season.Result(swim);
  swim.i_r = "N";
  swim.score = 2800;
  season.Result(swim);
  t.state.gFavoriteMeetType = "AG";
  t.state.gFavoriteCourse = "Yards";
  frmResults screen(t.state);
  EXPECT_EQ(screen.Filter().meet_type, "AG");  // the favourite's
  EXPECT_EQ(screen.Filter().course, "Y");
  Tester tester(&screen.Model(), kFatal);
  ResultsBrowserModel& m = screen.Model();
  ASSERT_EQ(m.rowCount(), 2);  // non-lead legs need their tick
  EXPECT_EQ(m.data(m.index(0, kColStroke)).toString(), "Free");
  EXPECT_EQ(m.data(m.index(0, kColIR), Qt::BackgroundRole).value<QBrush>().color(),
            QColor(0xC0, 0xFF, 0xC0));
  EXPECT_TRUE(screen.Grid().isColumnHidden(kColConverted));
  screen.findChild<QCheckBox*>("chkNonLead")->setChecked(true);
  ASSERT_EQ(m.rowCount(), 3);
  EXPECT_EQ(m.data(m.index(0, kColIR), Qt::BackgroundRole).value<QBrush>().color(),
            QColor(0xFF, 0xC0, 0xC0));
  screen.findChild<QCheckBox*>("chkConversion")->setChecked(true);
  EXPECT_FALSE(screen.Grid().isColumnHidden(kColConverted));
  EXPECT_TRUE(m.data(m.index(2, kColConverted)).toString().endsWith("L"));
  screen.findChild<QPushButton*>("SSRibCvt1")->setChecked(true);  // S
  EXPECT_TRUE(m.data(m.index(2, kColConverted)).toString().endsWith("S"));
  screen.findChild<QCheckBox*>("chkChronological")->setChecked(true);
  screen.HeadingClicked(kColDistance);
  EXPECT_FALSE(screen.findChild<QCheckBox*>("chkChronological")->isChecked());
  EXPECT_EQ(screen.Filter().sort, ResultSort::kDistance);
  screen.HeadingClicked(kColStartDate);
  EXPECT_EQ(m.headerData(kColStartDate, Qt::Horizontal).toString(), "Meet Start (oldest first)");
  screen.findChild<QComboBox*>("cboStroke")->setCurrentIndex(2);  // Back
  ASSERT_EQ(m.rowCount(), 1);
  screen.findChild<QComboBox*>("cboStroke")->setCurrentIndex(0);
  screen.LastEnteredFirst();
  EXPECT_EQ(m.Record(0).i_r, "N");
  EXPECT_EQ(screen.CurrentRow(), 0);
  t.io.Script({Answer::kYes});
  screen.DeleteCurrent();
  EXPECT_EQ(m.rowCount(), 2);
  test::Shoot(screen, "frmResults");
}

TEST_F(ResultScreens, SplitsLapEdit) {
  test::Season::Swim swim;
  swim.meet = 7;
  swim.event = back;
  swim.distance = 200;
  swim.score = 12800;
  const int64_t id = season.Result(swim);
  frmSplits screen(t.state, {id, 200, 12800, 0, "Y", "Event: 200 Back"});
  Tester tester(&screen.Model(), kFatal);
  SplitsModel& m = screen.Model();
  EXPECT_EQ(m.columnCount(), 8);
  EXPECT_EQ(screen.Model().Step(), 50);
  EXPECT_TRUE(screen.Grid().isColumnHidden(0));
  EXPECT_FALSE(screen.Grid().isColumnHidden(1));
  EXPECT_TRUE(m.setData(m.index(0, 1), "30.00"));  // split at 50
  EXPECT_TRUE(m.setData(m.index(1, 3), "32.00"));  // lap at 100
  EXPECT_EQ(m.data(m.index(0, 3)).toString(), "1:02.00");
  EXPECT_EQ(m.data(m.index(1, 7)).toString(), "1:06.00");
  EXPECT_FALSE(m.setData(m.index(1, 7), "30.00"));  // the finish stays
  screen.SetStep(100);
  EXPECT_TRUE(screen.Grid().isColumnHidden(1));
  EXPECT_EQ(m.data(m.index(1, 3)).toString(), "1:02.00");
  t.io.Script({Answer::kCancel});
  screen.CancelClicked();
  EXPECT_TRUE(t.io.Saw(kSaveSplitChanges));
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT count(*) FROM SPLITS"), 0);
  EXPECT_TRUE(screen.Save());
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT count(*) FROM SPLITS"), 3);
  test::Shoot(screen, "frmSplits");
}

TEST_F(ResultScreens, RelayLegsAndComments) {
  frmRelayLegs legs(t.state, 7, 1, "F");
  ASSERT_EQ(legs.Relays().count(), 1);
  EXPECT_TRUE(legs.StrokeButton(1).isChecked());
  EXPECT_FALSE(legs.StrokeButton(2).isEnabled());
  legs.NonLead().setChecked(true);
  legs.Final().setChecked(true);
  legs.Time().setText("28.75");
  EXPECT_EQ(legs.Save(), RelayLegOutcome::kSaved);
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT DISTANCE FROM RESULT WHERE I_R = 'N'"), 50);
  test::Shoot(legs, "frmRelayLegs");
  const int64_t id = test::QueryNumber(*t.state.gDb, "SELECT RESULT FROM RESULT");
  frmComments comments(t.state, {id, "50 Free", "Autumn Open", "Robin Lane"});
  comments.Text().setText("smooth exchange");
  EXPECT_TRUE(comments.Save());
  frmComments again(t.state, {id, "50 Free", "Autumn Open", "Robin Lane"});
  EXPECT_EQ(again.Text().text(), "smooth exchange");
  test::Shoot(again, "frmComments");
}

}  // namespace
}  // namespace kvlr
