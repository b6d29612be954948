// Level lookups in a current standard of about 1,000 lines (two sexes, nine distances, five
// strokes, eight age groups, relays), eight designators in the three courses.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <vector>

#include <SQLiteCpp/Transaction.h>

#include "SilentIo.h"
#include "standards/StandardStore.h"
#include "standards/Standards.h"
#include "store/Database.h"
#include "store/TableBuilder.h"
#include "store/UserTables.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

class NoDisk final : public DiskInfo {
 public:
  std::uintmax_t FreeBytes(const fs::path&) const override { return 1ull << 40; }
};

fs::path MakeRoot() {
  std::string pattern = (fs::temp_directory_path() / "kvlr-bench-std-XXXXXX").string();
  if (!::mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
  return pattern;
}

constexpr int16_t kDistances[] = {50, 100, 200, 400, 500, 800, 1000, 1500, 1650};
constexpr int16_t kAges[][2] = {{0, 8},   {9, 10},  {11, 12}, {13, 14},
                                {15, 16}, {17, 18}, {0, 99},  {19, 99}};

struct Swim {
  int32_t score;
  const char* sex;
  int16_t distance, stroke, age;
  const char* course;
  bool relay;
};

class StandardData {
 public:
  explicit StandardData(bool in_memory)
      : root_(MakeRoot()), state(ProgramHome(root_ / "home"), io_, clock_, disk_) {
    state.home.Ensure();
    const fs::path file = root_ / "bench.mdb";
    if (!CreateNewDatabase(state, file)) throw std::runtime_error("create failed");
    state.gDatabaseName = file.string();
    if (!OpenLocalDB(state)) throw std::runtime_error("open failed");
    Fill();
    if (in_memory) InstallStandardHooks(state);
    state.gStandardName = "Bench";
    OpenCurrentStandard(state);
  }
  ~StandardData() {
    state.CloseCurrentDB();
    std::error_code ec;
    fs::remove_all(root_, ec);
  }

  std::vector<Swim> swims;

 private:
  fs::path root_;
  bench::SilentIo io_;
  SystemClock clock_;
  NoDisk disk_;

 public:
  AppState state;

 private:
  void Fill() {
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    CreateTable(db, StandardsTable("BENCH"));
    StandardDefinition def;
    def.name = "Bench";
    for (const char* d : {"AAAA", "AAA", "AA", "A", "BB", "B", "C", "D"}) {
      def.designators[static_cast<size_t>(def.DesignatorsInUse())] = d;
    }
    WriteStandardDefinition(db, def);
    for (const char* sex : {"M", "F"}) {
      for (const char* i_r : {"I", "R"}) {
        for (int16_t distance : kDistances) {
          for (int16_t stroke = 1; stroke <= 5; ++stroke) {
            for (const auto& ages : kAges) {
              if (*i_r == 'R' && (distance > 400 || (stroke > 1 && stroke < 5))) continue;
              StandardLine line;
              line.sex = sex;
              line.i_r = i_r;
              line.distance = distance;
              line.stroke = stroke;
              line.lo_age = ages[0];
              line.hi_age = ages[1];
              const int32_t base = distance * (55 + stroke * 3 + (ages[1] < 13 ? 10 : 0));
              for (char course : {'Y', 'S', 'L'}) {
                for (int i = 0; i < 8; ++i) line.Slow(course, i) = base + i * distance * 2;
              }
              InsertStandardLine(db, "BENCH", line);
            }
          }
        }
      }
    }
    transaction.commit();
    std::mt19937 random(20261122);
    for (int i = 0; i < 4096; ++i) {
      Swim s;
      s.relay = random() % 8 == 0;
      s.sex = random() % 2 ? "M" : "F";
      s.distance = kDistances[random() % (s.relay ? 4 : std::size(kDistances))];
      s.stroke = s.relay ? (random() % 2 ? 1 : 5) : static_cast<int16_t>(1 + random() % 5);
      s.age = static_cast<int16_t>(7 + random() % 14);
      s.course = random() % 3 == 0 ? "L" : (random() % 2 ? "S" : "Y");
      s.score = s.distance * static_cast<int32_t>(55 + random() % 40);
      swims.push_back(s);
    }
  }
};

void Lookups(benchmark::State& bench_state, bool in_memory) {
  StandardData data(in_memory);
  size_t at = 0;
  int16_t designator = 0;
  for (auto _ : bench_state) {
    const Swim& s = data.swims[at++ & 4095];
    benchmark::DoNotOptimize(GetStandard(data.state, designator, s.score, s.sex, s.distance,
                                         s.stroke, s.age, s.course, s.relay));
  }
}

void BM_GetStandardInMemory(benchmark::State& bench_state) {
  Lookups(bench_state, true);
}
BENCHMARK(BM_GetStandardInMemory);

// Without the hooks each lookup queries the table: the figure the copy saves.
void BM_GetStandardQueried(benchmark::State& bench_state) {
  Lookups(bench_state, false);
}
BENCHMARK(BM_GetStandardQueried);

void BM_OpenCurrentStandard(benchmark::State& bench_state) {
  StandardData data(true);
  for (auto _ : bench_state) OpenCurrentStandard(data.state);
}
BENCHMARK(BM_OpenCurrentStandard)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kvlr

BENCHMARK_MAIN();
