// ConvertTime over the mix a results browser and a best-time search ask for: every event
// of the three courses to the other two, with per-turn and with straight factors.

#include <benchmark/benchmark.h>

#include <vector>

#include "standards/Conversion.h"

namespace kvlr {
namespace {

struct Call {
  int16_t distance;
  int32_t time;
  int16_t stroke;
  char from;
  char to;
};

std::vector<Call> Calls() {
  static constexpr int16_t kDistances[] = {25, 50, 100, 200, 400, 500, 800, 1000, 1500, 1650};
  static constexpr char kCourses[] = {'Y', 'S', 'L'};
  std::vector<Call> calls;
  int32_t time = 2345;
  for (int16_t distance : kDistances) {
    for (int16_t stroke = 1; stroke <= 5; ++stroke) {
      for (char from : kCourses) {
        for (char to : kCourses) {
          if (from == to) continue;
          calls.push_back({distance, time * distance / 50, stroke, from, to});
          time += 37;
        }
      }
    }
  }
  return calls;
}

void Run(benchmark::State& bench, const CvtFactors& factors) {
  const std::vector<Call> calls = Calls();
  size_t i = 0;
  for (auto _ : bench) {
    const Call& c = calls[i];
    benchmark::DoNotOptimize(ConvertTime(factors, c.distance, c.time, c.stroke, c.from, c.to));
    if (++i == calls.size()) i = 0;
  }
  bench.SetItemsProcessed(bench.iterations());
}

void BM_ConvertTimePerTurn(benchmark::State& bench) {
  Run(bench, kSeedCvtFactors);
}
BENCHMARK(BM_ConvertTimePerTurn);

void BM_ConvertTimeStraight(benchmark::State& bench) {
  CvtFactors factors = kSeedCvtFactors;
  factors[cvt::kStraight] = 0.02;
  Run(bench, factors);
}
BENCHMARK(BM_ConvertTimeStraight);

}  // namespace
}  // namespace kvlr

BENCHMARK_MAIN();
