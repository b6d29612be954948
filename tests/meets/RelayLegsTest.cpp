#include <gtest/gtest.h>

#include "ResultsFixture.h"
#include "meets/RelayLegs.h"
#include "meets/ResultComments.h"
#include "meets/ResultTexts.h"
#include "store/DbVersion.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

TEST(RelayLegValues, LegDistanceStrokeAndTyping) {
  const std::pair<int16_t, int16_t> legs[] = {{200, 50}, {100, 25}, {400, 100},
                                              {150, 38}, {250, 62}, {0, 0}};
  for (auto [relay, leg] : legs) EXPECT_EQ(LegDistance(relay), leg) << relay;

  const std::pair<const char*, int16_t> names[] = {
      {"Female 11-12 200 Free Relay", 1},
      {"Mixed Open 200 Medley Relay", 0},
      {"Male 400 Back Relay", 2},
      {"Breast", 3},
      {"Fly and Free", 4},  // the last word searched wins
  };
  for (auto [name, stroke] : names) EXPECT_EQ(StrokeOfRelayName(name), stroke) << name;

  EXPECT_TRUE(TimeCharactersValid("1:02.34"));
  EXPECT_TRUE(TimeCharactersValid(""));
  EXPECT_FALSE(TimeCharactersValid("29.5a"));
  EXPECT_FALSE(TimeCharactersValid("29 50"));
}

class RelayLegs : public ::testing::Test {
 protected:
  void SetUp() override {
    season.Athlete(1, "Lane", "F");
    season.Meet(5, "Harbor Relays", "2026-09-12", "AG", "LC");
    free_relay = season.Event(5, 3, 200, 1, "R", "F", "L", 1112);
    season.Event(5, 4, 200, 5, "R", "X", "L", 99);
    season.Event(5, 5, 200, 1, "R", "M", "L", 1112);
    season.Event(5, 6, 100, 1, "I", "F", "L", 1112);
  }
  RelayLegInput Leg(std::string i_r, std::string f_p, int16_t stroke, std::string time) {
    RelayLegInput in;
    in.athlete = 1;
    in.meet = 5;
    in.relay = {free_relay, 200, ""};
    in.i_r = std::move(i_r);
    in.f_p = std::move(f_p);
    in.stroke = stroke;
    in.time = std::move(time);
    return in;
  }
  std::string Row() {
    SQLite::Statement q(*t.state.gDb,
                        "SELECT I_R || '/' || F_P || '/' || STROKE || '/' || SCORE || '/' || "
                        "DISTANCE || '/' || COURSE || '/' || IFNULL(RANK, 'Null') FROM RESULT");
    std::string rows;
    while (q.executeStep()) rows += q.getColumn(0).getString() + ";";
    return rows;
  }
  test::TempHome t;
  test::OpenedDatabase open_{t};
  test::Season season{*t.state.gDb};
  int32_t free_relay = 0;
};

TEST_F(RelayLegs, ListShowsTheSexesRelays) {
  const auto relays = RelayEvents(*t.state.gDb, 5, "F");
  ASSERT_EQ(relays.size(), 2u);
  EXPECT_EQ(relays[0].text, "Female 11-12 200 Free Relay");
  EXPECT_EQ(relays[0].distance, 200);
  EXPECT_EQ(relays[1].text, "Mixed Open 200 Medley Relay");
}

TEST_F(RelayLegs, ChecksInOrder) {
  struct Case {
    RelayLegInput in;
    std::vector<std::string> shown;
    RelayLegOutcome outcome;
  };
  const std::vector<Case> cases = {
      {Leg("", "", 0, "x"), {std::string(kSelectLeadOff)}, RelayLegOutcome::kRefused},
      {Leg("L", "", 0, "x"), {std::string(kSelectRound)}, RelayLegOutcome::kRefused},
      {Leg("L", "F", 0, "x"),
       {std::string(kSelectStroke), std::string(kEnterValidTime)},
       RelayLegOutcome::kRefused},
      {Leg("L", "F", 1, "DQ"), {std::string(kEnterValidTime)}, RelayLegOutcome::kRefused},
      {Leg("L", "F", 1, "5.00"), {std::string(kEnterValidTime)}, RelayLegOutcome::kRefused},
  };
  for (const auto& c : cases) {
    t.io.shown.clear();
    EXPECT_EQ(SaveRelayLeg(t.state, c.in), c.outcome) << c.in.time;
    std::vector<std::string> shown;
    for (const auto& s : t.io.shown) shown.push_back(s.text);
    EXPECT_EQ(shown, c.shown) << c.in.i_r << c.in.f_p;
  }
  EXPECT_EQ(Row(), "");
}

TEST_F(RelayLegs, NoStrokeWarnsButSaves) {
  EXPECT_EQ(SaveRelayLeg(t.state, Leg("L", "F", 0, "29.50")), RelayLegOutcome::kSaved);
  EXPECT_TRUE(t.io.Saw(kSelectStroke));
  EXPECT_EQ(Row(), "L/F/0/2950/50/L/1;");
}

TEST_F(RelayLegs, AnyLegOfTheEventAndRoundIsOverwrittenOnlyOnYes) {
  ASSERT_EQ(SaveRelayLeg(t.state, Leg("L", "F", 1, "2950")), RelayLegOutcome::kSaved);
  EXPECT_EQ(Row(), "L/F/1/2950/50/L/1;");

  t.io.Script({Answer::kNo});
  EXPECT_EQ(SaveRelayLeg(t.state, Leg("N", "F", 1, "28.90")), RelayLegOutcome::kKept);
  EXPECT_TRUE(t.io.Saw(kRelayLegExists));
  EXPECT_EQ(Row(), "L/F/1/2950/50/L/1;");

  t.io.Script({Answer::kYes});
  EXPECT_EQ(SaveRelayLeg(t.state, Leg("N", "F", 1, "28.90")), RelayLegOutcome::kSaved);
  EXPECT_EQ(Row(), "N/F/1/2890/50/L/1;");  // ranked among the non-lead legs

  t.io.shown.clear();
  EXPECT_EQ(SaveRelayLeg(t.state, Leg("N", "P", 1, "30.10")), RelayLegOutcome::kSaved);
  EXPECT_TRUE(t.io.shown.empty());  // another round is another row
  EXPECT_EQ(Row(), "N/F/1/2890/50/L/1;N/P/1/3010/50/L/2;");
}

// Legs carry a Null NT, so the ranking numbers them ahead of the individual swims of NT 0;
// older files that stored legs with NT 0 are mended when opened.
TEST_F(RelayLegs, LegsHaveNoNtAndRankApartFromIndividualSwims) {
  t.state.gUseLeadOff = true;
  test::Season::Swim solo;
  solo.meet = 5;
  solo.distance = 50;
  solo.course = "L";
  solo.score = 2900;
  const int64_t individual = season.Result(solo);
  ASSERT_EQ(SaveRelayLeg(t.state, Leg("L", "F", 1, "29.50")), RelayLegOutcome::kSaved);
  EXPECT_EQ(
      test::QueryNumber(*t.state.gDb, "SELECT count(*) FROM RESULT WHERE I_R = 'L' AND NT IS NULL"),
      1);
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT RANK FROM RESULT WHERE I_R = 'L'"), 1);
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT RANK FROM RESULT WHERE RESULT = ?", individual),
            2);

  t.state.gDb->exec("DELETE FROM RESULT");
  struct Case {
    const char* i_r;
    int nt;
    bool null_after;
  };
  const Case cases[] = {{"L", 0, true},  {"N", 0, true},  {"n", 0, true},
                        {"I", 0, false}, {"L", 5, false}, {"R", 0, false}};
  std::vector<int64_t> ids;
  for (const Case& c : cases) {
    test::Season::Swim swim;
    swim.i_r = c.i_r;
    swim.nt = c.nt;
    swim.f_p = std::to_string(ids.size());  // one row each under the unique key
    ids.push_back(season.Result(swim));
  }
  CheckDbVersion(t.state);
  CheckDbVersion(t.state);  // a second opening finds nothing to mend
  for (size_t i = 0; i < ids.size(); ++i) {
    EXPECT_EQ(
        test::QueryNumber(*t.state.gDb, "SELECT NT IS NULL FROM RESULT WHERE RESULT = ?", ids[i]),
        cases[i].null_after ? 1 : 0)
        << cases[i].i_r << cases[i].nt;
  }
}

TEST_F(RelayLegs, CommentsAreOnePerResult) {
  test::Season::Swim swim;
  swim.meet = 5;
  const int64_t id = season.Result(swim);
  EXPECT_EQ(LoadComment(*t.state.gDb, id), std::nullopt);
  SaveComment(*t.state.gDb, id, "good turns");
  EXPECT_EQ(LoadComment(*t.state.gDb, id), "good turns");
  SaveComment(*t.state.gDb, id, std::string(60, 'a'));
  EXPECT_EQ(LoadComment(*t.state.gDb, id), std::string(50, 'a'));
  SaveComment(*t.state.gDb, id, "");
  EXPECT_EQ(LoadComment(*t.state.gDb, id), "");  // an empty row stays
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT count(*) FROM tblComments"), 1);
}

}  // namespace
}  // namespace kvlr
