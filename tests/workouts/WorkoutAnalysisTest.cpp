// The analysis of a workout: multi-letter work types split over their letters, circuits
// counted by their passes, notes and distance-less lines skipped.

#include <gtest/gtest.h>

#include "workouts/WorkoutAnalysis.h"

namespace kvlr {
namespace {

WkLine Set(int reps, int dist, int interval, const char* type, int16_t energy = 1) {
  WkLine l;
  l.set_reps = reps;
  l.set_dist = dist;
  l.set_interval = interval;
  l.set_type = type;
  l.set_energyno = energy;
  l.set_categoryabbr = "FR";
  return l;
}

long Of(const std::vector<AnalysisRow>& rows, const std::string& key, bool seconds = false) {
  for (const AnalysisRow& r : rows) {
    if (r.key == key) return seconds ? r.seconds : r.distance;
  }
  return -1;
}

TEST(WorkoutAnalysis, WorkTypesSplitOverTheirLetters) {
  EnergyArray energy;
  energy[1] = {"EN1", "Aerobic", 1};
  const std::vector<WorkStrokeEntry> work = {{"S", "Swim", 1}, {"K", "Kick", 1}, {"P", "Pull", 1},
                                             {"FR", "Free", 2}};
  WkLine circuit = Set(2, 50, 45, "K");
  circuit.wk_type = "C";
  circuit.circuit_line = circuit.circuit_tot = 1;
  circuit.circuit_reps = 3;
  WkLine note = Set(0, 0, 0, " ");
  const std::vector<WkLine> lines = {Set(4, 100, 90, "SK"), Set(3, 25, 30, "SKP"), circuit,
                                     note, Set(5, 0, 60, "S")};
  const WorkoutAnalysis a = AnalyzeWorkout(lines, energy, work);
  ASSERT_TRUE(a.any);
  struct Case {
    const char* key;
    long distance, seconds;
  } cases[] = {
      {"S", 200 + 25, 180 + 30},       // half of 400 / 360, a third of 75 / 90
      {"K", 200 + 25 + 300, 180 + 30 + 270},  // the circuit counts three passes
      {"P", 25, 30},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Of(a.work, c.key), c.distance) << c.key;
    EXPECT_EQ(Of(a.work, c.key, true), c.seconds) << c.key;
  }
  EXPECT_EQ(a.total_distance, 400 + 75 + 300);
  EXPECT_EQ(a.work.front().key, "K");  // largest first
  EXPECT_EQ(a.stroke.front().distance_percent, "100.00%");
  EXPECT_EQ(AnalysisPercent(1, 3), "33.33%");
  EXPECT_EQ(AnalysisPercent(2, 3), "66.66%");  // cut, not rounded
  EXPECT_EQ(AnalysisMinutes(90), "1.5");
  EXPECT_EQ(AnalysisMinutes(120), "2.0");
  EXPECT_FALSE(AnalyzeWorkout({note}, energy, work).any);
}

}  // namespace
}  // namespace kvlr
