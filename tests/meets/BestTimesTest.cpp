// Best times: the rank-1 lookup, the filtered lookup, the best across courses and the texts.

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "meets/BestTimes.h"
#include "meets/ResultsFixture.h"

namespace kvlr {
namespace {

constexpr int16_t kFree = 1;
constexpr int16_t kBack = 2;
constexpr int16_t kIm = 5;

struct Swim {
  int32_t meet = 0;
  int16_t distance = 100;
  int16_t stroke = kBack;
  char course = 'Y';
  int32_t score = 6000;
  int rank = 1;
  std::string i_r = "I";
  std::optional<int> nt = 0;  // nullopt: NULL, as rows nothing wrote it to
  std::string ex{};
  int32_t athlete = 1;
};

class BestTimesTest : public test::DbTest {
 protected:
  void SetUp() override { plain_meet_ = AddMeet("Autumn Open", "2024-10-05"); }
  int32_t AddMeet(const std::string& name, const std::string& start, const std::string& type = "") {
    return test::AddMeetRow(Db(), name, start, "Y", type);
  }
  // Adds a result; its meet is the plain meet unless the swim names one.
  int32_t Add(Swim s) {
    SQLite::Statement q(*state().gDb,
                        "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, EX, NT, DISTANCE, "
                        "STROKE, MTEVENT, RANK, COURSE) VALUES (?, ?, ?, ?, 'F', ?, ?, ?, ?, ?, "
                        "?, ?)");
    SQLite::bind(q, s.meet ? s.meet : plain_meet_, s.athlete, s.i_r, s.score, s.ex,
                 s.nt.value_or(0), s.distance, s.stroke, ++event_, s.rank,
                 std::string(1, s.course));
    if (!s.nt) q.bind(6);
    q.exec();
    return static_cast<int32_t>(state().gDb->getLastInsertRowid());
  }
  void ClearResults() { state().gDb->exec("DELETE FROM RESULT"); }
  AppState& state() { return t.state; }
  BestTimeRec Best(int16_t distance, int16_t stroke, char target) {
    return GetBest(state(), 1, distance, stroke, target, false, null(), null(), "");
  }
  Date null() const { return t.state.gNullDate; }
  int32_t plain_meet_ = 0;
  int event_ = 0;
};

Date D(const char* iso) {
  return *Date::FromIso(iso);
}

// Score, converted time and course of a record.
std::string Seen(const BestTimeRec& r) {
  return std::to_string(r.score) + "/" + std::to_string(r.converted) + "/" + r.course;
}

TEST_F(BestTimesTest, FastPathTakesRankOneOfTheAskedGroupOnly) {
  const int32_t other = AddMeet("Winter Cup", "2024-12-01");
  Add({.score = 5900, .rank = 2});  // stale rank: not looked at
  Add({.meet = other, .score = 6000, .rank = 1});
  Add({.score = 5700, .rank = 999, .nt = 5});
  Add({.score = 5500, .rank = 1, .i_r = "N"});  // relay legs never count
  Add({.score = 5400, .rank = 1, .athlete = 2});
  Add({.course = 'S', .score = 6500, .rank = 1});
  const BestTimeRec y = GetFastestByCourse(state(), 1, 100, kBack, 'Y');
  EXPECT_EQ(Seen(y), "6000/6000/Y");
  EXPECT_EQ(y.meet, other);
  EXPECT_EQ(Seen(GetFastestByCourse(state(), 1, 100, kBack, 'S')), "6500/6500/S");
  EXPECT_EQ(Seen(GetFastestByCourse(state(), 1, 100, kBack, 'L')), "0/0/");
  EXPECT_EQ(GetFastestByCourse(state(), 1, 200, kBack, 'Y').score, 0);
}

TEST_F(BestTimesTest, FilteredPathIgnoresStaleRanksButNeedsATimeOnTheRow) {
  Add({.score = 6100, .rank = 1});
  const int32_t fastest_meet = AddMeet("Spring Open", "2024-04-01");
  // NT Null, as on rows nothing wrote it to, counts as a time.
  Add({.meet = fastest_meet, .score = 5900, .rank = 3, .nt = std::nullopt});
  Add({.score = 5800, .rank = 2, .nt = 5});  // a non-time whose rank wasn't updated
  Add({.score = 0, .rank = 4});
  EXPECT_EQ(GetFastestByCourse(state(), 1, 100, kBack, 'Y').score, 6100);
  const BestTimeRec rec = GetFastestByCourseSQL(state(), 1, 100, kBack, 'Y', null(), null(), "");
  EXPECT_EQ(Seen(rec), "5900/5900/Y");
  EXPECT_EQ(rec.meet, fastest_meet);
  EXPECT_EQ(GetFastestByCourseSQL(state(), 1, 100, kBack, 'S', null(), null(), "").score, 0);
  // An exhibition swim counts.
  state().gDb->exec("UPDATE RESULT SET RANK = 2 WHERE RANK = 1");
  Add({.score = 5000, .rank = 1, .ex = "X"});
  EXPECT_EQ(Best(100, kBack, 'Y').score, 5000);
  EXPECT_EQ(GetFastestByCourseSQL(state(), 1, 100, kBack, 'Y', null(), null(), "").score, 5000);
}

// Lead-off legs: never with the option off; with it on only when strictly faster.
TEST_F(BestTimesTest, LeadOffLegs) {
  struct Case {
    bool lead_off;
    std::optional<int32_t> individual;
    int32_t lead_leg, expected;
    bool from_lead_leg;
  };
  const Case cases[] = {
      {false, 6000, 5900, 6000, false}, {false, std::nullopt, 5900, 0, false},
      {true, 6000, 5900, 5900, true},   {true, 6000, 6000, 6000, false},
      {true, 6000, 6100, 6000, false},  {true, std::nullopt, 5900, 5900, true},
  };
  int n = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(n);
    const int16_t distance = static_cast<int16_t>(50 * ++n);  // one event per case
    const int32_t i_meet = AddMeet("Individual " + std::to_string(n), "2024-05-01");
    const int32_t l_meet = AddMeet("Relay " + std::to_string(n), "2024-05-02");
    if (c.individual) Add({.meet = i_meet, .distance = distance, .score = *c.individual});
    Add({.meet = l_meet, .distance = distance, .score = c.lead_leg, .i_r = "L"});
    state().gUseLeadOff = c.lead_off;
    for (const BestTimeRec& rec :
         {GetFastestByCourse(state(), 1, distance, kBack, 'Y'),
          GetFastestByCourseSQL(state(), 1, distance, kBack, 'Y', null(), null(), ""),
          Best(distance, kBack, 'Y')}) {
      EXPECT_EQ(rec.score, c.expected);
      if (c.expected) {
        EXPECT_EQ(rec.meet, c.from_lead_leg ? l_meet : i_meet);
      }
    }
  }
}

TEST_F(BestTimesTest, OneSwimIsTheBestWhateverTheTarget) {
  const int32_t meet = AddMeet("Summer Champs", "2024-07-20");
  Add({.meet = meet, .score = 6000});  // 100 Back yards
  for (const auto& [target, seen] : {std::pair{'Y', "6000/6000/Y"}, std::pair{'S', "6000/6660/Y"},
                                     std::pair{'L', "6000/6780/Y"}}) {
    const BestTimeRec rec = Best(100, kBack, target);
    EXPECT_EQ(Seen(rec), seen);
    EXPECT_EQ(rec.meet, meet);
    EXPECT_EQ(rec.text, "");
  }
  EXPECT_EQ(Best(200, kBack, 'Y').score, 0);
}

// Yards and metres long events are compared, each converted from its own distance.
TEST_F(BestTimesTest, LongEventsUseTheirOwnDistancePerCourse) {
  struct Case {
    int32_t yards_500;
    int16_t asked;
    char target;
    const char* seen;
  };
  const Case cases[] = {
      // 400 L 4:40.00 to yards: (28000 - 12 * 80) / 0.875 = 309.03
      {31000, 500, 'Y', "28000/30903/L"},
      {31000, 400, 'Y', "28000/30903/L"},
      {30500, 500, 'Y', "30500/30500/Y"},
      // 500 Y 5:00.00 to long course: 30000 * 0.875 + 12 * 80 = 4:32.10
      {30000, 400, 'L', "30000/27210/Y"},
      {30000, 500, 'L', "30000/27210/Y"},
  };
  for (const Case& c : cases) {
    ClearResults();
    Add({.distance = 500, .stroke = kFree, .course = 'Y', .score = c.yards_500});
    Add({.distance = 400, .stroke = kFree, .course = 'L', .score = 28000});
    EXPECT_EQ(Seen(Best(c.asked, kFree, c.target)), c.seen) << c.yards_500 << " " << c.asked;
  }
  // 400 in yards is 500 for freestyle only.
  ClearResults();
  Add({.distance = 400, .stroke = kIm, .course = 'Y', .score = 26000});
  Add({.distance = 500, .stroke = kIm, .course = 'Y', .score = 24000});
  Add({.distance = 400, .stroke = kFree, .course = 'Y', .score = 24000});
  Add({.distance = 500, .stroke = kFree, .course = 'Y', .score = 27000});
  EXPECT_EQ(Best(400, kIm, 'Y').score, 26000);
  EXPECT_EQ(Best(400, kFree, 'Y').score, 27000);
}

TEST(BestLookupDistanceTest, DistanceTable) {
  struct Case {
    int16_t asked;
    int16_t stroke;
    int16_t yards;
    int16_t metres;
  };
  const Case cases[] = {
      {400, kFree, 500, 400},   {400, kIm, 400, 400},      {400, kBack, 400, 400},
      {500, kFree, 500, 400},   {500, kIm, 500, 400},      {800, kFree, 1000, 800},
      {1000, kFree, 1000, 800}, {1500, kFree, 1650, 1500}, {1650, kBack, 1650, 1500},
      {200, kFree, 200, 200},   {50, kFree, 50, 50},       {600, kFree, 600, 600},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.asked);
    EXPECT_EQ(BestLookupDistance(c.asked, c.stroke, 'Y'), c.yards);
    EXPECT_EQ(BestLookupDistance(c.asked, c.stroke, 'S'), c.metres);
    EXPECT_EQ(BestLookupDistance(c.asked, c.stroke, 'L'), c.metres);
  }
}

// A tie after conversion keeps the course met first in Y, S, L; the target isn't preferred.
TEST_F(BestTimesTest, CourseOrderDecidesTies) {
  struct Case {
    int16_t distance, stroke;
    char first_course;
    int32_t first;
    char second_course;
    int32_t second;
    char target;
    const char* seen;
  };
  const Case cases[] = {
      // 100 Back 1:00.00 Y is 1:06.60 S.
      {100, kBack, 'Y', 6000, 'S', 6660, 'S', "6000/6660/Y"},
      {100, kBack, 'Y', 6000, 'S', 6661, 'S', "6000/6660/Y"},
      {100, kBack, 'Y', 6000, 'S', 6659, 'S', "6659/6659/S"},
      // 200 Free 2:00.00 S is 2:03.20 L.
      {200, kFree, 'S', 12000, 'L', 12320, 'L', "12000/12320/S"},
      {200, kFree, 'S', 12000, 'L', 12319, 'L', "12319/12319/L"},
  };
  for (const Case& c : cases) {
    ClearResults();
    Add({.distance = c.distance, .stroke = c.stroke, .course = c.first_course, .score = c.first});
    Add({.distance = c.distance, .stroke = c.stroke, .course = c.second_course, .score = c.second});
    EXPECT_EQ(Seen(Best(c.distance, c.stroke, c.target)), c.seen) << c.second;
  }
}

// Meets of 1, 10 and 20 March with swims of 58.00, 59.00 and 1:00.00.
TEST_F(BestTimesTest, SinceIsIncludedAndUntilExcluded) {
  Add({.meet = AddMeet("March One", "2024-03-01"), .score = 5800, .rank = 1});
  Add({.meet = AddMeet("March Ten", "2024-03-10"), .score = 5900, .rank = 2});
  Add({.meet = AddMeet("March Twenty", "2024-03-20"), .score = 6000, .rank = 3});
  struct Case {
    const char* since;
    const char* until;
    int32_t expected;
  };
  const Case cases[] = {
      {nullptr, nullptr, 5800},        {"2024-03-10", nullptr, 5900},
      {"2024-03-11", nullptr, 6000},   {nullptr, "2024-03-10", 5800},
      {"2024-03-02", "2024-03-10", 0}, {"2024-03-02", "2024-03-11", 5900},
      {"2024-03-21", nullptr, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.since ? c.since : "-") + " " + (c.until ? c.until : "-"));
    const Date since = c.since ? D(c.since) : null();
    const Date until = c.until ? D(c.until) : null();
    EXPECT_EQ(GetFastestByCourseSQL(state(), 1, 100, kBack, 'Y', since, until, "").score,
              c.expected);
    EXPECT_EQ(GetBest(state(), 1, 100, kBack, 'Y', true, since, until, "").score, c.expected);
  }
  // The dates count only with the flag on.
  EXPECT_EQ(GetBest(state(), 1, 100, kBack, 'Y', false, D("2024-03-11"), null(), "").score, 5800);
  EXPECT_EQ(GetBestText(state(), 1, 100, kBack, 'Y', true, D("2024-03-11"), "", true).score, 6000);
  EXPECT_EQ(GetFastestText(state(), 1, 100, kBack, 'Y', true, D("2024-03-11"), "").score, 6000);
}

TEST_F(BestTimesTest, MeetTypeFilter) {
  Add({.meet = AddMeet("School Dual", "2024-02-01", "HS"), .score = 6100, .rank = 2});
  Add({.meet = AddMeet("Club Invite", "2024-02-08", "USS"), .score = 6000, .rank = 1});
  struct Case {
    const char* type;
    int32_t expected;
  };
  for (const Case& c :
       {Case{"HS", 6100}, Case{"hs", 6100}, Case{"USS", 6000}, Case{"", 6000}, Case{"YMC", 0}}) {
    SCOPED_TRACE(c.type);
    EXPECT_EQ(GetFastestByCourseSQL(state(), 1, 100, kBack, 'Y', null(), null(), c.type).score,
              c.expected);
    EXPECT_EQ(GetBest(state(), 1, 100, kBack, 'Y', false, null(), null(), c.type).score,
              c.expected);
    EXPECT_EQ(GetFastestText(state(), 1, 100, kBack, 'Y', false, null(), c.type).score, c.expected);
  }
  // With the date flag off a type alone filters; the dates are left out.
  EXPECT_EQ(
      GetBest(state(), 1, 100, kBack, 'Y', false, D("2025-01-01"), D("2024-01-01"), "HS").score,
      6100);
  EXPECT_EQ(GetFastestText(state(), 1, 100, kBack, 'Y', false, D("2025-01-01"), "HS").score, 6100);
}

TEST_F(BestTimesTest, Texts) {
  Add({.score = 6000});                                 // 100 Back Y
  Add({.distance = 50, .course = 'L', .score = 3150});  // 50 Back L
  struct Case {
    int16_t distance;
    char course;
    bool mark;
    const char* best;
    const char* fastest;
  };
  const Case cases[] = {
      {100, 'Y', true, " 1:00.00Y", " 1:00.00Y"}, {100, 'S', true, " 1:06.60S'", "NT"},
      {100, 'S', false, " 1:06.60S", "NT"},       {100, 'L', true, " 1:07.80L'", "NT"},
      {50, 'L', true, "   31.50L", "   31.50L"},  {200, 'Y', true, "NT", "NT"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.distance) + c.course);
    EXPECT_EQ(GetBestText(state(), 1, c.distance, kBack, c.course, false, null(), "", c.mark).text,
              c.best);
    EXPECT_EQ(GetFastestText(state(), 1, c.distance, kBack, c.course, false, null(), "").text,
              c.fastest);
  }
}

TEST_F(BestTimesTest, FailuresAreReportedAndGiveAnEmptyRecord) {
  Add({.score = 6000});
  BestTimeFinder finder(state());
  ASSERT_EQ(finder.FastestByCourse(1, 100, kBack, 'Y').score, 6000);
  ASSERT_EQ(finder.FastestByCourseSQL(1, 100, kBack, 'Y', null(), null(), "").score, 6000);
  state().gDb->exec("ALTER TABLE RESULT RENAME TO RESULT_AWAY");
  t.io.Script({Answer::kAbort, Answer::kRetry, Answer::kAbort});
  EXPECT_EQ(finder.FastestByCourse(1, 100, kBack, 'Y').score, 0);
  EXPECT_TRUE(t.io.Saw("Error Source: basUtil.GetFastestByCourse\r"));
  const BestTimeRec rec = finder.FastestByCourseSQL(1, 100, kBack, 'Y', null(), null(), "");
  EXPECT_EQ(rec.score, 0);
  EXPECT_EQ(rec.course, "");
  EXPECT_TRUE(t.io.Saw("Error Source: basUtil.GetFastestByCourseSQL"));
  EXPECT_EQ(t.io.shown.size(), 3u);  // Retry ran the lookup once more
  // The kept statements are made again once the table is back.
  state().gDb->exec("ALTER TABLE RESULT_AWAY RENAME TO RESULT");
  EXPECT_EQ(finder.FastestByCourse(1, 100, kBack, 'Y').score, 6000);
  EXPECT_EQ(finder.Best(1, 100, kBack, 'S', false, null(), null(), "").converted, 6660);
  EXPECT_EQ(t.io.shown.size(), 3u);
}

TEST_F(BestTimesTest, NoOpenDatabaseIsAFailureNotACrash) {
  state().gDb.reset();
  t.io.Script({Answer::kAbort, Answer::kAbort, Answer::kAbort});
  const BestTimeRec none = Best(100, kBack, 'Y');
  EXPECT_EQ(none.score, 0);
  EXPECT_EQ(none.converted, 0);
  EXPECT_EQ(t.io.shown.size(), 3u);  // one per course
}

}  // namespace
}  // namespace kvlr
