#include <algorithm>
#include <map>

#include <gtest/gtest.h>

#include "ResultsFixture.h"
#include "meets/Ranking.h"
#include "meets/ResultTexts.h"
#include "meets/ResultsQuery.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

using Ids = std::vector<int64_t>;

// Swimmer 1's season: three meets, individual swims, relay legs, a goal, a dive, a DQ.
class ResultsQuery : public test::QuietDbTest {
 protected:
  void SetUp() override {
    Db().exec("DELETE FROM RESULT; DELETE FROM MEET; DELETE FROM MTEVENT; DELETE FROM ATHLETE");
    s.Athlete(1, "Lane", "F", "2014-03-01", 12);
    s.Athlete(2, "Brook", "F");
    s.Meet(1, "Autumn Open", "2026-10-03", "AG", "Y");
    s.Meet(2, "Winter Champs", "2026-02-14", "HS", "L");
    s.Meet(3, "Spring Splash", "2025-05-10", "AG", "S");
    auto swim = [&](int32_t meet, std::string i_r, int distance, int stroke, std::string course,
                    int32_t score, std::optional<int> rank, int nt = 0) {
      test::Season::Swim w;
      w.meet = meet;
      w.event = s.Event(meet, ++event_no_, distance, stroke, i_r == "I" ? "I" : "R");
      w.i_r = std::move(i_r);
      w.distance = distance;
      w.stroke = stroke;
      w.course = std::move(course);
      w.score = score;
      w.rank = rank;
      w.nt = nt;
      return s.Result(w);
    };
    r1 = swim(1, "I", 100, 1, "Y", 6000, 1);
    r2 = swim(2, "I", 100, 1, "L", 6500, 1);
    r3 = swim(3, "I", 50, 2, "S", 3500, 1);
    r4 = swim(1, "L", 50, 1, "Y", 2800, 1);
    r5 = swim(1, "N", 50, 1, "Y", 2700, 1);
    r6 = swim(2, "G", 100, 1, "L", 6200, -1);
    r7 = swim(1, "I", 100, 1, "", 0, 999, 5);
    r8 = swim(3, "I", 9991, 6, "", 25000, 1);
    r9 = swim(3, "I", 100, 1, "S", 7000, 1);
    r10 = swim(3, "I", 100, 1, "Y", 6100, 2);
    test::Season::Swim other;
    other.athlete = 2;
    other.event = s.Event(1, 99, 100, 1);
    s.Result(other);
  }
  std::vector<ResultRecord> Run(const ResultFilter& f, bool lead_off = false) {
    return RunResults(Db(), PlanResults(f, lead_off, today, kNullDate));
  }
  Ids Sorted(const ResultFilter& f, bool lead_off = false) {
    Ids ids = InOrder(f, lead_off);
    std::sort(ids.begin(), ids.end());
    return ids;
  }
  Ids InOrder(const ResultFilter& f, bool lead_off = false) {
    Ids ids;
    for (const auto& r : Run(f, lead_off)) ids.push_back(r.result);
    return ids;
  }
  static ResultFilter Swimmer1() { return {.athlete = 1}; }
  test::Season s{Db()};
  Date today{2026, 11, 22};
  int event_no_ = 0;
  int64_t r1 = 0, r2 = 0, r3 = 0, r4 = 0, r5 = 0, r6 = 0, r7 = 0, r8 = 0, r9 = 0, r10 = 0;
};

TEST_F(ResultsQuery, KindsOfSwimFollowTheLeadOffOption) {
  struct Case {
    bool lead_off, non_lead, goals;
    Ids want;
  };
  const Ids individual = {r1, r2, r3, r7, r8, r9, r10};
  auto with = [&](Ids more) {
    Ids all = individual;
    all.insert(all.end(), more.begin(), more.end());
    std::sort(all.begin(), all.end());
    return all;
  };
  const Case cases[] = {
      {false, false, false, with({})},        {false, true, false, with({})},
      {true, false, false, with({r4})},       {true, true, false, with({r4, r5})},
      {true, true, true, with({r4, r5, r6})}, {false, false, true, with({r6})},
  };
  for (const auto& c : cases) {
    ResultFilter f = Swimmer1();
    f.show_non_lead = c.non_lead;
    f.show_goals = c.goals;
    EXPECT_EQ(Sorted(f, c.lead_off), c.want)
        << "lead_off " << c.lead_off << " non_lead " << c.non_lead << " goals " << c.goals;
  }
}

TEST_F(ResultsQuery, EachFilterNarrowsTheSwims) {
  struct Case {
    const char* name;
    ResultFilter f;
    Ids want;
    bool filtered;
  };
  const Ids all = {r1, r2, r3, r7, r8, r9, r10};
  const Case cases[] = {
      {"meet", {.athlete = 1, .meet = 1}, {r1, r7}, false},
      // A swim without a course stays when it is a non-time or a dive.
      {"yards", {.athlete = 1, .course = "Y"}, {r1, r7, r8, r10}, false},
      {"short metres", {.athlete = 1, .course = "S"}, {r3, r7, r8, r9}, false},
      {"stroke", {.athlete = 1, .stroke = 2}, {r3}, false},
      {"board", {.athlete = 1, .distance = DistanceFilterValue(11)}, {r8}, false},
      {"distance and course",
       {.athlete = 1, .course = "L", .distance = DistanceFilterValue(3)},
       {r2, r7},
       false},
      {"meet type", {.athlete = 1, .meet_type = "HS"}, {r2}, true},
      {"since", {.athlete = 1, .use_since = true, .since = {2026, 1, 1}}, {r1, r2, r7}, true},
      {"since unticked", {.athlete = 1, .since = {2026, 1, 1}}, all, false},
      {"since after today", {.athlete = 1, .use_since = true, .since = {2027, 1, 1}}, all, false},
  };
  for (const auto& c : cases) {
    Ids want = c.want;
    std::sort(want.begin(), want.end());
    EXPECT_EQ(Sorted(c.f), want) << c.name;
    EXPECT_EQ(PlanResults(c.f, false, today, kNullDate).filtered, c.filtered) << c.name;
  }
}

TEST_F(ResultsQuery, DistanceListEntriesAndCourseTexts) {
  EXPECT_EQ(DistanceFilterValue(0), 0);
  EXPECT_EQ(DistanceFilterValue(1), 25);
  EXPECT_EQ(DistanceFilterValue(10), 1650);
  EXPECT_EQ(DistanceFilterValue(12), 9992);
  EXPECT_EQ(DistanceFilterValue(13), 9993);
  const std::map<std::string, std::string> courses = {{"Yards", "Y"}, {"SCM", "S"}, {"LCM", "L"},
                                                      {"L", "L"},     {"", ""},     {"None", ""}};
  for (const auto& [text, letter] : courses) EXPECT_EQ(CourseLetterOf(text), letter) << text;
}

TEST_F(ResultsQuery, FastestReadsRankAndZeroMeansOne) {
  ResultFilter f = Swimmer1();
  f.fastest = true;
  f.fastest_text = "0";
  EXPECT_EQ(Sorted(f), (Ids{r1, r2, r3, r8, r9}));
  f.fastest_text = "2";
  EXPECT_EQ(Sorted(f), (Ids{r1, r2, r3, r8, r9, r10}));
  EXPECT_FALSE(PlanResults(f, false, today, kNullDate).rank_first);
}

TEST_F(ResultsQuery, FastestOfASelectionRanksItFirstAndReadsTRank) {
  ResultFilter f = Swimmer1();
  f.fastest = true;
  f.meet_type = "AG";
  const ResultsPlan plan = PlanResults(f, false, today, kNullDate);
  ASSERT_TRUE(plan.rank_first);
  EXPECT_EQ(plan.rank_first->meet_type, "AG");
  EXPECT_EQ(plan.rank_first->athlete, 1);
  EXPECT_EQ(plan.rank_first->since, kNullDate);
  EXPECT_EQ(plan.rank_first->until, kNullDate);
  ASSERT_TRUE(AddTRank(t.state, *plan.rank_first));
  const Ids got = Sorted(f);
  // In the AG meets the yards 100 free of meet 3 is second to meet 1's.
  EXPECT_TRUE(std::find(got.begin(), got.end(), r1) != got.end());
  EXPECT_TRUE(std::find(got.begin(), got.end(), r10) == got.end());
  EXPECT_TRUE(std::find(got.begin(), got.end(), r2) == got.end());
  f.meet_type.clear();
  f.use_since = true;
  f.since = Date{2025, 1, 1};
  EXPECT_EQ(PlanResults(f, false, today, kNullDate).rank_first->since, (Date{2025, 1, 1}));
}

TEST_F(ResultsQuery, OrderFollowsSortAndChronological) {
  ResultFilter f = Swimmer1();
  EXPECT_EQ(InOrder(f), (Ids{r1, r10, r2, r9, r7, r3, r8}));
  f.chronological = true;
  EXPECT_EQ(InOrder(f), (Ids{r1, r2, r10, r9, r7, r3, r8}));
  f.fastest = true;      // Fastest overrides the chronological order
  f.fastest_text = "9";  // the DQ, ranked 999, drops out
  EXPECT_EQ(InOrder(f), (Ids{r1, r10, r2, r9, r3, r8}));
  f.fastest = false;
  f.sort = ResultSort::kLastEntered;
  EXPECT_EQ(InOrder(f), (Ids{r10, r9, r8, r7, r3, r2, r1}));
  f.sort = ResultSort::kStartOldest;
  f.chronological = false;
  EXPECT_EQ(InOrder(f), (Ids{r10, r9, r3, r8, r2, r1, r7}));
  f.sort = ResultSort::kMeetName;
  EXPECT_EQ(Run(f).front().meet_name, "Autumn Open");
}

TEST(ResultHeadings, ClicksChangeSortAndHeadings) {
  struct Case {
    int column;
    ResultSort from, to;
    bool untick;
  };
  const Case cases[] = {
      {kColDistance, ResultSort::kStart, ResultSort::kDistance, true},
      {kColStroke, ResultSort::kMeetName, ResultSort::kStroke, true},
      {kColStartDate, ResultSort::kStart, ResultSort::kStartOldest, false},
      {kColStartDate, ResultSort::kStartOldest, ResultSort::kStartNewest, false},
      {kColStartDate, ResultSort::kStartNewest, ResultSort::kStartOldest, false},
      {kColMeet, ResultSort::kStart, ResultSort::kMeetName, false},
      {kColTime, ResultSort::kStroke, ResultSort::kStroke, false},
  };
  for (const auto& c : cases) {
    bool untick = !c.untick;
    EXPECT_EQ(SortAfterHeadingClick(c.column, c.from, untick), c.to) << c.column;
    EXPECT_EQ(untick, c.untick) << c.column;
  }
  EXPECT_EQ(ResultHeadings(ResultSort::kStartNewest)[kColStartDate], "Meet Start (newest first)");
  EXPECT_EQ(ResultHeadings(ResultSort::kStartOldest)[kColStartDate], "Meet Start (oldest first)");
  EXPECT_EQ(ResultHeadings(ResultSort::kMeetName)[kColMeet], "Meet Name");
  EXPECT_EQ(ResultHeadings(ResultSort::kStart)[kColStartDate], "Start Date");
}

TEST(ResultCellsTest, ConversionTarget) {
  struct Case {
    std::optional<char> chosen;
    const char* course;
    bool y2l;
    char want;
  };
  const Case cases[] = {
      {std::nullopt, "Y", true, 'L'}, {std::nullopt, "Y", false, 'L'},
      {std::nullopt, "S", true, 'Y'}, {std::nullopt, "S", false, 'L'},
      {std::nullopt, "L", true, 'Y'}, {std::nullopt, "L", false, 'S'},
      {'S', "Y", true, 'S'},          {std::nullopt, "", true, 0},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ConvertTarget(c.chosen, c.course, c.y2l), c.want) << c.course << c.y2l;
  }
}

TEST(ResultCellsTest, TextsOfARow) {
  const ResultRecord r{.i_r = "L",
                       .f_p = "P",
                       .ex = "X",
                       .course = "Y",
                       .score = 6000,
                       .age = 12,
                       .distance = 100,
                       .stroke = 1,
                       .place = 3,
                       .mt_ev = "12A",
                       .lo_hi = 1112,
                       .meet_name = "Autumn Open",
                       .start = Date{2026, 10, 3},
                       .comment = "felt strong"};
  ResultRecord dq = r;
  dq.score = 0;
  dq.nt = 5;
  dq.ex.clear();
  ResultRecord dive = r;
  dive.distance = 9993;
  dive.stroke = 7;
  dive.score = 25050;
  dive.ex.clear();
  ResultCellOptions options;
  options.show_conversion = true;
  const auto cells = FillResultCells({r, dq, dive}, options, nullptr,
                                     [](int16_t, int32_t score, int16_t, char from, char to) {
                                       EXPECT_EQ(from, 'Y');
                                       EXPECT_EQ(to, 'L');
                                       return score + 1000;
                                     });
  const ResultCells want = {"100",       "Free",        "X 1:00.00Y", "",      "L",  "P",
                            "",          " 1:10.00L",   "12A",        "11-12", "12", "3",
                            "10/03/2026", "Autumn Open", "felt strong"};
  EXPECT_EQ(cells[0], want);
  EXPECT_EQ(cells[1][kColTime], "DQ");
  EXPECT_EQ(cells[1][kColNt], "DQ");
  EXPECT_EQ(cells[1][kColConverted], "");  // no score, nothing to convert
  EXPECT_EQ(cells[2][kColDistance], "Platform");
  EXPECT_EQ(cells[2][kColTime], "250.50");
}

TEST(ResultCellsTest, StandardAgeRule) {
  std::vector<ResultRecord> rows(3);
  rows[0].age = 12;
  rows[1].age = 0;  // takes the age of the row before
  rows[2].age = 14;
  std::vector<int16_t> asked;
  auto lookup = [&](const ResultRecord&, int16_t age) {
    asked.push_back(age);
    return std::string("AA");
  };
  ResultCellOptions options;
  FillResultCells(rows, options, lookup, nullptr);
  EXPECT_TRUE(asked.empty());  // not asked unless shown
  options.show_standards = true;
  auto cells = FillResultCells(rows, options, lookup, nullptr);
  EXPECT_EQ(asked, (std::vector<int16_t>{12, 12, 14}));
  EXPECT_EQ(cells[1][kColStandard], "AA");
  asked.clear();
  options.standards_current_age = true;
  options.current_age = 15;
  FillResultCells(rows, options, lookup, nullptr);
  EXPECT_EQ(asked, (std::vector<int16_t>{15, 15, 15}));
  asked.clear();
  options.current_age = 0;  // no current age: the result's
  FillResultCells(rows, options, lookup, nullptr);
  EXPECT_EQ(asked, (std::vector<int16_t>{12, 12, 14}));
}

TEST_F(ResultsQuery, DeleteAsksThenRemovesSplitsAndReranks) {
  SQLite::Statement split(Db(),
                          "INSERT INTO SPLITS (SplitID, SplitIndex, Split) VALUES (?, 2, 2900)");
  split.bind(1, static_cast<int64_t>(r1));
  split.exec();
  ResultFilter f = Swimmer1();
  auto rows = Run(f);
  const ResultRecord first = rows.front();
  ASSERT_EQ(first.result, r1);
  t.io.Script({Answer::kNo});
  EXPECT_FALSE(DeleteOneResult(t.state, first, "Robin Lane"));
  EXPECT_EQ(Run(f).size(), rows.size());
  ASSERT_EQ(t.io.shown.size(), 1u);
  EXPECT_EQ(t.io.shown[0].title, "Remove Result");
  EXPECT_EQ(t.io.shown[0].text,
            "Warning: This action will remove the selected result and any splits associated "
            "with it.\r\n\r\nEvent: \t100 Free\r\nScore: \t 1:00.00Y\r\nDate: \t10/03/2026\r\n"
            "Meet: \tAutumn Open\r\n\r\nAthlete: \tRobin Lane\r\n\r\nDo you still want to "
            "remove this result?\r\n");
  EXPECT_TRUE(DeleteOneResult(t.state, first, "Robin Lane"));
  EXPECT_EQ(test::QueryNumber(Db(), "SELECT count(*) FROM RESULT WHERE RESULT = ?", r1), 0);
  EXPECT_EQ(test::QueryNumber(Db(), "SELECT count(*) FROM SPLITS"), 0);
  EXPECT_EQ(test::QueryNumber(Db(), "SELECT RANK FROM RESULT WHERE RESULT = ?", r10), 1);
}

TEST(DeleteQuestion, NamesALeadOffAndNextRow) {
  const ResultRecord r{.i_r = "L", .course = "Y", .score = 2800, .distance = 50, .stroke = 1};
  EXPECT_NE(DeleteResultQuestion(r, "", "Pat").find("Event: \t50 Free Relay Lead Off\r\n"),
            std::string::npos);
  EXPECT_EQ(RowAfterDelete(0, 3), 0);
  EXPECT_EQ(RowAfterDelete(1, 3), 1);
  EXPECT_EQ(RowAfterDelete(2, 3), 1);  // past the end: the last
  EXPECT_EQ(RowAfterDelete(0, 1), -1);
}

TEST_F(ResultsQuery, MeetListLeavesOutGoalsAndPseudoMeets) {
  s.Meet(4, "Goals Y", "1990-01-01", "G");
  s.Meet(5, "Pseudo", "1990-01-01", "AG");
  const auto meets = BrowserMeets(Db(), 0);
  ASSERT_EQ(meets.size(), 3u);
  EXPECT_EQ(meets[0].text, "10/03/2026 Autumn Open");
  EXPECT_EQ(meets[2].meet, 3);
}

}  // namespace
}  // namespace kvlr
