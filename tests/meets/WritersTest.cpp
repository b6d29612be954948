#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include "meets/EntryWriter.h"
#include "meets/Ranking.h"
#include "meets/ResultWriter.h"
#include "support/TempHome.h"
#include "ResultRows.h"

namespace kvlr {
namespace {

using test::ResultRow;
using test::Ranks;

struct OpenDatabase {
  explicit OpenDatabase(test::TempHome& t) {
    test::MakeOpenDatabase(t);
    t.io.shown.clear();
    t.state.gCurrentMeet = 3;
  }
};

class Writers : public ::testing::Test {
 protected:
  SQLite::Database& Db() { return *t.state.gDb; }

  // The one result of an event number; 0 when there is none.
  int64_t ResultOf(int32_t mt_event, std::string_view i_r = "I") {
    SQLite::Statement q(Db(), "SELECT RESULT FROM RESULT WHERE MTEVENT = ? AND I_R = ?");
    q.bind(1, mt_event);
    q.bind(2, std::string(i_r));
    return q.executeStep() ? q.getColumn(0).getInt64() : 0;
  }

  test::TempHome t;
  OpenDatabase open_{t};
  test::ResultTable results{*t.state.gDb};
  // An event of meet 3, 100 of stroke 2 in yards.
  MtEventRec event{3, "Y", 100, 2, 40, "I"};
};

TEST_F(Writers, ANewTimeTakesTheEventAndIsRanked) {
  ResultRow older;
  older.meet = 1;
  older.stroke = 2;
  older.score = 6500;
  older.rank = 1;
  const int64_t old_swim = results.Add(older);
  MtEventRec elsewhere = event;
  elsewhere.meet = 9;  // the added row's meet is the event's, not the current one
  ASSERT_TRUE(UpdateResultScore(t.state, 6400, "", 0, "X", "P", elsewhere, "I", 13, 1));
  const int64_t id = ResultOf(40);
  ASSERT_NE(id, 0);
  EXPECT_EQ(results.Int(id, "MEET"), 9);
  EXPECT_EQ(results.Int(id, "ATHLETE"), 1);
  EXPECT_EQ(results.Int(id, "AGE"), 13);
  EXPECT_EQ(results.Int(id, "SCORE"), 6400);
  EXPECT_EQ(results.Int(id, "NT"), 0);
  EXPECT_EQ(results.Int(id, "DISTANCE"), 100);
  EXPECT_EQ(results.Int(id, "STROKE"), 2);
  EXPECT_EQ(results.Text(id, "COURSE"), "Y");
  EXPECT_EQ(results.Text(id, "F_P"), "P");
  EXPECT_EQ(results.Text(id, "EX"), "X");
  EXPECT_EQ(results.Int(id, "PLACE"), 0);
  EXPECT_EQ(results.Ranks({id, old_swim}), (Ranks{1, 2}));
}

TEST_F(Writers, ANewNonTimeStoresTheCodeWithScoreZero) {
  ASSERT_TRUE(UpdateResultScore(t.state, 6400, "", 5, "", "F", event, "I", 13, 1));
  const int64_t id = ResultOf(40);
  EXPECT_EQ(results.Int(id, "NT"), 5);
  EXPECT_EQ(results.Int(id, "SCORE"), 0);
  EXPECT_EQ(results.Int(id, "RANK"), 999);
}

TEST_F(Writers, AnEditedTimeKeepsPlaceAgeAndEvent) {
  ResultRow r;
  r.meet = 3;
  r.mt_event = 40;
  r.stroke = 2;
  r.score = 7000;
  const int64_t id = results.Add(r);
  Db().exec("UPDATE RESULT SET PLACE = 4");
  MtEventRec changed = event;
  changed.distance = 200;  // an event edited since: the row keeps what it was made with
  ASSERT_TRUE(UpdateResultScore(t.state, 6900, "S", 0, "", "F", changed, "I", 14, 1));
  EXPECT_EQ(results.Int(id, "SCORE"), 6900);
  EXPECT_EQ(results.Text(id, "COURSE"), "S");
  EXPECT_EQ(results.Text(id, "EX"), "");
  EXPECT_EQ(results.Int(id, "PLACE"), 4);
  EXPECT_EQ(results.Int(id, "AGE"), 12);
  EXPECT_EQ(results.Int(id, "DISTANCE"), 100);
  EXPECT_EQ(results.Count(), 1);
}

TEST_F(Writers, ANonTimeOverATimeLosesTheTimeButKeepsTheCourse) {
  ResultRow r;
  r.meet = 3;
  r.mt_event = 40;
  r.course = "L";
  const int64_t id = results.Add(r);
  ASSERT_TRUE(UpdateResultScore(t.state, 0, "", 5, "", "F", event, "I", 12, 1));
  EXPECT_EQ(results.Int(id, "NT"), 5);
  EXPECT_EQ(results.Int(id, "SCORE"), 0);
  EXPECT_EQ(results.Text(id, "COURSE"), "L");
  // Releasing the tick then leaves an empty row.
  ASSERT_TRUE(UpdateResultDQ(t.state, "", false, "F", event, 12, 1));
  EXPECT_EQ(results.Int(id, "NT"), 0);
  EXPECT_EQ(results.Int(id, "SCORE"), 0);
}

TEST_F(Writers, ATypedCourseRanksOnlyItsNewGroup) {
  ResultRow r;
  r.meet = 3;
  r.mt_event = 40;
  r.stroke = 2;
  r.score = 6000;
  r.rank = 1;
  const int64_t moved = results.Add(r);
  r.mt_event = 41;
  r.score = 6100;
  r.rank = 2;
  const int64_t stays = results.Add(r);
  ASSERT_TRUE(UpdateResultScore(t.state, 6600, "L", 0, "", "F", event, "I", 12, 1));
  EXPECT_EQ(results.Text(moved, "COURSE"), "L");
  EXPECT_EQ(results.Ranks({moved, stays}), (Ranks{1, 2}));  // the yards group keeps its gap
}

TEST_F(Writers, AGoalIsMarkedAndNeverRanked) {
  ResultRow r;
  r.meet = 3;
  r.stroke = 2;
  r.rank = 5;  // stale, and left so: a goal ranks nothing
  const int64_t swim = results.Add(r);
  MtEventRec goal = event;
  goal.i_r = "G";
  ASSERT_TRUE(UpdateResultScore(t.state, 5000, "", 0, "", "F", goal, "G", 12, 1));
  const int64_t id = ResultOf(40, "G");
  EXPECT_EQ(results.Int(id, "RANK"), -1);
  EXPECT_EQ(results.Int(id, "TRANK"), -1);
  EXPECT_EQ(results.Int(swim, "RANK"), 5);
}

struct Refusal {
  const char* name;
  int32_t athlete;
  int32_t current_meet;
  int32_t mt_event;
};

class WriterRefusals : public Writers, public ::testing::WithParamInterface<Refusal> {
 protected:
  void SetUp() override {
    t.state.gCurrentMeet = GetParam().current_meet;
    event.mt_event = GetParam().mt_event;
  }
};

TEST_P(WriterRefusals, NoRowIsAddedWithoutSwimmerMeetOrEvent) {
  const int32_t athlete = GetParam().athlete;
  EXPECT_FALSE(UpdateResultScore(t.state, 6000, "", 0, "", "F", event, "I", 12, athlete));
  EXPECT_FALSE(UpdateResultDQ(t.state, "", true, "F", event, 12, athlete));
  EXPECT_EQ(results.Count(), 0);
  ASSERT_EQ(t.io.shown.size(), 2u);
  EXPECT_EQ(t.io.shown[0].text, "Can't add result");
  EXPECT_EQ(t.io.shown[1].text, "Can't add result");

  t.io.shown.clear();
  EXPECT_FALSE(UpdateEntryScore(t.state, 6000, "Y", GetParam().mt_event, "I", false, "", "",
                                athlete));
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].text, "Can't add Entry");
}

INSTANTIATE_TEST_SUITE_P(Writers, WriterRefusals,
                         ::testing::Values(Refusal{"NoSwimmer", 0, 3, 40},
                                           Refusal{"NoCurrentMeet", 1, 0, 40},
                                           Refusal{"NoEvent", 1, 3, 0}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(Writers, AFailedWriteIsReportedAndChangesNothing) {
  ResultRow r;
  r.meet = 3;
  r.mt_event = 40;
  const int64_t id = results.Add(r);
  t.io.Script({Answer::kAbort});
  EXPECT_FALSE(UpdateResultScore(t.state, 5000, "", 0, "XX", "F", event, "I", 12, 1));
  EXPECT_EQ(t.state.gErrorSource, "basUtil.UpdateResultScore");
  EXPECT_EQ(results.Int(id, "SCORE"), 6000);
}

TEST_F(Writers, DisqualificationKeepsTheTime) {
  ResultRow r;
  r.meet = 3;
  r.mt_event = 40;
  r.score = 6100;
  const int64_t id = results.Add(r);
  ASSERT_TRUE(UpdateResultDQ(t.state, "", true, "F", event, 12, 1));
  EXPECT_EQ(results.Int(id, "NT"), 5);
  EXPECT_EQ(results.Int(id, "SCORE"), 6100);
  ASSERT_TRUE(UpdateResultDQ(t.state, "", false, "F", event, 12, 1));
  EXPECT_EQ(results.Int(id, "NT"), 0);
  EXPECT_EQ(results.Int(id, "SCORE"), 6100);
}

TEST_F(Writers, DisqualificationAddsARowOfTheEventsKind) {
  MtEventRec lead_off = event;
  lead_off.i_r = "L";
  ASSERT_TRUE(UpdateResultDQ(t.state, "S", true, "P", lead_off, 11, 1));
  const int64_t dq = ResultOf(40, "L");
  ASSERT_NE(dq, 0);
  EXPECT_EQ(results.Int(dq, "NT"), 5);
  EXPECT_EQ(results.Int(dq, "SCORE"), 0);
  EXPECT_EQ(results.Text(dq, "COURSE"), "S");
  EXPECT_EQ(results.Text(dq, "F_P"), "P");
  EXPECT_EQ(results.Int(dq, "AGE"), 11);

  event.mt_event = 41;
  ASSERT_TRUE(UpdateResultDQ(t.state, "", false, "F", event, 11, 1));
  const int64_t plain = ResultOf(41);
  EXPECT_EQ(results.Int(plain, "NT"), 0);
  EXPECT_EQ(results.Int(plain, "SCORE"), std::nullopt);
  EXPECT_EQ(results.Text(plain, "COURSE"), "Y");
}

TEST_F(Writers, APlaceNeedsAnIndividualResultOfTheRound) {
  ResultRow r;
  r.meet = 3;
  r.mt_event = 40;
  r.rank = 3;
  const int64_t id = results.Add(r);
  UpdateResultPlace(t.state, 2, "P", event, 1);
  EXPECT_EQ(t.io.shown.size(), 1u);
  EXPECT_TRUE(t.io.Saw("You must enter a result before assigning a place."));
  UpdateResultPlace(t.state, 2, "F", event, 1);
  EXPECT_EQ(results.Int(id, "PLACE"), 2);
  EXPECT_EQ(results.Int(id, "RANK"), 3);
  EXPECT_EQ(t.io.shown.size(), 1u);
}

class Entries : public Writers {
 protected:
  struct Entry {
    std::string course;
    int64_t score;
    std::string misc;
    std::string ex;
  };
  std::optional<Entry> Find(int32_t mt_event, int32_t athlete) {
    SQLite::Statement q(Db(),
                        "SELECT Course, Score, Misc, Ex FROM ENTRY WHERE Meet = ? AND MtEvent = ? "
                        "AND Athlete = ? AND I_R = 'I'");
    q.bind(1, t.state.gCurrentMeet);
    q.bind(2, mt_event);
    q.bind(3, athlete);
    if (!q.executeStep()) return std::nullopt;
    return Entry{q.getColumn(0).getString(), q.getColumn(1).getInt64(),
                 q.getColumn(2).getString(), q.getColumn(3).getString()};
  }
  int64_t Count() { return Db().execAndGet("SELECT count(*) FROM ENTRY").getInt64(); }
};

TEST_F(Entries, NewEntriesHoldATimeOrNone) {
  ASSERT_TRUE(AddNewEntry(t.state, 6500, "Y", 40, "I", false, "", "X", 1));
  ASSERT_TRUE(AddNewEntry(t.state, 6500, "Y", 41, "I", true, "", "", 1));
  const auto timed = Find(40, 1);
  ASSERT_TRUE(timed);
  EXPECT_EQ(timed->score, 6500);
  EXPECT_EQ(timed->misc, "");
  EXPECT_EQ(timed->ex, "X");
  const auto none = Find(41, 1);
  ASSERT_TRUE(none);
  EXPECT_EQ(none->score, 0);
  EXPECT_EQ(none->misc, "N");
}

TEST_F(Entries, ASecondEntryOfTheKeyIsAFailure) {
  ASSERT_TRUE(AddNewEntry(t.state, 6500, "Y", 40, "I", false, "", "", 1));
  t.io.Script({Answer::kAbort});
  EXPECT_FALSE(AddNewEntry(t.state, 6400, "Y", 40, "I", false, "", "", 1));
  EXPECT_EQ(t.state.gErrorSource, "basUtil.AddNewEntry");
  EXPECT_EQ(Find(40, 1)->score, 6500);
}

TEST_F(Entries, UpdateAddsWhenThereIsNoEntry) {
  ASSERT_TRUE(UpdateEntryScore(t.state, 6300, "Y", 40, "I", false, "", "", 2));
  EXPECT_EQ(Find(40, 2)->score, 6300);
  // A failed add says so.
  t.io.Script({Answer::kAbort});
  EXPECT_FALSE(UpdateEntryScore(t.state, 6300, "Y", 41, "I", false, "", "XX", 2));
  EXPECT_TRUE(t.io.Saw("Could not add Entry"));
  EXPECT_EQ(Count(), 1);
}

TEST_F(Entries, UpdateEditsTimeMiscCourseAndOnlySetsExhibition) {
  ASSERT_TRUE(AddNewEntry(t.state, 6500, "Y", 40, "I", false, "Q", "X", 1));
  ASSERT_TRUE(UpdateEntryScore(t.state, 0, "S", 40, "I", true, "", "", 1));
  auto e = Find(40, 1);
  EXPECT_EQ(e->score, 0);
  EXPECT_EQ(e->misc, "N");
  EXPECT_EQ(e->course, "S");
  EXPECT_EQ(e->ex, "X");  // "" doesn't clear it

  Db().exec("UPDATE ENTRY SET Ex = ''");
  ASSERT_TRUE(UpdateEntryScore(t.state, 6200, "L", 40, "I", false, "Q", "X", 1));
  e = Find(40, 1);
  EXPECT_EQ(e->score, 6200);
  EXPECT_EQ(e->misc, "");
  EXPECT_EQ(e->course, "L");
  EXPECT_EQ(e->ex, "X");
  EXPECT_EQ(Count(), 1);
}

}  // namespace
}  // namespace kvlr
