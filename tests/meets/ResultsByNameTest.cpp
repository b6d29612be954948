// Results typed by name: the age rule, the swimmers and events offered, relay legs saved as
// swims, comments, and splits.

#include <gtest/gtest.h>

#include "ResultsFixture.h"
#include "meets/RelayLegs.h"
#include "meets/ResultComments.h"
#include "meets/ResultTexts.h"
#include "meets/ResultsByName.h"
#include "meets/Splits.h"
#include "store/DbVersion.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

TEST(ResultAgeRule, BirthThenStoredAgeThenZero) {
  struct Case {
    std::optional<Date> birth;
    int16_t stored;
    std::optional<Date> meet_age_up, system_age_up;
    int16_t want;
  };
  const Date birth{2014, 6, 15};
  const Case cases[] = {
      {birth, 30, Date{2026, 6, 15}, Date{2026, 1, 1}, 12},  // the meet's date first
      {birth, 30, std::nullopt, Date{2026, 1, 1}, 11},       // else the system's
      {std::nullopt, 13, Date{2026, 6, 15}, std::nullopt, 13},
      {kNullDate, 13, Date{2026, 6, 15}, std::nullopt, 13},  // "no date" is no birth date
      {std::nullopt, 0, Date{2026, 6, 15}, std::nullopt, 0},
      {std::nullopt, -2, std::nullopt, std::nullopt, 0},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ResultAge(c.birth, c.stored, c.meet_age_up, c.system_age_up), c.want) << c.stored;
  }
}

class ResultsByName : public test::QuietDbTest {
 protected:
  void SetUp() override {
    season.Athlete(1, "Lane", "F", "2014-06-15", 12);
    season.Athlete(2, "Adams", "M");
    season.Athlete(3, "Cole", "F", "", 0, true);
    season.Meet(7, "Autumn Open", "2026-10-03", "AG", "Y", "2026-10-01");
    back = season.Event(7, 2, 100, 2, "I", "F", "Y");
    season.Event(7, 1, 50, 1, "I", "X", "Y");
    season.Event(7, 3, 50, 1, "I", "M", "Y");
    season.Event(7, 9, 200, 1, "R", "M", "Y");
    t.state.gCurrentMeet = 7;
    events = IndividualEvents(*t.state.gDb, 7, "F");
  }
  test::Season season{Db()};
  int32_t back = 0;
  std::vector<ResNaEvent> events;
};

TEST_F(ResultsByName, ListsActiveSwimmersAndTheirEvents) {
  const auto swimmers = ActiveSwimmers(*t.state.gDb);
  ASSERT_EQ(swimmers.size(), 2u);
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(std::tie(swimmers[0].last, swimmers[1].birth, events[0].mt_ev, events[1].mt_event),
            std::make_tuple("Adams", Date{2014, 6, 15}, "1", back));
  EXPECT_EQ(MeetAgeUp(*t.state.gDb, 7), (Date{2026, 10, 1}));
  EXPECT_FALSE(HasRelayEvents(*t.state.gDb, 7, "F"));
  EXPECT_TRUE(HasRelayEvents(*t.state.gDb, 7, "M"));
}

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
  for (const char* good : {"1:02.34", ""}) EXPECT_TRUE(TimeCharactersValid(good)) << good;
  for (const char* bad : {"29.5a", "29 50"}) EXPECT_FALSE(TimeCharactersValid(bad)) << bad;
}

class RelayLegs : public test::QuietDbTest {
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
  test::Season season{Db()};
  int32_t free_relay = 0;
};

TEST_F(RelayLegs, ListShowsTheSexesRelaysAndChecksGoInOrder) {
  const auto relays = RelayEvents(*t.state.gDb, 5, "F");
  ASSERT_EQ(relays.size(), 2u);
  EXPECT_EQ(std::tie(relays[0].text, relays[0].distance, relays[1].text),
            std::make_tuple("Female 11-12 200 Free Relay", 200, "Mixed Open 200 Medley Relay"));
  struct Case {
    RelayLegInput in;
    std::vector<std::string> shown;
    RelayLegOutcome outcome;
  };
  const std::vector<Case> cases = {
      {Leg("", "", 0, "x"), {"Please select Leadoff or Non-Leadoff"}, RelayLegOutcome::kRefused},
      {Leg("L", "", 0, "x"), {"Please select Final or Prelim"}, RelayLegOutcome::kRefused},
      {Leg("L", "F", 0, "x"),
       {"Please select a stroke", "Please enter a valid time"},
       RelayLegOutcome::kRefused},
      {Leg("L", "F", 1, "DQ"), {"Please enter a valid time"}, RelayLegOutcome::kRefused},
      {Leg("L", "F", 1, "5.00"), {"Please enter a valid time"}, RelayLegOutcome::kRefused},
  };
  for (const auto& c : cases) {
    t.io.shown.clear();
    EXPECT_EQ(SaveRelayLeg(t.state, c.in), c.outcome) << c.in.time;
    std::vector<std::string> shown;
    for (const auto& s : t.io.shown) shown.push_back(s.text);
    EXPECT_EQ(shown, c.shown) << c.in.i_r << c.in.f_p;
  }
  EXPECT_EQ(Row(), "");
  // No stroke warns but saves.
  EXPECT_EQ(SaveRelayLeg(t.state, Leg("L", "F", 0, "29.50")), RelayLegOutcome::kSaved);
  EXPECT_TRUE(t.io.Saw("Please select a stroke"));
  EXPECT_EQ(Row(), "L/F/0/2950/50/L/1;");
}

TEST_F(RelayLegs, AnyLegOfTheEventAndRoundIsOverwrittenOnlyOnYes) {
  ASSERT_EQ(SaveRelayLeg(t.state, Leg("L", "F", 1, "2950")), RelayLegOutcome::kSaved);
  EXPECT_EQ(Row(), "L/F/1/2950/50/L/1;");
  t.io.Script({Answer::kNo});
  EXPECT_EQ(SaveRelayLeg(t.state, Leg("N", "F", 1, "28.90")), RelayLegOutcome::kKept);
  EXPECT_TRUE(
      t.io.Saw("There is already a Relay leg entered for this event.Do you want to overwrite it?"));
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

TEST(SplitSizes, CountAndStartStep) {
  const std::pair<int, int> counts[] = {{25, 1}, {50, 2}, {100, 4}, {1650, 66}, {37, 1}, {0, 0}};
  for (auto [distance, n] : counts) EXPECT_EQ(SplitCount(distance), n) << distance;
  struct Step {
    int32_t split;
    const char* course;
    int want;
  };
  const Step steps[] = {{25, "Y", 25}, {50, "L", 50}, {100, "S", 100},
                        {0, "L", 100}, {75, "Y", 50}, {0, "", 50}};
  for (const auto& c : steps) EXPECT_EQ(StartSplitStep(c.split, c.course), c.want);
}

// A 200 with 25s at 1, 2, 4, a zero at 6 and the finish.
SplitSheet TwoHundred() {
  SplitSheet sheet(200, 12800);
  sheet.Set(1, 1400);
  sheet.Set(2, 3000);
  sheet.Set(4, 6200);
  sheet.Set(6, 0);
  return sheet;
}

std::vector<SplitPlace> Laps(const SplitSheet& sheet, int step) {
  std::vector<SplitPlace> laps;
  for (int i : sheet.VisiblePlaces(step)) laps.push_back(sheet.Lap(i, step));
  return laps;
}

TEST(SplitLaps, MissingSplitsAreBridgedAtTheSameStep) {
  const SplitSheet sheet = TwoHundred();
  EXPECT_EQ(sheet.VisiblePlaces(50), (std::vector<int>{2, 4, 6, 8}));
  EXPECT_EQ(Laps(sheet, 50), (std::vector<SplitPlace>{3000, 3200, std::nullopt, 6600}));
  EXPECT_EQ(Laps(sheet, 25), (std::vector<SplitPlace>{1400, 1600, std::nullopt, 3200, std::nullopt,
                                                      std::nullopt, std::nullopt, 6600}));
  EXPECT_EQ(Laps(sheet, 100), (std::vector<SplitPlace>{6200, 6600}));
  SplitSheet no_first = sheet;
  no_first.Set(2, std::nullopt);  // nothing earlier: the whole split is the lap
  EXPECT_EQ(no_first.Lap(4, 50), 6200);
}

TEST(SplitEdits, LapsAndSplitsRows) {
  SplitSheet sheet = TwoHundred();
  EXPECT_TRUE(sheet.Edit(2, true, "31.00", 50));  // first visible lap: the split itself
  EXPECT_EQ(sheet.At(2), 3100);
  EXPECT_TRUE(sheet.Edit(4, true, "32.50", 50));  // previous visible split + lap
  EXPECT_EQ(sheet.At(4), 6350);
  EXPECT_FALSE(sheet.Edit(8, true, "30.00", 50));  // the finish isn't moved by its lap
  EXPECT_FALSE(sheet.Edit(8, false, "2:00.00", 50));
  EXPECT_EQ(sheet.At(8), 12800);
  EXPECT_TRUE(sheet.Edit(6, false, "1:35.10", 50));
  EXPECT_EQ(sheet.At(6), 9510);
  EXPECT_EQ(sheet.Lap(8, 50), 3290);
  EXPECT_TRUE(sheet.Edit(6, false, "", 50));
  EXPECT_EQ(sheet.At(6), std::nullopt);
  EXPECT_FALSE(sheet.Edit(9, false, "10.00", 50));
  SplitSheet one_length(25, 1500);  // its one column is first and last
  EXPECT_TRUE(one_length.Edit(1, true, "14.90", 25));
  EXPECT_EQ(one_length.At(1), 1490);
}

class SplitStore : public test::QuietDbTest {
 protected:
  void SetUp() override {
    season.Athlete(1, "Lane", "F");
    test::Season::Swim swim;
    swim.distance = 100;
    swim.score = 6000;
    id = season.Result(swim);
  }
  void AddSplit(int index, std::optional<int32_t> split) {
    SQLite::Statement q(*t.state.gDb,
                        "INSERT INTO SPLITS (SplitID, SplitIndex, Split) VALUES (?, ?, ?)");
    q.bind(1, id);
    q.bind(2, index);
    if (split)
      q.bind(3, *split);
    else
      q.bind(3);
    q.exec();
  }
  using Split4 = std::vector<SplitPlace>;
  // The four places of a fresh sheet of the 100 loaded from the store.
  Split4 Places() {
    SplitSheet sheet(100, 6000);
    sheet.Load(*t.state.gDb, id);
    return {sheet.At(1), sheet.At(2), sheet.At(3), sheet.At(4)};
  }
  test::Season season{Db()};
  int64_t id = 0;
};

TEST_F(SplitStore, LoadFillsPlacesAndTheFinishAndSaveKeepsOnlyTimesAboveZero) {
  SplitSheet sheet(100, 6000);
  sheet.Load(*t.state.gDb, id);
  EXPECT_EQ(Places(), (Split4{std::nullopt, std::nullopt, std::nullopt, 6000}));  // no rows
  EXPECT_FALSE(sheet.Changed());
  AddSplit(3, 4500);  // replaced by the save
  sheet.Edit(2, false, "29.00", 25);
  sheet.Set(1, 0);
  EXPECT_TRUE(sheet.Changed());
  sheet.Save(*t.state.gDb, id);
  sheet.MarkSaved();
  EXPECT_FALSE(sheet.Changed());
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT count(*) FROM SPLITS"), 2);
  EXPECT_EQ(Places(), (Split4{std::nullopt, 2900, std::nullopt, 6000}));
  t.state.gDb->exec("DELETE FROM SPLITS");
  AddSplit(1, 1400);
  AddSplit(2, std::nullopt);
  AddSplit(3, 4400);
  AddSplit(6, 9999);  // past the finish
  EXPECT_EQ(Places(), (Split4{1400, std::nullopt, 4400, 6000}));
}

TEST(SplitTexts, CellsAndCaption) {
  EXPECT_EQ(SplitText(std::nullopt), "");
  EXPECT_EQ(SplitText(6123), "1:01.23");
  EXPECT_EQ(SplitsCaption(100, 2, "P", " 1:05.00Y", "Robin Lane", "Autumn Open"),
            "Event: 100 Back [Prelims] - Time: 1:05.00Y  Robin Lane   Meet: Autumn Open");
  EXPECT_EQ(SplitsCaption(50, 1, "F", "30.00", "Robin Lane", ""),
            "Event: 50 Free [Finals] - Time: 30.00  Robin Lane");
}

}  // namespace
}  // namespace kvlr
