// Goals: the goal meet of each course, the goal rows of a swimmer and what typing writes.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "meets/DefaultEvents.h"
#include "meets/Goals.h"
#include "support/DbTest.h"

namespace kvlr {
namespace {

class Goals : public test::DbTest {
 protected:
  void SetUp() override { t.io.shown.clear(); }
  int32_t AddEvent(int32_t meet, int distance, int stroke, const std::string& sex,
                   const std::string& i_r = "I") {
    SQLite::Statement q(Db(),
                        "INSERT INTO MTEVENT (Meet, MtEv, Lo_Hi, Course, Distance, Stroke, Sex, "
                        "I_R) VALUES (?, ?, 99, 'Y', ?, ?, ?, ?)");
    SQLite::bind(q, meet, ++number_, distance, stroke, sex, i_r);
    q.exec();
    return static_cast<int32_t>(Db().getLastInsertRowid());
  }
  std::string Row(const std::string& sql, int64_t key) {
    SQLite::Statement q(Db(), sql);
    q.bind(1, key);
    return q.executeStep() ? q.getColumn(0).getString() : "<no row>";
  }
  std::vector<std::string> Texts(const std::vector<GoalRow>& rows) {
    std::vector<std::string> out;
    for (const GoalRow& r : rows) out.push_back(r.event_text);
    return out;
  }
  int number_ = 0;
};

TEST_F(Goals, EachCourseGetsItsMeetOnceAndAnyGoalsNamedMeetCounts) {
  const std::pair<char, std::string> meets[] = {
      {'Y', "Goals - Yard Pools/2000-01-01/2000-01-01/Y/G"},
      {'L', "Goals - Long Course Meter Pools/2000-01-01/2000-01-01/L/G"},
      {'S', "Goals - Short Course Meter Pools/2000-01-01/2000-01-01/S/G"}};
  for (const auto& [course, row] : meets) {
    const int32_t meet = GetGoalMeet(t.state, course);
    EXPECT_EQ(GetGoalMeet(t.state, course), meet);  // a second opening finds it
    EXPECT_EQ(Row("SELECT MName || '/' || Start || '/' || End || '/' || Course || '/' || Type "
                  "FROM MEET WHERE Meet = ?",
                  meet),
              row);
  }
  EXPECT_EQ(Count("SELECT count(*) FROM MEET"), 3);
  EXPECT_TRUE(t.io.shown.empty());
  EXPECT_EQ(GoalMeetName('X'), "Goals - Short Course Meter Pools");
  // Only the first five letters count.
  Db().exec("DELETE FROM MEET");
  Db().exec(
      "INSERT INTO MEET (Meet, MName, Start, Course, Type) "
      "VALUES (40, 'GOALSETTERS Invitational', '2026-03-01', 'Y', 'USS')");
  EXPECT_EQ(GetGoalMeet(t.state, 'Y'), 40);
}

TEST_F(Goals, AGoalMeetWithoutEventsGetsItsCoursesDefaults) {
  // A goal meet an older file made without events.
  Db().exec(
      "INSERT INTO MEET (Meet, MName, Start, End, Course, Type) VALUES "
      "(60, 'Goals - Long Course Meter Pools', '2000-01-01', '2000-01-01', 'L', 'G')");
  for (const char course : {'Y', 'S', 'L'}) {
    const int32_t meet = GetGoalMeet(t.state, course);
    const std::vector<GoalRow> girls = LoadGoals(t.state, meet, 1, "F");
    ASSERT_EQ(girls.size(), DefaultEvents(course).size()) << course;
    EXPECT_EQ(LoadGoals(t.state, meet, 1, "M").size(), girls.size()) << course;
    EXPECT_EQ(girls.front().event_text, "50 Free") << course;
    GetGoalMeet(t.state, course);  // a second opening adds nothing
    EXPECT_EQ(LoadGoals(t.state, meet, 1, "F").size(), girls.size()) << course;
  }
  EXPECT_EQ(GetGoalMeet(t.state, 'L'), 60);
}

TEST_F(Goals, AMeetThatCannotBeHadIsReported) {
  Db().exec("DROP TABLE MEET");
  t.io.Script({Answer::kCancel});  // the error box
  EXPECT_EQ(GetGoalMeet(t.state, 'Y'), 0);
  EXPECT_TRUE(t.io.Saw("Problem getting Goal Meet"));
}

TEST_F(Goals, TheGridHoldsTheSwimmersSexByStrokeAndDistance) {
  const int32_t meet = GetGoalMeet(t.state, 'Y');
  Db().exec("DELETE FROM MTEVENT");
  AddEvent(meet, 200, 1, "F");
  AddEvent(meet, 100, 2, "F");
  AddEvent(meet, 50, 1, "F");
  AddEvent(meet, 100, 1, "M");
  AddEvent(meet, 200, 1, "F", "R");
  AddEvent(GetGoalMeet(t.state, 'L'), 100, 1, "F");
  EXPECT_EQ(Texts(LoadGoals(t.state, meet, 1, "F")),
            (std::vector<std::string>{"50 Free", "200 Free", "100 Back"}));
  EXPECT_EQ(Texts(LoadGoals(t.state, meet, 1, "M")), (std::vector<std::string>{"100 Free"}));
}

TEST_F(Goals, ATypedGoalIsAResultOutOfRanking) {
  const int32_t meet = GetGoalMeet(t.state, 'Y');
  Db().exec("DELETE FROM MTEVENT");
  const int32_t event = AddEvent(meet, 100, 2, "F");
  // A real swim whose rank a ranking pass would change.
  Db().exec(
      "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, DISTANCE, STROKE, MTEVENT, RANK, "
      "TRANK, COURSE) VALUES (500, 7, 'I', 7000, 'F', 0, 100, 2, 900, 9, 9, 'Y')");
  t.state.gCurrentMeet = 500;
  std::vector<GoalRow> rows = LoadGoals(t.state, meet, 7, "F");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].result, 0);
  EXPECT_EQ(rows[0].TimeText(), "");
  EXPECT_EQ(GoalCommentHeading(t.state, rows[0]), "");
  EXPECT_TRUE(t.io.Saw("You must add a Goal Time before adding a comment."));
  ASSERT_TRUE(WriteGoal(t.state, rows[0], "1:05.50", 12, 7));
  EXPECT_EQ(t.state.gCurrentMeet, 500);
  EXPECT_NE(rows[0].result, 0);
  EXPECT_EQ(rows[0].TimeText(), "1:05.50");
  EXPECT_EQ(Row("SELECT MEET || '/' || ATHLETE || '/' || I_R || '/' || SCORE || '/' || RANK || '/' "
                "|| TRANK || '/' || MTEVENT || '/' || AGE FROM RESULT WHERE RESULT = ?",
                rows[0].result),
            std::to_string(meet) + "/7/G/6550/-1/-1/" + std::to_string(event) + "/12");
  EXPECT_EQ(Count("SELECT RANK FROM RESULT WHERE MTEVENT = 900"), 9);
  // A second goal replaces the first, and a second reading finds it.
  ASSERT_TRUE(WriteGoal(t.state, rows[0], "1:04.00", 12, 7));
  EXPECT_EQ(Count("SELECT count(*) FROM RESULT WHERE I_R = 'G'"), 1);
  EXPECT_EQ(LoadGoals(t.state, meet, 7, "F")[0].score, 6400);
  // A refused text writes nothing and says why.
  ASSERT_FALSE(WriteGoal(t.state, rows[0], "7.00", 12, 7));
  EXPECT_TRUE(t.io.Saw("Invalid Time"));
  EXPECT_EQ(rows[0].score, 6400);
  // The comment heading needs the goal; the row tells whether a comment is stored.
  EXPECT_EQ(GoalCommentHeading(t.state, rows[0]), "Event: 100 Back Goal - Time: 1:04.00");
  EXPECT_FALSE(rows[0].has_comment);
  SQLite::Statement c(Db(),
                      "INSERT INTO tblComments (Athlete, ResultID, Comment) VALUES (7, ?, ?)");
  SQLite::bind(c, rows[0].result, "Negative split");
  c.exec();
  EXPECT_TRUE(LoadGoals(t.state, meet, 7, "F")[0].has_comment);
}

}  // namespace
}  // namespace kvlr
