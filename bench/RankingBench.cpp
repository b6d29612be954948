// Whole rankings over a large file and the ranking of one group after a time is written.

#include <benchmark/benchmark.h>

#include "SilentIo.h"

#include <array>
#include <filesystem>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "meets/Ranking.h"
#include "store/Database.h"
#include "store/DbVersion.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

using bench::SilentIo;

constexpr int kResults = 100000;
constexpr int kGroupSize = 200;
// The group ranked alone: swimmer 1, 100 of stroke 6 in yards.
constexpr int16_t kGroupStroke = 6;
constexpr int16_t kGroupDistance = 100;

// 4 swimmers, 5 strokes, 10 distances, 3 courses: about 170 swims a group, one in ten a
// lead-off leg, one in fifty with a non-time; plus one group of exactly 200.
class RankingFile {
 public:
  RankingFile()
      : root_(fs::temp_directory_path() / "kvlr-bench-ranking"),
        state_(ProgramHome(root_ / "home"), io_, clock_, disk_) {
    fs::remove_all(root_);
    fs::create_directories(root_ / "data");
    state_.home.Ensure();
    const fs::path file = root_ / "data" / "ranking.mdb";
    if (!CreateNewDatabase(state_, file)) return;
    state_.gDatabaseName = file.string();
    if (!OpenLocalDB(state_)) return;
    CheckDbVersion(state_);
    ApplyDatabaseSettings(state_);
    Fill();
    ready_ = AddRank(state_);
  }
  ~RankingFile() {
    state_.gDb.reset();
    fs::remove_all(root_);
  }

  bool Ready() const { return ready_; }
  AppState& State() { return state_; }
  SQLite::Database& Db() { return *state_.gDb; }

 private:
  void Fill() {
    static constexpr std::array<int, 10> kDistances = {25,  50,  100,  200,  400,
                                                       500, 800, 1000, 1500, 1650};
    static constexpr std::array<const char*, 3> kCourses = {"Y", "S", "L"};
    SQLite::Transaction transaction(*state_.gDb);
    SQLite::Statement add(*state_.gDb,
                          "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, DISTANCE, "
                          "STROKE, COURSE, MTEVENT) VALUES (?, ?, ?, ?, 'F', ?, ?, ?, ?, ?)");
    uint32_t seed = 12345;
    auto next = [&seed] { return seed = seed * 1103515245u + 12345u; };
    auto insert = [&](int i, int athlete, const char* i_r, int score, int nt, int distance,
                      int stroke, const char* course) {
      add.reset();
      add.bind(1, 1 + i / 20);
      add.bind(2, athlete);
      add.bind(3, i_r);
      add.bind(4, score);
      add.bind(5, nt);
      add.bind(6, distance);
      add.bind(7, stroke);
      add.bind(8, course);
      add.bind(9, i);
      add.exec();
    };
    for (int i = 0; i < kResults - kGroupSize; ++i) {
      const uint32_t r = next() >> 8;
      const int distance = kDistances[r % 10];
      insert(i, 1 + static_cast<int>((r / 10) % 4), (r / 40) % 10 == 0 ? "L" : "I",
             distance * 60 + static_cast<int>((r / 400) % 3000), (r / 7) % 50 == 0 ? 5 : 0,
             distance, 1 + static_cast<int>((r / 1200) % 5), kCourses[(r / 6000) % 3]);
    }
    for (int i = kResults - kGroupSize; i < kResults; ++i) {
      insert(i, 1, "I", 5500 + static_cast<int>((next() >> 8) % 1500), 0, kGroupDistance,
             kGroupStroke, "Y");
    }
    transaction.commit();
  }

  fs::path root_;
  SilentIo io_;
  SystemClock clock_;
  SystemDiskInfo disk_;
  AppState state_;
  bool ready_ = false;
};

RankingFile& File() {
  static RankingFile file;
  return file;
}

// The usual case at the end of an import or a repair: most ranks already right.
void BM_AddRankNothingToChange(benchmark::State& s) {
  RankingFile& f = File();
  if (!f.Ready()) s.SkipWithError("setup");
  RankCount count;
  for (auto _ : s) {
    if (!AddRank(f.State(), kUpdatingRankings, &count)) s.SkipWithError("failed");
  }
  s.counters["rows"] = static_cast<double>(count.rows);
  s.counters["written"] = static_cast<double>(count.changed);
}
BENCHMARK(BM_AddRankNothingToChange)->Unit(benchmark::kMillisecond);

// The worst case: every rank of the file written again.
void BM_AddRankEveryRowWritten(benchmark::State& s) {
  RankingFile& f = File();
  if (!f.Ready()) s.SkipWithError("setup");
  RankCount count;
  for (auto _ : s) {
    s.PauseTiming();
    f.Db().exec("UPDATE RESULT SET RANK = 0");
    s.ResumeTiming();
    if (!AddRank(f.State(), kUpdatingRankings, &count)) s.SkipWithError("failed");
  }
  s.counters["rows"] = static_cast<double>(count.rows);
  s.counters["written"] = static_cast<double>(count.changed);
}
BENCHMARK(BM_AddRankEveryRowWritten)->Unit(benchmark::kMillisecond);

// UseLeadOff switched: lead-off legs join or leave the individual groups.
void BM_AddRankUseLeadOffSwitched(benchmark::State& s) {
  RankingFile& f = File();
  if (!f.Ready()) s.SkipWithError("setup");
  RankCount count;
  for (auto _ : s) {
    f.State().gUseLeadOff = !f.State().gUseLeadOff;
    if (!AddRank(f.State(), kUpdatingRankings, &count)) s.SkipWithError("failed");
  }
  f.State().gUseLeadOff = false;
  AddRank(f.State());
  s.counters["written"] = static_cast<double>(count.changed);
}
BENCHMARK(BM_AddRankUseLeadOffSwitched)->Unit(benchmark::kMillisecond);

// The group of 200 ranked again as it stands.
void BM_AddRankForOneNothingToChange(benchmark::State& s) {
  RankingFile& f = File();
  if (!f.Ready()) s.SkipWithError("setup");
  for (auto _ : s) {
    if (!AddRankForOne(f.State(), 1, kGroupStroke, kGroupDistance, "Y")) {
      s.SkipWithError("failed");
    }
  }
}
BENCHMARK(BM_AddRankForOneNothingToChange)->Unit(benchmark::kMicrosecond);

// A new fastest time and back: every rank of the group moves by one each time.
void BM_AddRankForOneAfterNewBest(benchmark::State& s) {
  RankingFile& f = File();
  if (!f.Ready()) s.SkipWithError("setup");
  const int64_t last = f.Db().execAndGet("SELECT max(RESULT) FROM RESULT").getInt64();
  SQLite::Statement set_score(f.Db(), "UPDATE RESULT SET SCORE = ? WHERE RESULT = ?");
  SQLite::Statement get_score(f.Db(), "SELECT SCORE FROM RESULT WHERE RESULT = ?");
  get_score.bind(1, last);
  const int original = get_score.executeStep() ? get_score.getColumn(0).getInt() : 0;
  bool fast = false;
  for (auto _ : s) {
    s.PauseTiming();
    fast = !fast;
    set_score.reset();
    set_score.bind(1, fast ? 100 : 9000);
    set_score.bind(2, last);
    set_score.exec();
    s.ResumeTiming();
    if (!AddRankForOne(f.State(), 1, kGroupStroke, kGroupDistance, "Y")) {
      s.SkipWithError("failed");
    }
  }
  set_score.reset();
  set_score.bind(1, original);
  set_score.bind(2, last);
  set_score.exec();
  AddRankForOne(f.State(), 1, kGroupStroke, kGroupDistance, "Y");
}
BENCHMARK(BM_AddRankForOneAfterNewBest)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kvlr

BENCHMARK_MAIN();
