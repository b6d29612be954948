// Making a complete new database, and opening and checking an existing one.

#include <benchmark/benchmark.h>

#include "SilentIo.h"

#include <filesystem>

#include "store/Database.h"
#include "store/DbVersion.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

using bench::SilentIo;

struct Bench {
  Bench()
      : root(fs::temp_directory_path() / "kvlr-bench"),
        state(ProgramHome(root / "home"), io, clock, disk) {
    fs::remove_all(root);
    fs::create_directories(root / "data");
    state.home.Ensure();
  }
  ~Bench() {
    state.gDb.reset();
    fs::remove_all(root);
  }
  bool OpenAsAtStart(const fs::path& file) {
    state.gDatabaseName = file.string();
    if (!OpenLocalDB(state)) return false;
    CheckDbVersion(state);
    ApplyDatabaseSettings(state);
    return true;
  }
  fs::path root;
  SilentIo io;
  SystemClock clock;
  SystemDiskInfo disk;
  AppState state;
};

void BM_CreateCompleteDatabase(benchmark::State& s) {
  Bench b;
  const fs::path file = b.root / "data" / "new.mdb";
  for (auto _ : s) {
    s.PauseTiming();
    b.state.CloseCurrentDB();
    fs::remove(file);
    s.ResumeTiming();
    if (!CreateNewDatabase(b.state, file) || !b.OpenAsAtStart(file)) s.SkipWithError("failed");
  }
}
BENCHMARK(BM_CreateCompleteDatabase)->Unit(benchmark::kMillisecond);

void BM_OpenAndCheckExisting(benchmark::State& s) {
  Bench b;
  const fs::path file = b.root / "data" / "family.mdb";
  if (!CreateNewDatabase(b.state, file) || !b.OpenAsAtStart(file)) s.SkipWithError("setup");
  for (auto _ : s) {
    b.state.CloseCurrentDB();
    if (!b.OpenAsAtStart(file)) s.SkipWithError("failed");
  }
}
BENCHMARK(BM_OpenAndCheckExisting)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kvlr

BENCHMARK_MAIN();
