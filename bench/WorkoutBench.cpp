// gGetWorkoutLines on a workout of 60 lines: sets, notes and circuits mixed.

#include <benchmark/benchmark.h>

#include "workouts/WorkoutLines.h"

namespace {

std::vector<kvlr::WkLine> SixtyLines() {
  std::vector<kvlr::WkLine> lines;
  for (int i = 0; i < 60; ++i) {
    kvlr::WkLine l;
    l.wk_line = static_cast<int16_t>(i + 1);
    l.set_reps = 4 + i % 5;
    l.set_dist = i % 10 == 9 ? 0 : 50 * (1 + i % 4);
    l.set_interval = 40 + 5 * (i % 7);
    l.set_energyno = static_cast<int16_t>(1 + i % 7);
    l.set_desc = "Freestyle descend";
    if (i % 12 >= 6 && i % 12 <= 8) {
      l.wk_type = "C";
      l.circuit_line = static_cast<int16_t>(i % 12 - 5);
      l.circuit_tot = 3;
      l.circuit_reps = 3;
    }
    if (i % 15 == 14) {
      l.set_reps = l.set_dist = 0;
      l.set_note = "Easy between";
    }
    lines.push_back(l);
  }
  return lines;
}

void BM_GetWorkoutLines60(benchmark::State& state) {
  auto lines = SixtyLines();
  kvlr::EnergyArray energy;
  for (int i = 1; i <= 7; ++i) energy[static_cast<size_t>(i)] = {"EN" + std::to_string(i), "x", static_cast<int16_t>(i)};
  kvlr::WorkoutLinesResult out;
  for (auto _ : state) {
    bool ok = kvlr::gGetWorkoutLines(lines, kvlr::WorkoutLinesParams{}, energy, true, out);
    benchmark::DoNotOptimize(ok);
    benchmark::DoNotOptimize(out.lines.data());
  }
}
BENCHMARK(BM_GetWorkoutLines60);

}  // namespace

BENCHMARK_MAIN();
