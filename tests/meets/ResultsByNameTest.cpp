#include <gtest/gtest.h>

#include "ResultsFixture.h"
#include "meets/ResultTexts.h"
#include "meets/ResultsByName.h"
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

class ResultsByName : public ::testing::Test {
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
  const ResNaEvent& Back() { return events.at(1); }
  ResNaCell Cell(std::string_view f_p = "F") {
    return FetchResNaCell(*t.state.gDb, 7, 1, back, f_p);
  }
  test::TempHome t;
  test::OpenedDatabase open_{t};
  test::Season season{*t.state.gDb};
  int32_t back = 0;
  std::vector<ResNaEvent> events;
};

TEST_F(ResultsByName, ListsActiveSwimmersAndTheirEvents) {
  const auto swimmers = ActiveSwimmers(*t.state.gDb);
  ASSERT_EQ(swimmers.size(), 2u);
  EXPECT_EQ(swimmers[0].last, "Adams");
  EXPECT_EQ(swimmers[1].birth, (Date{2014, 6, 15}));
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[0].mt_ev, "1");
  EXPECT_EQ(Back().mt_event, back);
  EXPECT_EQ(MeetAgeUp(*t.state.gDb, 7), (Date{2026, 10, 1}));
  EXPECT_FALSE(HasRelayEvents(*t.state.gDb, 7, "F"));
  EXPECT_TRUE(HasRelayEvents(*t.state.gDb, 7, "M"));
}

TEST_F(ResultsByName, TypedTimesDqAndCourse) {
  auto enter = [&](std::string_view old_text, std::string_view text, std::string_view f_p = "F") {
    return EnterResultTime(t.state, Back(), f_p, 1, 12, old_text, text);
  };
  EXPECT_TRUE(enter("", "1:05.20").accepted);
  ResNaCell cell = Cell();
  EXPECT_EQ(cell.score, 6520);
  EXPECT_EQ(TimeCellText(cell, 2), " 1:05.20Y");

  // Blank over a time is refused; results are removed in the browser only.
  const TimeCellEdit blank = enter(TimeCellText(cell, 2), "");
  EXPECT_FALSE(blank.accepted);
  EXPECT_EQ(blank.text, " 1:05.20Y");
  EXPECT_TRUE(t.io.Saw(kUseBrowserToDelete));
  EXPECT_EQ(Cell().score, 6520);

  // A typed DQ loses the time; the tick then releases an empty row.
  EXPECT_TRUE(enter(" 1:05.20Y", "dq").accepted);
  cell = Cell();
  EXPECT_EQ(cell.nt, 5);
  EXPECT_EQ(cell.score, 0);
  EXPECT_EQ(TimeCellText(cell, 2), "DQ");
  ASSERT_TRUE(UpdateResultDQ(t.state, "", false, "F", Back().Rec(), 12, 1));
  EXPECT_EQ(TimeCellText(Cell(), 2), "");

  // A course letter is the course of this row only.
  EXPECT_TRUE(enter("", "X1:12.00L", "P").accepted);
  cell = Cell("P");
  EXPECT_EQ(cell.course, "L");
  EXPECT_EQ(TimeCellText(cell, 2), "X 1:12.00L");
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT RANK FROM RESULT WHERE COURSE = 'L'"), 1);

  t.io.shown.clear();
  const TimeCellEdit bad = enter("", "abc", "T");
  EXPECT_FALSE(bad.accepted);
  EXPECT_FALSE(Cell("T").exists);
  EXPECT_FALSE(t.io.shown.empty());
}

}  // namespace
}  // namespace kvlr
