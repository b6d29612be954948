// The entry grid of one swimmer: 40 events of a meet, each row with its best time (across
// the courses, converted, or one course only) and its stored entry, on a database of
// 10,000 results of four swimmers with ranks as ranking leaves them.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <stdexcept>

#include <fmt/format.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "BenchDatabase.h"
#include "SilentIo.h"
#include "meets/Entries.h"
#include "meets/Ranking.h"
#include "store/Database.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

constexpr int kResults = 10000;
constexpr int kEvents = 40;
constexpr int16_t kDistances[] = {50, 100, 200, 400, 500, 800, 1000, 1500, 1650};

class EntriesData {
 public:
  EntriesData() : base_("entries", io_), state(base_.state) { Fill(); }

 private:
  bench::SilentIo io_;
  bench::BenchDatabase base_;

 public:
  AppState& state;
  int32_t convert_meet = 0;
  int32_t one_course_meet = 0;
  int32_t since_meet = 0;
  EntrySwimmer swimmer;

 private:
  int32_t AddMeet(SQLite::Database& db, const std::string& name, const std::string& start,
                  const std::string& course, const std::string& since) {
    SQLite::Statement q(db,
                        "INSERT INTO MEET (MName, Start, End, AgeUp, Since, Course, Type) "
                        "VALUES (?, ?, ?, ?, ?, ?, 'USS')");
    SQLite::bind(q, name, start, start, start, since, course);
    if (since.empty()) q.bind(5);
    q.exec();
    return static_cast<int32_t>(db.getLastInsertRowid());
  }

  void Fill() {
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    for (int a = 1; a <= 4; ++a) {
      SQLite::Statement q(db,
                          "INSERT INTO ATHLETE (Last, First, Sex, Birth, Age) "
                          "VALUES (?, 'Sam', 'F', '2012-03-04', 14)");
      q.bind(1, fmt::format("Swimmer{}", a));
      q.exec();
    }
    for (int m = 1; m <= 60; ++m) {
      AddMeet(db, fmt::format("Meet {}", m),
              fmt::format("20{:02}-{:02}-10", 18 + m / 12, m % 12 + 1), "Y", "");
    }
    std::mt19937 random(20261205);
    SQLite::Statement add(db,
                          "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, DISTANCE, "
                          "STROKE, MTEVENT, RANK, COURSE, AGE) "
                          "VALUES (?, ?, ?, ?, 'F', 0, ?, ?, ?, 0, ?, 12)");
    for (int i = 0; i < kResults; ++i) {
      const int16_t distance = kDistances[random() % std::size(kDistances)];
      add.reset();
      SQLite::bind(add, 1 + static_cast<int32_t>(random() % 60),
                   1 + static_cast<int32_t>(random() % 4), random() % 10 ? "I" : "L",
                   distance * (60 + static_cast<int32_t>(random() % 40)), distance,
                   1 + static_cast<int16_t>(random() % 5), i + 1,
                   std::string(1, "YSL"[random() % 3]));
      add.exec();
    }
    convert_meet = AddMeet(db, "Harbor Classic", "2026-12-05", "Y", "");
    one_course_meet = AddMeet(db, "Harbor Classic YO", "2026-12-06", "YO", "");
    since_meet = AddMeet(db, "Harbor Classic Since", "2026-12-07", "S", "2020-01-01");
    SQLite::Statement ev(db,
                         "INSERT INTO MTEVENTE (Meet, MtEv, Lo_Hi, Course, Distance, Stroke, "
                         "Sex, I_R) VALUES (?, ?, 1314, 'Y', ?, ?, 'F', 'I')");
    for (int32_t meet : {convert_meet, one_course_meet, since_meet}) {
      for (int e = 0; e < kEvents; ++e) {
        ev.reset();
        SQLite::bind(ev, meet, e + 1, kDistances[e % 8], 1 + (e / 8) % 5);
        ev.exec();
      }
    }
    transaction.commit();
    AddRank(state);
    swimmer = LoadEntrySwimmers(db).front();
  }
};

EntriesData& Data() {
  static EntriesData data;
  return data;
}

// Opening the grid for a swimmer: 40 rows, each with its best time and stored entry.
void BM_EntryGrid40(benchmark::State& bench) {
  EntriesData& data = Data();
  const int32_t meets[] = {data.convert_meet, data.one_course_meet, data.since_meet};
  EntrySheet sheet(data.state, *ReadEntryMeet(*data.state.gDb, meets[bench.range(0)]));
  for (auto _ : bench) {
    if (!sheet.Load(data.swimmer) || sheet.Rows().size() != kEvents) {
      bench.SkipWithError("grid not filled");
      break;
    }
    benchmark::DoNotOptimize(sheet.Rows().data());
  }
}
BENCHMARK(BM_EntryGrid40)
    ->ArgName("meet")  // 0 converts across courses, 1 one course only, 2 with a since date
    ->Arg(0)
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kvlr

BENCHMARK_MAIN();
