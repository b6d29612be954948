#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include "ResultsFixture.h"
#include "meets/EntryWriter.h"
#include "meets/ResultWriter.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::Ranks;
using test::ResultRow;
using test::Texts;

class Writers : public test::QuietDbTest {
 protected:
  void SetUp() override { t.state.gCurrentMeet = 3; }
  // The one result of an event number; 0 when there is none.
  int64_t ResultOf(int32_t mt_event, std::string_view i_r = "I") {
    SQLite::Statement q(Db(), "SELECT RESULT FROM RESULT WHERE MTEVENT = ? AND I_R = ?");
    q.bind(1, mt_event);
    q.bind(2, std::string(i_r));
    return q.executeStep() ? q.getColumn(0).getInt64() : 0;
  }
  // A row of swimmer 1 in the current meet's event 40.
  int64_t Existing(int32_t score = 6000, std::string course = "Y", int rank = 0) {
    ResultRow r;
    r.meet = 3;
    r.mt_event = 40;
    r.stroke = 2;
    r.score = score;
    r.course = std::move(course);
    r.rank = rank;
    return results.Add(r);
  }
  test::ResultTable results{Db()};
  // Event 40 of meet 3, 100 of stroke 2 in yards.
  MtEventRec event{3, "Y", 100, 2, 40, "I"};
};

TEST_F(Writers, ANewTimeTakesTheEventAndIsRanked) {
  ResultRow older;
  older.stroke = 2;
  older.score = 6500;
  older.rank = 1;
  const int64_t old_swim = results.Add(older);
  MtEventRec elsewhere = event;
  elsewhere.meet = 9;  // the new row's meet is the event's, not the current one
  ASSERT_TRUE(UpdateResultScore(t.state, 6400, "", 0, "X", "P", elsewhere, "I", 13, 1));
  const int64_t id = ResultOf(40);
  EXPECT_EQ(results.Texts(id, {"MEET", "ATHLETE", "AGE", "SCORE", "NT", "DISTANCE", "STROKE",
                               "COURSE", "F_P", "EX", "PLACE"}),
            (Texts{"9", "1", "13", "6400", "0", "100", "2", "Y", "P", "X", "0"}));
  EXPECT_EQ(results.Ranks({id, old_swim}), (Ranks{1, 2}));
  // A non-time: the code with Score 0, ranked 999.
  event.mt_event = 41;
  ASSERT_TRUE(UpdateResultScore(t.state, 6400, "", 5, "", "F", event, "I", 13, 1));
  EXPECT_EQ(results.Texts(ResultOf(41), {"NT", "SCORE", "RANK"}), (Texts{"5", "0", "999"}));
}

TEST_F(Writers, AnEditKeepsPlaceAgeAndWhatTheRowWasMadeWith) {
  const int64_t id = Existing(7000);
  Db().exec("UPDATE RESULT SET PLACE = 4");
  MtEventRec changed = event;
  changed.distance = 200;
  ASSERT_TRUE(UpdateResultScore(t.state, 6900, "S", 0, "", "F", changed, "I", 14, 1));
  EXPECT_EQ(results.Texts(id, {"SCORE", "COURSE", "EX", "PLACE", "AGE", "DISTANCE"}),
            (Texts{"6900", "S", "", "4", "12", "100"}));
  EXPECT_EQ(results.Count(), 1);
}

TEST_F(Writers, ANonTimeOverATimeLosesTheTimeButKeepsTheCourse) {
  const int64_t id = Existing(6000, "L");
  ASSERT_TRUE(UpdateResultScore(t.state, 0, "", 5, "", "F", event, "I", 12, 1));
  EXPECT_EQ(results.Texts(id, {"NT", "SCORE", "COURSE"}), (Texts{"5", "0", "L"}));
  // Releasing it with the tick then leaves an empty row.
  ASSERT_TRUE(UpdateResultDQ(t.state, "", false, "F", event, 12, 1));
  EXPECT_EQ(results.Texts(id, {"NT", "SCORE"}), (Texts{"0", "0"}));
}

TEST_F(Writers, ATypedCourseRanksOnlyItsNewGroup) {
  const int64_t moved = Existing(6000, "Y", 1);
  ResultRow r;
  r.stroke = 2;
  r.score = 6100;
  r.rank = 2;
  const int64_t stays = results.Add(r);
  ASSERT_TRUE(UpdateResultScore(t.state, 6600, "L", 0, "", "F", event, "I", 12, 1));
  EXPECT_EQ(results.Texts(moved, {"COURSE"}), Texts{"L"});
  EXPECT_EQ(results.Ranks({moved, stays}), (Ranks{1, 2}));  // the yards group keeps its gap
}

TEST_F(Writers, AGoalIsMarkedAndNeverRanked) {
  ResultRow r;
  r.stroke = 2;
  r.rank = 5;  // stale, and left so
  const int64_t swim = results.Add(r);
  MtEventRec goal = event;
  goal.i_r = "G";
  ASSERT_TRUE(UpdateResultScore(t.state, 5000, "", 0, "", "F", goal, "G", 12, 1));
  EXPECT_EQ(results.Texts(ResultOf(40, "G"), {"RANK", "TRANK"}), (Texts{"-1", "-1"}));
  EXPECT_EQ(results.Int(swim, "RANK"), 5);
}

TEST_F(Writers, NoRowIsAddedWithoutSwimmerMeetOrEvent) {
  struct Case {
    const char* name;
    int32_t athlete, current_meet, mt_event;
  };
  for (const Case& c : {Case{"no swimmer", 0, 3, 40}, Case{"no current meet", 1, 0, 40},
                        Case{"no event", 1, 3, 0}}) {
    SCOPED_TRACE(c.name);
    t.io.shown.clear();
    t.state.gCurrentMeet = c.current_meet;
    event.mt_event = c.mt_event;
    EXPECT_FALSE(UpdateResultScore(t.state, 6000, "", 0, "", "F", event, "I", 12, c.athlete));
    EXPECT_FALSE(UpdateResultDQ(t.state, "", true, "F", event, 12, c.athlete));
    EXPECT_FALSE(
        UpdateEntryScore(t.state, 6000, "Y", event.mt_event, "I", false, "", "", c.athlete));
    EXPECT_EQ(results.Count(), 0);
    EXPECT_EQ(test::QueryNumber(Db(), "SELECT count(*) FROM ENTRY"), 0);
    ASSERT_EQ(t.io.shown.size(), 3u);
    EXPECT_EQ(t.io.shown[0].text, "Can't add result");
    EXPECT_EQ(t.io.shown[1].text, "Can't add result");
    EXPECT_EQ(t.io.shown[2].text, "Can't add Entry");
  }
}

TEST_F(Writers, AFailedWriteIsReportedAndChangesNothing) {
  const int64_t id = Existing(6000);
  t.io.Script({Answer::kAbort});
  EXPECT_FALSE(UpdateResultScore(t.state, 5000, "", 0, "XX", "F", event, "I", 12, 1));
  EXPECT_EQ(t.state.gErrorSource, "basUtil.UpdateResultScore");
  EXPECT_EQ(results.Int(id, "SCORE"), 6000);
}

TEST_F(Writers, DisqualificationKeepsTheTimeOrAddsARowOfTheEventsKind) {
  const int64_t id = Existing(6100);
  ASSERT_TRUE(UpdateResultDQ(t.state, "", true, "F", event, 12, 1));
  EXPECT_EQ(results.Texts(id, {"NT", "SCORE"}), (Texts{"5", "6100"}));
  ASSERT_TRUE(UpdateResultDQ(t.state, "", false, "F", event, 12, 1));
  EXPECT_EQ(results.Texts(id, {"NT", "SCORE"}), (Texts{"0", "6100"}));
  // Without a row, one of the event's kind is added.
  event.mt_event = 42;
  MtEventRec lead_off = event;
  lead_off.i_r = "L";
  ASSERT_TRUE(UpdateResultDQ(t.state, "S", true, "P", lead_off, 11, 1));
  EXPECT_EQ(results.Texts(ResultOf(42, "L"), {"NT", "SCORE", "COURSE", "F_P", "AGE"}),
            (Texts{"5", "0", "S", "P", "11"}));
  // Without the tick NT and Score are as the table makes them.
  event.mt_event = 43;
  ASSERT_TRUE(UpdateResultDQ(t.state, "", false, "F", event, 11, 1));
  EXPECT_EQ(results.Texts(ResultOf(43), {"NT", "SCORE", "COURSE"}), (Texts{"0", "Null", "Y"}));
}

TEST_F(Writers, APlaceNeedsAnIndividualResultOfTheRound) {
  const int64_t id = Existing(6000, "Y", 3);
  UpdateResultPlace(t.state, 2, "P", event, 1);
  EXPECT_EQ(t.io.shown.size(), 1u);
  EXPECT_TRUE(t.io.Saw("You must enter a result before assigning a place."));
  UpdateResultPlace(t.state, 2, "F", event, 1);
  EXPECT_EQ(results.Texts(id, {"PLACE", "RANK"}), (Texts{"2", "3"}));
  EXPECT_EQ(t.io.shown.size(), 1u);
}

class Entries : public Writers {
 protected:
  // Course, Score, Misc, Ex of swimmer 1's entry in an event; empty when none.
  Texts Entry(int32_t mt_event) {
    SQLite::Statement q(Db(),
                        "SELECT Course, Score, Misc, Ex FROM ENTRY WHERE Meet = ? AND MtEvent = ? "
                        "AND Athlete = 1 AND I_R = 'I'");
    q.bind(1, t.state.gCurrentMeet);
    q.bind(2, mt_event);
    if (!q.executeStep()) return {};
    return {q.getColumn(0).getString(), q.getColumn(1).getString(), q.getColumn(2).getString(),
            q.getColumn(3).getString()};
  }
  int Count() { return Db().execAndGet("SELECT count(*) FROM ENTRY").getInt(); }
};

TEST_F(Entries, NewEntriesHoldATimeOrNone) {
  ASSERT_TRUE(AddNewEntry(t.state, 6500, "Y", 40, "I", false, "", "X", 1));
  ASSERT_TRUE(AddNewEntry(t.state, 6500, "Y", 41, "I", true, "", "", 1));
  EXPECT_EQ(Entry(40), (Texts{"Y", "6500", "", "X"}));
  EXPECT_EQ(Entry(41), (Texts{"Y", "0", "N", ""}));
  // A second entry of the key is a failure.
  t.io.Script({Answer::kAbort});
  EXPECT_FALSE(AddNewEntry(t.state, 6400, "Y", 40, "I", false, "", "", 1));
  EXPECT_EQ(t.state.gErrorSource, "basUtil.AddNewEntry");
  EXPECT_EQ(Entry(40), (Texts{"Y", "6500", "", "X"}));
}

TEST_F(Entries, UpdateAddsWhenThereIsNoEntry) {
  ASSERT_TRUE(UpdateEntryScore(t.state, 6300, "Y", 40, "I", false, "", "", 1));
  EXPECT_EQ(Entry(40), (Texts{"Y", "6300", "", ""}));
  t.io.Script({Answer::kAbort});
  EXPECT_FALSE(UpdateEntryScore(t.state, 6300, "Y", 41, "I", false, "", "XX", 1));
  EXPECT_EQ(t.io.shown.back().text, "Could not add Entry");
  EXPECT_EQ(Count(), 1);
}

TEST_F(Entries, UpdateEditsTimeMiscCourseAndOnlySetsExhibition) {
  ASSERT_TRUE(AddNewEntry(t.state, 6500, "Y", 40, "I", false, "Q", "X", 1));
  ASSERT_TRUE(UpdateEntryScore(t.state, 0, "S", 40, "I", true, "", "", 1));
  EXPECT_EQ(Entry(40), (Texts{"S", "0", "N", "X"}));  // "" doesn't clear Ex
  Db().exec("UPDATE ENTRY SET Ex = ''");
  ASSERT_TRUE(UpdateEntryScore(t.state, 6200, "L", 40, "I", false, "Q", "X", 1));
  EXPECT_EQ(Entry(40), (Texts{"L", "6200", "", "X"}));
  EXPECT_EQ(Count(), 1);
}

}  // namespace
}  // namespace kvlr
