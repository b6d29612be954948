// Best-time lookups on an open database of 10,000 results of four swimmers over many
// events and the three courses, ranks set as ranking leaves them.

#include <benchmark/benchmark.h>

#include "BenchDatabase.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <tuple>
#include <vector>

#include <fmt/format.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "meets/BestTimes.h"
#include "store/Database.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

// Any failure box ends the lookup rather than retrying it.
class AbortingIo final : public UserIo {
 public:
  Answer Message(std::string_view, int, std::string_view) override { return Answer::kAbort; }
  void Progress(std::string_view) override {}
};

struct Event {
  int32_t athlete;
  int16_t distance;
  int16_t stroke;
};

constexpr int kResults = 10000;
constexpr int16_t kDistances[] = {50, 100, 200, 400, 500, 800, 1000, 1500, 1650};

class BestTimesData {
 public:
  BestTimesData() : base_("best", io_), state(base_.state) { Fill(); }

  std::vector<Event> events;

 private:
  AbortingIo io_;
  bench::BenchDatabase base_;

 public:
  AppState& state;

 private:
  // Random swims, then ranks per swimmer, event, course and I_R (lead-off legs apart).
  void Fill() {
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    SQLite::Statement meet(db,
                           "INSERT INTO MEET (MName, Start, End, Course, Type) "
                           "VALUES (?, ?, ?, 'Y', ?)");
    for (int m = 1; m <= 60; ++m) {
      const std::string start = fmt::format("20{:02}-{:02}-{:02}", 18 + m / 12, m % 12 + 1, 10);
      meet.reset();
      SQLite::bind(meet, fmt::format("Meet {}", m), start, start, m % 3 ? "USS" : "HS");
      meet.exec();
    }
    struct Row {
      int32_t meet, athlete;
      char i_r;
      int32_t score;
      int16_t distance, stroke;
      char course;
      int rank = 0;
    };
    std::mt19937 random(20241005);
    std::vector<Row> rows;
    for (int i = 0; i < kResults; ++i) {
      Row r;
      r.athlete = 1 + static_cast<int32_t>(random() % 4);
      r.distance = kDistances[random() % std::size(kDistances)];
      r.stroke = static_cast<int16_t>(1 + random() % 5);
      r.course = "YSL"[random() % 3];
      r.meet = 1 + static_cast<int32_t>(random() % 60);
      r.i_r = random() % 10 ? 'I' : 'L';
      r.score = r.distance * (60 + static_cast<int32_t>(random() % 40));
      rows.push_back(r);
    }
    auto key = [](const Row& r) {
      return std::tie(r.athlete, r.i_r, r.distance, r.stroke, r.course);
    };
    std::sort(rows.begin(), rows.end(), [&](const Row& a, const Row& b) {
      return std::tuple_cat(key(a), std::tie(a.score)) < std::tuple_cat(key(b), std::tie(b.score));
    });
    // Ties share a place and the next place is skipped: 1, 1, 3.
    size_t first = 0;
    for (size_t i = 0; i < rows.size(); ++i) {
      if (i == 0 || key(rows[i]) != key(rows[i - 1])) first = i;
      rows[i].rank = (i > first && rows[i].score == rows[i - 1].score)
                         ? rows[i - 1].rank
                         : static_cast<int>(i - first) + 1;
    }
    SQLite::Statement add(db,
                          "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, "
                          "DISTANCE, STROKE, MTEVENT, RANK, COURSE) "
                          "VALUES (?, ?, ?, ?, 'F', 0, ?, ?, ?, ?, ?)");
    int mtevent = 0;
    for (const Row& r : rows) {
      add.reset();
      SQLite::bind(add, r.meet, r.athlete, std::string(1, r.i_r), r.score, r.distance, r.stroke,
                   ++mtevent, r.rank, std::string(1, r.course));
      add.exec();
    }
    transaction.commit();

    for (int32_t athlete = 1; athlete <= 4; ++athlete) {
      for (int16_t distance : kDistances) {
        for (int16_t stroke = 1; stroke <= 5; ++stroke)
          events.push_back({athlete, distance, stroke});
      }
    }
  }
};

BestTimesData& Data() {
  static BestTimesData data;
  return data;
}

void BM_GetBestHeldFinder(benchmark::State& bench) {
  BestTimesData& data = Data();
  data.state.gUseLeadOff = bench.range(0) != 0;
  BestTimeFinder finder(data.state);
  size_t i = 0;
  for (auto _ : bench) {
    const Event& e = data.events[i++ % data.events.size()];
    benchmark::DoNotOptimize(finder.Best(e.athlete, e.distance, e.stroke, 'Y', false,
                                         data.state.gNullDate, data.state.gNullDate, ""));
  }
  data.state.gUseLeadOff = false;
}
BENCHMARK(BM_GetBestHeldFinder)->ArgName("lead_off")->Arg(0)->Arg(1);

void BM_GetBestFreeFunction(benchmark::State& bench) {
  BestTimesData& data = Data();
  size_t i = 0;
  for (auto _ : bench) {
    const Event& e = data.events[i++ % data.events.size()];
    benchmark::DoNotOptimize(GetBest(data.state, e.athlete, e.distance, e.stroke, 'L', false,
                                     data.state.gNullDate, data.state.gNullDate, ""));
  }
}
BENCHMARK(BM_GetBestFreeFunction);

void BM_GetBestFiltered(benchmark::State& bench) {
  BestTimesData& data = Data();
  BestTimeFinder finder(data.state);
  const Date since{2019, 6, 1};
  size_t i = 0;
  for (auto _ : bench) {
    const Event& e = data.events[i++ % data.events.size()];
    benchmark::DoNotOptimize(finder.Best(e.athlete, e.distance, e.stroke, 'Y', true, since,
                                         data.state.gNullDate, "USS"));
  }
}
BENCHMARK(BM_GetBestFiltered);

}  // namespace
}  // namespace kvlr
