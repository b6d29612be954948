#include "meets/Ranking.h"

#include <gtest/gtest.h>

#include "ResultsFixture.h"
#include "meets/MeetHooks.h"
#include "meets/ResultWriter.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using test::Ranks;
using test::ResultRow;

class Ranking : public test::QuietDbTest {
 protected:
  test::ResultTable results{Db()};
};

// A swim of swimmer 1, 100 of stroke 1.
ResultRow Swim(int32_t score, std::string course = "Y", std::string i_r = "I",
               std::optional<int> nt = 0) {
  ResultRow r;
  r.score = score;
  r.course = std::move(course);
  r.i_r = std::move(i_r);
  r.nt = nt;
  return r;
}

// The whole ranking and the one-group ranking agree on groups that start with a real time.
const std::pair<const char*, bool (*)(AppState&)> kRankers[] = {
    {"whole", [](AppState& s) { return AddRank(s); }},
    {"group", [](AppState& s) { return AddRankForOne(s, 1, 1, 100, "Y"); }}};

TEST_F(Ranking, BothRankingsShareTiesSkipAndGiveNonTimes999) {
  const auto ids =
      results.AddAll({Swim(6000), Swim(6100), Swim(6000), Swim(5900, "Y", "I", 5), Swim(6200)});
  for (const auto& [name, rank] : kRankers) {
    Db().exec("UPDATE RESULT SET RANK = 0");
    ASSERT_TRUE(rank(t.state));
    EXPECT_EQ(results.Ranks(ids), (Ranks{1, 3, 1, 999, 4})) << name;
  }
}

TEST_F(Ranking, BothRankingsSetOnlyTheSameSwimmerDistanceStrokeAndCourseAgainstEachOther) {
  ResultRow other_swimmer = Swim(5000);
  other_swimmer.athlete = 2;
  ResultRow other_distance = Swim(5000);
  other_distance.distance = 200;
  ResultRow other_stroke = Swim(5000);
  other_stroke.stroke = 2;
  const auto mine = results.AddAll({Swim(6000), Swim(5500)});
  results.AddAll(
      {other_swimmer, other_distance, other_stroke, Swim(5000, "L"), Swim(4000, "Y", "N")});
  for (const auto& [name, rank] : kRankers) {
    Db().exec("UPDATE RESULT SET RANK = 0");
    ASSERT_TRUE(rank(t.state));
    EXPECT_EQ(results.Ranks(mine), (Ranks{2, 1})) << name;
  }
}

TEST_F(Ranking, BothRankingsJoinLeadOffLegsToIndividualSwimsOnlyWithUseLeadOff) {
  const auto ids =
      results.AddAll({Swim(6000), Swim(5800, "Y", "L"), Swim(6100), Swim(6200, "Y", "L")});
  for (const auto& [name, rank] : kRankers) {
    t.state.gUseLeadOff = true;
    ASSERT_TRUE(rank(t.state));
    EXPECT_EQ(results.Ranks(ids), (Ranks{2, 1, 3, 4})) << name;
    t.state.gUseLeadOff = false;
    ASSERT_TRUE(rank(t.state));
    EXPECT_EQ(results.Ranks(ids), (Ranks{1, 1, 2, 2})) << name;
  }
}

TEST_F(Ranking, GroupRankingCountsAnLeadOffAsFastAsTheLastIndividualSwimAsATieOfNothing) {
  // The last score isn't reset at the change from 'I' to 'L'.
  const auto ids =
      results.AddAll({Swim(5900), Swim(6000), Swim(6000, "Y", "L"), Swim(6200, "Y", "L")});
  ASSERT_TRUE(AddRankForOne(t.state, 1, 1, 100, "Y"));
  EXPECT_EQ(results.Ranks(ids), (Ranks{1, 2, 0, 2}));
  ASSERT_TRUE(AddRank(t.state));
  EXPECT_EQ(results.Ranks(ids), (Ranks{1, 2, 1, 2}));
}

TEST_F(Ranking, AGroupStartingWithAnEmptyRowStartsDifferentlyInTheTwoRankings) {
  // A row left with Score 0 and NT 0 when a typed DQ is released.
  const auto ids = results.AddAll({Swim(0), Swim(6000), Swim(6100)});
  ASSERT_TRUE(AddRankForOne(t.state, 1, 1, 100, "Y"));
  EXPECT_EQ(results.Ranks(ids), (Ranks{0, 2, 3}));
  ASSERT_TRUE(AddRank(t.state));
  EXPECT_EQ(results.Ranks(ids), (Ranks{1, 2, 3}));
}

TEST_F(Ranking, NullNonTimeCodesCountAsTimesInARunOfTheirOwn) {
  t.state.gUseLeadOff = true;
  // Over two courses the whole ranking restarts where the Null run ends.
  const auto two_courses =
      results.AddAll({Swim(5900, "L", "L", std::nullopt), Swim(5000, "Y", "L", std::nullopt),
                      Swim(6000, "L"), Swim(6100, "L"), Swim(5200, "Y")});
  ASSERT_TRUE(AddRank(t.state));
  EXPECT_EQ(results.Ranks(two_courses), (Ranks{1, 1, 1, 2, 1}));
  // In one course the Null run comes first and the numbers run on.
  ResultRow leg = Swim(5000, "Y", "L", std::nullopt);
  leg.distance = 50;
  ResultRow fast = Swim(4900);
  fast.distance = 50;
  ResultRow slow = Swim(5100);
  slow.distance = 50;
  const auto one_course = results.AddAll({leg, fast, slow});
  ASSERT_TRUE(AddRank(t.state));
  EXPECT_EQ(results.Ranks(one_course), (Ranks{1, 2, 3}));
  ASSERT_TRUE(AddRankForOne(t.state, 1, 1, 50, "Y"));
  EXPECT_EQ(results.Ranks(one_course), (Ranks{1, 2, 3}));
}

TEST_F(Ranking, CoursesAreComparedWithoutCase) {
  const auto ids = results.AddAll({Swim(6000, "y"), Swim(5900, "Y")});
  ASSERT_TRUE(AddRank(t.state));
  EXPECT_EQ(results.Ranks(ids), (Ranks{2, 1}));
  ASSERT_TRUE(AddRankForOne(t.state, 1, 1, 100, "y"));
  EXPECT_EQ(results.Ranks(ids), (Ranks{2, 1}));
}

TEST_F(Ranking, OddStoredValuesKeepTheStoresOrder) {
  // A distance stored as 100.5 sorts after every 100, though the pass reads it as 100.
  const auto ids = results.AddAll({Swim(6000), Swim(5000), Swim(6100)});
  Db().exec("UPDATE RESULT SET DISTANCE = 100.5 WHERE SCORE = 5000");
  ASSERT_TRUE(AddRank(t.state));
  EXPECT_EQ(results.Ranks(ids), (Ranks{1, 3, 2}));
}

TEST_F(Ranking, NonLeadLegsAreNumberedWhateverTheirTimes) {
  const auto y = results.AddAll(
      {Swim(3000, "Y", "N"), Swim(2900, "Y", "N"), Swim(2900, "Y", "N"), Swim(2800, "Y", "N", 5)});
  const auto l = results.AddAll({Swim(3300, "L", "N"), Swim(3200, "L", "N")});
  const auto individual = results.Add(Swim(6000));
  ASSERT_TRUE(AddRankIndividualRelayLeg(t.state));
  EXPECT_EQ(results.Ranks(y), (Ranks{3, 1, 2, 4}));
  EXPECT_EQ(results.Ranks(l), (Ranks{2, 1}));
  EXPECT_EQ(results.Int(individual, "RANK"), 0);  // not its business
  Db().exec("UPDATE RESULT SET RANK = 0 WHERE I_R = 'N'");
  ASSERT_TRUE(AddRankForOneRelayLeg(t.state, 1, 1, 100, "Y"));
  EXPECT_EQ(results.Ranks(y), (Ranks{3, 1, 2, 4}));
  EXPECT_EQ(results.Ranks(l), (Ranks{0, 0}));
}

TEST_F(Ranking, GroupRankingOfAnEventWithNoRowsChangesNothing) {
  const auto id = results.Add(Swim(6000));
  EXPECT_TRUE(AddRankForOne(t.state, 1, 1, 200, "Y"));
  EXPECT_TRUE(AddRankForOneRelayLeg(t.state, 1, 1, 200, "Y"));
  EXPECT_EQ(results.Int(id, "RANK"), 0);
  EXPECT_TRUE(t.io.shown.empty());
}

TEST_F(Ranking, DisqualificationLeavesRanksStaleUntilTheNextRanking) {
  t.state.gCurrentMeet = 1;
  MtEventRec event{1, "Y", 100, 1, 5, "I"};
  MtEventRec other{1, "Y", 100, 1, 6, "I"};
  ASSERT_TRUE(UpdateResultScore(t.state, 6000, "", 0, "", "F", event, "I", 12, 1));
  ASSERT_TRUE(UpdateResultScore(t.state, 6100, "", 0, "", "F", other, "I", 12, 1));
  const int64_t fast = Db().execAndGet("SELECT RESULT FROM RESULT WHERE MTEVENT = 5").getInt64();
  const int64_t slow = Db().execAndGet("SELECT RESULT FROM RESULT WHERE MTEVENT = 6").getInt64();
  ASSERT_EQ(results.Ranks({fast, slow}), (Ranks{1, 2}));
  ASSERT_TRUE(UpdateResultDQ(t.state, "", true, "F", event, 12, 1));
  EXPECT_EQ(results.Ranks({fast, slow}), (Ranks{1, 2}));
  ASSERT_TRUE(AddRank(t.state));
  EXPECT_EQ(results.Ranks({fast, slow}), (Ranks{999, 1}));
  // Released, it needs a new ranking to take its place again.
  ASSERT_TRUE(UpdateResultDQ(t.state, "", false, "F", event, 12, 1));
  EXPECT_EQ(results.Ranks({fast, slow}), (Ranks{999, 1}));
  ASSERT_TRUE(AddRankForOne(t.state, 1, 1, 100, "Y"));
  EXPECT_EQ(results.Ranks({fast, slow}), (Ranks{1, 2}));
}

TEST_F(Ranking, WholeRankingShowsProgressNowAndThenAndClearsItAtTheEnd) {
  std::vector<ResultRow> rows;
  for (int i = 0; i < 500; ++i) rows.push_back(Swim(6000 + i));
  results.AddAll(rows);
  RankCount count;
  ASSERT_TRUE(AddRank(t.state, kUpdatingRankings, &count));
  EXPECT_EQ(count.rows, 500);
  EXPECT_EQ(count.changed, 500);
  ASSERT_GE(t.io.progress.size(), 3u);
  EXPECT_LE(t.io.progress.size(), 102u);
  EXPECT_EQ(t.io.progress.front(), " Updating Result Rankings... 0%");
  EXPECT_EQ(t.io.progress[t.io.progress.size() - 2], " Updating Result Rankings... 100%");
  EXPECT_EQ(t.io.progress.back(), "");
  // Nothing to write the second time.
  ASSERT_TRUE(AddRank(t.state, kUpdatingRankings, &count));
  EXPECT_EQ(count.changed, 0);
}

TEST(RankProgress, LinesCarryTheirPercent) {
  EXPECT_EQ(RankProgressLine(kUpdatingRankings, 40), " Updating Result Rankings... 40%");
  EXPECT_EQ(RankProgressLine(kAdjustingForSinceDate, 7), "Adjusting for Since Date 7%");
  EXPECT_EQ(RankProgressPercent(" Updating Result Rankings... 40%"), 40);
  EXPECT_EQ(RankProgressPercent("Adjusting for Since Date 100%"), 100);
  EXPECT_EQ(RankProgressPercent("Checking System Tables"), std::nullopt);
  EXPECT_EQ(RankProgressPercent("%"), std::nullopt);
}

// A user who asks to stop once the ranking has looked `after` times.
class StoppingUser final : public UserIo {
 public:
  explicit StoppingUser(int after) : after_(after) {}
  Answer Message(std::string_view text, int, std::string_view) override {
    shown.emplace_back(text);
    return Answer::kOk;
  }
  void Progress(std::string_view) override {}
  bool Cancelled() override { return ++asked_ > after_; }
  std::vector<std::string> shown;

 private:
  int after_;
  int asked_ = 0;
};

TEST_F(Ranking, AStoppedWholeRankingKeepsTheRowsDone) {
  std::vector<ResultRow> rows;
  for (int i = 0; i < 10; ++i) rows.push_back(Swim(6000 + i));
  const auto ids = results.AddAll(rows);
  StoppingUser user(4);
  t.state.io = &user;
  EXPECT_FALSE(AddRank(t.state));
  EXPECT_EQ(results.Ranks(ids), (Ranks{1, 2, 3, 4, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(user.shown,
            std::vector<std::string>{"You fastest times may not be correct.  Run Repair."});
  // The stop ended the transaction: the next write is on its own again.
  t.state.io = &t.io;
  EXPECT_TRUE(AddRankForOne(t.state, 1, 1, 100, "Y"));
  EXPECT_EQ(results.Ranks(ids), (Ranks{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(Ranking, AFailedWriteIsDecidedByTheAnswer) {
  struct Case {
    const char* name;
    std::initializer_list<Answer> answers;
    Ranks ranks;
    bool abort_message;
  };
  const Case cases[] = {
      {"abort keeps the rows done", {Answer::kAbort}, {1, 2, 0, 0, 0}, true},
      {"ignore skips the row", {Answer::kIgnore}, {1, 2, 0, 4, 5}, false},
      {"retry then abort", {Answer::kRetry, Answer::kRetry, Answer::kAbort}, {1, 2, 0, 0, 0}, true},
      {"any other answer leaves the old ranks", {Answer::kNo}, {0, 0, 0, 0, 0}, false}};
  std::vector<ResultRow> rows;
  for (int i = 0; i < 5; ++i) rows.push_back(Swim(6000 + i));
  const auto ids = results.AddAll(rows);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Db().exec("DROP TRIGGER IF EXISTS refuse; UPDATE RESULT SET RANK = 0");
    // The store refuses the rank of the third swim.
    Db().exec(
        "CREATE TEMP TRIGGER refuse BEFORE UPDATE OF RANK ON RESULT WHEN new.SCORE = 6002 "
        "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    t.io.shown.clear();
    t.io.Script(c.answers);
    EXPECT_FALSE(AddRank(t.state));
    EXPECT_EQ(results.Ranks(ids), c.ranks);
    EXPECT_EQ(t.state.gErrorSource, "basUtil.AddRank");
    EXPECT_EQ(t.io.Saw("You fastest times may not be correct.  Run Repair."), c.abort_message);
  }
}

class TRanking : public Ranking {
 protected:
  TRanking() {
    results.AddAthlete(1, "Lane");
    results.AddAthlete(2, "Reyes");
    results.AddMeet(1, "2025-01-10", "AG");
    results.AddMeet(2, "2025-06-01", "HS");
    results.AddMeet(3, "2025-09-15", "AG");
    ResultRow r = Swim(6000);
    ids.push_back(results.Add(r));  // 0: meet 1
    r.meet = 2;
    r.score = 5900;
    r.f_p = "P";
    ids.push_back(results.Add(r));  // 1: meet 2, prelim
    r.meet = 3;
    r.score = 5800;
    r.f_p = "F";
    ids.push_back(results.Add(r));  // 2: meet 3
    r.nt = 5;
    r.score = 5000;
    ids.push_back(results.Add(r));  // 3: a non-time
    r = Swim(7000);
    r.athlete = 2;
    r.meet = 2;
    ids.push_back(results.Add(r));  // 4: swimmer 2
    r.athlete = 3;
    ids.push_back(results.Add(r));  // 5: a swimmer the file doesn't know
  }
  std::vector<int64_t> ids;
};

constexpr auto N = std::nullopt;

TEST_F(TRanking, OnlySelectedSwimsAreNumberedTheRestIsNull) {
  const std::pair<TRankSelection, Ranks> cases[] = {
      {{}, {3, 2, 1, N, 1, N}},
      {{.since = {2025, 6, 1}}, {N, 2, 1, N, 1, N}},
      {{.until = {2025, 6, 1}}, {2, 1, N, N, 1, N}},
      {{.since = {2025, 1, 11}, .until = {2025, 9, 14}}, {N, 1, N, N, 1, N}},
      {{.meet_type = "AG"}, {2, N, 1, N, N, N}},
      {{.meet_type = "  "}, {3, 2, 1, N, 1, N}},  // blank is every type
      {{.athlete = 2}, {N, N, N, N, 1, N}},
      {{.f_p = "P"}, {N, 1, N, N, N, N}},
      {{.meet_type = "JV"}, {N, N, N, N, N, N}}};
  for (size_t i = 0; i < std::size(cases); ++i) {
    ASSERT_TRUE(AddTRank(t.state, cases[i].first));
    EXPECT_EQ(results.Ranks(ids, "TRANK"), cases[i].second) << i;
  }
}

TEST_F(TRanking, FirstSelectedSwimWithoutATimeGetsZeroWithUseLeadOff) {
  Db().exec("UPDATE RESULT SET SCORE = 0 WHERE MEET = 1");
  t.state.gUseLeadOff = true;
  ASSERT_TRUE(AddTRank(t.state, {.athlete = 1}));
  EXPECT_EQ(results.Ranks({ids[0], ids[1], ids[2]}, "TRANK"), (Ranks{0, 3, 2}));
  t.state.gUseLeadOff = false;
  ASSERT_TRUE(AddTRank(t.state, {.athlete = 1}));
  EXPECT_EQ(results.Ranks({ids[0], ids[1], ids[2]}, "TRANK"), (Ranks{1, 3, 2}));
}

TEST_F(TRanking, RelayLegsKeepTheirTRank) {
  ResultRow leg = Swim(3000, "Y", "N");
  const auto id = results.Add(leg);
  ASSERT_TRUE(AddTRank(t.state, {}));
  EXPECT_EQ(results.Int(id, "TRANK"), 77);
}

TEST_F(Ranking, RepairsRerankHookRanksSwimsAndLegs) {
  InstallMeetHooks(t.state);
  ASSERT_TRUE(t.state.hooks.rerank_all);
  const auto ids =
      results.AddAll({Swim(6100), Swim(6000), Swim(3000, "Y", "N"), Swim(2900, "Y", "N")});
  t.state.hooks.rerank_all(t.state);
  EXPECT_EQ(results.Ranks(ids), (Ranks{2, 1, 2, 1}));
  EXPECT_EQ(t.io.progress.front(), "Reranking Individual Results... 0%");
}

}  // namespace
}  // namespace kvlr
