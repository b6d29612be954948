// From launch to a usable main window, with a database of 10,000 results opened at start.

#include <benchmark/benchmark.h>

#include "SilentIo.h"

#include <filesystem>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <QApplication>

#include "athletes/CurrentAthlete.h"
#include "core/MainWindow.h"
#include "home/HomePage.h"
#include "store/Database.h"
#include "store/DbVersion.h"
#include "store/LastDatabase.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

using bench::SilentIo;

// A program home whose last database has one swimmer and 10,000 results.
fs::path MakeHome() {
  const fs::path root = fs::temp_directory_path() / "kvlr-bench-startup";
  fs::remove_all(root);
  fs::create_directories(root / "data");
  SilentIo io;
  SystemClock clock;
  SystemDiskInfo disk;
  AppState state(ProgramHome(root / "home"), io, clock, disk);
  state.home.Ensure();
  const fs::path file = root / "data" / "family.mdb";
  CreateNewDatabase(state, file);
  state.gDatabaseName = file.string();
  OpenLocalDB(state);
  CheckDbVersion(state);
  ApplyDatabaseSettings(state);
  {
    SQLite::Transaction transaction(*state.gDb);
    state.gDb->exec(
        "INSERT INTO Athlete (First, Last, Sex, Birth) VALUES ('Ada', 'Lane', 'F', '2012-04-01')");
    // Meets over the last years and one ahead, so the home page finds a last and a next meet.
    SQLite::Statement meet(*state.gDb,
                           "INSERT INTO MEET (Meet, MName, Start, Course, Type) "
                           "VALUES (?, ?, date('now', ?), 'Y', 'AG')");
    for (int m = 1; m <= 501; ++m) {
      meet.reset();
      SQLite::bind(meet, m, "Meet " + std::to_string(m), std::to_string(m * 3 - 1500) + " days");
      meet.exec();
    }
    SQLite::Statement add(*state.gDb,
                          "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, NT, DISTANCE, "
                          "STROKE, COURSE, MTEVENT, RANK) VALUES (?, 1, 'I', ?, 'F', 0, ?, ?, "
                          "?, ?, 1)");
    for (int i = 0; i < 10000; ++i) {
      add.reset();
      SQLite::bind(add, 1 + i / 20, 3000 + i % 5000, 50 << (i % 4), 1 + i % 5,
                   std::string(1, "YSL"[i % 3]), i);
      add.exec();
    }
    transaction.commit();
  }
  SaveLastDatabase(state);
  return root;
}

void BM_LaunchToUsableWindow(benchmark::State& s) {
  static int argc = 1;
  static char arg0[] = "bench_startup";
  static char* argv[] = {arg0, nullptr};
  static QApplication* app = new QApplication(argc, argv);
  const fs::path root = MakeHome();
  for (auto _ : s) {
    SilentIo io;
    SystemClock clock;
    SystemDiskInfo disk;
    AppState state(ProgramHome(root / "home"), io, clock, disk);
    state.data_root = root / "data";
    MainWindow window(state);
    window.SetDialogRunner([](QDialog&) { return static_cast<int>(QDialog::Rejected); });
    window.show();
    window.Start();
    app->processEvents();
    if (!state.gDbOpen || state.gAthlete == 0) s.SkipWithError("the database did not come up");
    state.CloseCurrentDB();
  }
  fs::remove_all(root);
}
BENCHMARK(BM_LaunchToUsableWindow)->Unit(benchmark::kMillisecond);

// The home page's fill alone, for the swimmer of those 10,000 results.
void BM_FillHomePage(benchmark::State& s) {
  const fs::path root = MakeHome();
  SilentIo io;
  SystemClock clock;
  SystemDiskInfo disk;
  AppState state(ProgramHome(root / "home"), io, clock, disk);
  state.gDatabaseName = (root / "data" / "family.mdb").string();
  OpenLocalDB(state);
  ApplyDatabaseSettings(state);
  SetCurrentAthlete(state, 1);
  for (auto _ : s) benchmark::DoNotOptimize(FillHomePage(state, clock.Today(), 'Y'));
  state.CloseCurrentDB();
  fs::remove_all(root);
}
BENCHMARK(BM_FillHomePage)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kvlr

BENCHMARK_MAIN();
