#include <gtest/gtest.h>

#include "store/WorkoutTables.h"
#include "workouts/WorkoutConvert.h"
#include "workouts/WorkoutLines.h"

namespace kvlr {
namespace {

EnergyArray SeededEnergy() {
  EnergyArray e;
  e[0] = {" ", "Undefined ", 0};
  for (const auto& s : EnergySeeds()) e[static_cast<size_t>(s.energy_no)] = {s.abbr, s.name,
                                                                            static_cast<int16_t>(s.stress_index)};
  return e;
}

WkLine Set(int reps, int dist, int interval, int level, std::string desc = "free") {
  WkLine l;
  l.set_reps = reps;
  l.set_dist = dist;
  l.set_interval = interval;
  l.set_energyno = static_cast<int16_t>(level);
  l.set_desc = std::move(desc);
  return l;
}

WkLine Note(std::string text) {
  WkLine l;
  l.set_note = std::move(text);
  return l;
}

// Circuit fields on a set; lines numbered afterwards.
WkLine In(WkLine l, int line, int tot, int reps) {
  l.wk_type = "C";
  l.circuit_line = static_cast<int16_t>(line);
  l.circuit_tot = static_cast<int16_t>(tot);
  l.circuit_reps = static_cast<int16_t>(reps);
  return l;
}

struct TotalsCase {
  const char* name;
  std::vector<WkLine> lines;
  std::string course;
  long clock;
  int stress;
  long distance;
  std::string end_text;
  std::string end_clock;
};

TEST(WorkoutTotals, WorkedExamplesAndEdges) {
  const std::vector<TotalsCase> cases = {
      {"one set: 8x50 on :40, level 2",
       {Set(8, 50, 40, 2)}, "Y", 57920, 4, 400, " 400 Yards - Stress Value = 4", "4:06 PM"},
      {"rest + 59 floors the next line to 4:07",
       {Set(8, 50, 40, 2), Set(1, 100, 90, 1)}, "Y", 58110, 4, 500,
       " 500 Yards - Stress Value = 4", "4:09 PM"},
      {"circuit 3 x {2x100 on 1:30 L3, 4x50 on 1:00 L2}",
       {In(Set(2, 100, 90, 3), 1, 2, 3), In(Set(4, 50, 60, 2), 2, 2, 3)}, "Y", 57600 + 1260, 18,
       1200, " 1,200 Yards - Stress Value = 18", "4:21 PM"},
      {"meters: 4.4 rounds to 4", {Set(8, 50, 40, 2)}, "M", 57920, 4, 400,
       " 400 Meters - Stress Value = 4", "4:06 PM"},
      {"meters: 5 -> round(5.5) = 6", {Set(5, 100, 90, 2)}, "M", 58050, 6, 500,
       " 500 Meters - Stress Value = 6", "4:08 PM"},
      {"meters: 15 -> round(16.5) = 16", {Set(15, 100, 90, 2)}, "M", 58950, 16, 1500,
       " 1,500 Meters - Stress Value = 16", "4:23 PM"},
      {"notes only", {Note("easy day"), Note("stretch")}, "Y", 57600, 0, 0, " 0 Yards", "4:00 PM"},
      {"distance 0: time, no rest, no stress; next line floors", {Set(3, 0, 50, 5), Set(1, 100, 60, 2)},
       "Y", 57600 + 120 + 60, 1, 100, " 100 Yards - Stress Value = 1", "4:03 PM"},
      {"last real set gets no rest though a note follows", {Set(2, 100, 90, 2), Note("done")}, "Y",
       57780, 2, 200, " 200 Yards - Stress Value = 2", "4:03 PM"},
      {"level 12 adds no stress", {Set(4, 100, 90, 12)}, "Y", 57960, 0, 400, " 400 Yards",
       "4:06 PM"},
      {"an hour-long interval runs the clock in full", {Set(1, 3000, 3700, 2)}, "Y", 61300, 30,
       3000, " 3,000 Yards - Stress Value = 30", "5:02 PM"},
      {"two circuits in a row end at the next circuit_line 1",
       {In(Set(1, 100, 60, 2), 1, 1, 2), In(Set(1, 50, 60, 2), 1, 1, 3)}, "Y",
       57600 + 120 + 119 - 59 + 180, 4, 350, " 350 Yards - Stress Value = 4", "4:06 PM"},
  };
  const EnergyArray energy = SeededEnergy();
  for (auto c : cases) {
    for (size_t i = 0; i < c.lines.size(); ++i) c.lines[i].wk_line = static_cast<int16_t>(i + 1);
    WorkoutLinesParams p;
    p.course = c.course;
    WorkoutLinesResult r;
    ASSERT_TRUE(gGetWorkoutLines(c.lines, p, energy, true, r)) << c.name;
    EXPECT_EQ(r.clock, c.clock) << c.name;
    EXPECT_EQ(r.stress, c.stress) << c.name;
    EXPECT_EQ(r.distance, c.distance) << c.name;
    ASSERT_EQ(r.line_count, static_cast<int>(c.lines.size()) + 1) << c.name;
    EXPECT_EQ(r.lines.back()[wkcol::kText], c.end_text) << c.name;
    EXPECT_EQ(r.lines.back()[wkcol::kClock], c.end_clock) << c.name;
  }
}

TEST(WorkoutTotals, RowTextsAndWriteBack) {
  std::vector<WkLine> lines = {Set(8, 50, 40, 2), In(Set(2, 100, 90, 3), 1, 2, 3),
                               In(Note("easy"), 2, 2, 3), Set(12, 25, 3600, 0)};
  for (size_t i = 0; i < lines.size(); ++i) lines[i].wk_line = static_cast<int16_t>(i + 1);
  WorkoutLinesResult r;
  ASSERT_TRUE(gGetWorkoutLines(lines, WorkoutLinesParams{}, SeededEnergy(), true, r));
  auto cells = [&](size_t row) {
    const auto& x = r.lines[row];
    return x[0] + "|" + x[1] + "|" + x[2] + "|" + x[3] + "|" + x[4] + "|" + x[5] + "|" + x[8] +
           "|" + x[13] + "|" + x[19];
  };
  EXPECT_EQ(cells(0), "1|400|4:00 PM| |8 x 50 on :40 free|EN1|1:20|0|001");
  EXPECT_EQ(cells(1), "2|600|4:07 PM|3x {|2 x 100 on 1:30 free|EN2|1:30|3|002");
  EXPECT_EQ(cells(2), "3| ||{| easy| | |3|003");
  EXPECT_EQ(cells(3), "4|300|4:17 PM| |12 x 25 on 59:59 free| |59:59|0|004");
  EXPECT_EQ(lines[1].tot_yards, 600);
  EXPECT_EQ(lines[1].set_starttime, 967);
  EXPECT_EQ(r.changed, (std::vector<size_t>{0, 1, 3}));

  std::vector<WkLine> none;
  EXPECT_TRUE(gGetWorkoutLines(none, WorkoutLinesParams{}, SeededEnergy(), true, r));
  EXPECT_EQ(r.line_count, 0);
  EXPECT_EQ(r.distance + r.stress + r.clock, 0);
}

TEST(WorkoutTotals, OverflowFails) {
  std::vector<WkLine> big = {Set(70000, 70000, 1, 2)};
  WorkoutLinesResult r;
  EXPECT_FALSE(gGetWorkoutLines(big, WorkoutLinesParams{}, SeededEnergy(), false, r));
  std::vector<WkLine> stress(3, Set(1000, 1000, 1, 6));  // 3 x 100,000 stress
  EXPECT_FALSE(gGetWorkoutLines(stress, WorkoutLinesParams{}, SeededEnergy(), false, r));
}

TEST(WorkoutConverters, Texts) {
  struct {
    long seconds;
    const char* mmss;
    const char* words;
  } times[] = {{40, "0:40", "40 seconds"},        {60, "1:00", "1 minute "},
               {61, "1:01", "1 minute  1 second"}, {125, "2:05", "2 minutes 5 seconds"},
               {3599, "59:59", "59 minutes 59 seconds"}, {3600, "59:59", "1 hour+"}};
  for (const auto& t : times) {
    EXPECT_EQ(gSecondsToMMSS(t.seconds), t.mmss);
    EXPECT_EQ(gSecondsToWords(t.seconds), t.words);
  }
  struct {
    long minutes;
    const char* clock;
    long back;
  } clocks[] = {{960, "04:00 PM ", 960}, {15, "00:15 AM ", 15},   {735, "12:15 PM ", 735},
                {1440 + 61, "01:01 AM ", 61}, {719, "11:59 AM ", 719}};
  for (const auto& c : clocks) {
    EXPECT_EQ(gMinutesToClock(c.minutes), c.clock);
    EXPECT_EQ(gClockToMinutes(c.clock), c.back);
  }
  EXPECT_EQ(gClockToMinutes("12:15 AM"), 735);
  EXPECT_EQ(gMMSSToSeconds("1:30"), 90);
  EXPECT_EQ(gMMSSToSeconds(":40"), 40);
  EXPECT_TRUE(gValidClock("12:59 PM"));
  EXPECT_FALSE(gValidClock("13:00 PM"));
  EXPECT_FALSE(gValidClock("10:60 AM"));
  EXPECT_FALSE(gValidClock("10:00 XM"));
  std::string rest = "1:5";
  EXPECT_TRUE(gValidRest(rest));
  EXPECT_EQ(rest, "01:05");
  for (std::string bad : {"60:00", "00:60", "ab:cd", "100"}) EXPECT_FALSE(gValidRest(bad)) << bad;
  EXPECT_EQ(gFormatThousands(999), "999");
  EXPECT_EQ(gFormatThousands(1200), "1,200");
  EXPECT_EQ(gFormatThousands(123456789), "123,456,789");
  EXPECT_EQ(gFormatThousands(1234567890), "1234567890");
}

}  // namespace
}  // namespace kvlr
