// Backup of a 20 MB database (the whole user step, and the archive alone at two deflate
// levels), silent backup, and a restore of that archive into another folder.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "store/Backup.h"
#include "store/Database.h"
#include "store/DbVersion.h"
#include "store/ZipArchive.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kDatabaseBytes = 20u << 20;

// Says Yes to every question.
class YesIo final : public UserIo {
 public:
  Answer Message(std::string_view, int style, std::string_view) override {
    const int buttons = box::Buttons(style);
    return buttons == box::kYesNo || buttons == box::kYesNoCancel ? Answer::kYes : Answer::kOk;
  }
  void Progress(std::string_view) override {}
};

// Results of made-up meets until the file reaches 20 MB.
void FillTo20Mb(SQLite::Database& db) {
  std::mt19937 random(7);
  SQLite::Statement insert(
      db,
      "INSERT INTO RESULT (MEET, ATHLETE, I_R, SCORE, F_P, DISTANCE, STROKE, "
      "MTEVENT, PLACE, AGE, COURSE) VALUES (?, ?, 'I', ?, 'F', ?, ?, ?, ?, ?, ?)");
  const int distances[] = {25, 50, 100, 200, 400, 500, 1000, 1650};
  for (int meet = 1;; ++meet) {
    SQLite::Transaction transaction(db);
    for (int event = 1; event <= 2000; ++event) {
      insert.reset();
      SQLite::bind(insert, meet, 1 + event % 4, static_cast<int>(2500 + random() % 90000),
                   distances[random() % 8], static_cast<int>(1 + random() % 5), event,
                   static_cast<int>(1 + random() % 8), static_cast<int>(8 + random() % 10),
                   (random() % 2) ? "Y" : "S");
      insert.exec();
    }
    transaction.commit();
    SQLite::Statement size(
        db, "SELECT page_count * page_size FROM pragma_page_count, pragma_page_size");
    size.executeStep();
    if (static_cast<std::uintmax_t>(size.getColumn(0).getInt64()) >= kDatabaseBytes) return;
  }
}

struct Bench {
  Bench()
      : root(fs::temp_directory_path() / "kvlr-backup-bench"),
        state(ProgramHome(root / "home"), io, clock, disk) {
    fs::remove_all(root);
    fs::create_directories(root / "data");
    state.home.Ensure();
    database = root / "data" / "family.mdb";
    if (!CreateNewDatabase(state, database)) throw std::runtime_error("create failed");
    state.gDatabaseName = database.string();
    if (!OpenLocalDB(state)) throw std::runtime_error("open failed");
    CheckDbVersion(state);
    ApplyDatabaseSettings(state);
    FillTo20Mb(*state.gDb);
  }
  ~Bench() {
    state.gDb.reset();
    fs::remove_all(root);
  }
  fs::path root;
  fs::path database;
  YesIo io;
  SystemClock clock;
  SystemDiskInfo disk;
  AppState state;
};

Bench& Shared() {
  static Bench bench;
  return bench;
}

void BM_BackupDatabase20Mb(benchmark::State& s) {
  Bench& b = Shared();
  const fs::path folder = b.root / "backups";
  for (auto _ : s) {
    auto made = BackupDatabase(b.state, folder, "bench");
    if (!made) s.SkipWithError("backup failed");
    s.PauseTiming();
    if (made) s.counters["archive_MB"] = static_cast<double>(fs::file_size(*made)) / (1 << 20);
    fs::remove_all(folder);
    s.ResumeTiming();
  }
  s.counters["database_MB"] = static_cast<double>(fs::file_size(b.database)) / (1 << 20);
}
BENCHMARK(BM_BackupDatabase20Mb)->Unit(benchmark::kMillisecond);

// The archive alone at deflate level 1 (what backups use) and at zlib's usual 6.
void BM_ZipLevel(benchmark::State& s) {
  Bench& b = Shared();
  const fs::path target = b.root / "level.zip";
  for (auto _ : s) {
    ZipArchive::Create(target, {{"family.mdb", b.database}}, "KVLR", static_cast<int>(s.range(0)));
  }
  s.counters["archive_MB"] = static_cast<double>(fs::file_size(target)) / (1 << 20);
  fs::remove(target);
}
BENCHMARK(BM_ZipLevel)->Arg(1)->Arg(6)->Unit(benchmark::kMillisecond);

void BM_SilentBackup20Mb(benchmark::State& s) {
  Bench& b = Shared();
  for (auto _ : s) {
    if (!SilentBackup(b.state, b.database)) s.SkipWithError("silent backup failed");
  }
}
BENCHMARK(BM_SilentBackup20Mb)->Unit(benchmark::kMillisecond);

void BM_RestoreIntoFolder20Mb(benchmark::State& s) {
  Bench& b = Shared();
  const fs::path folder = b.root / "backups";
  const auto zip = BackupDatabase(b.state, folder, "to restore");
  const auto info = zip ? LoadBackupInfo(b.state, *zip) : std::nullopt;
  if (!info) {
    s.SkipWithError("no backup to restore");
    return;
  }
  const fs::path target = b.root / "restored";
  for (auto _ : s) {
    s.PauseTiming();
    fs::remove_all(target);
    fs::create_directories(target);
    s.ResumeTiming();
    if (!RestoreDatabase(b.state, *zip, *info, RestoreOption::kSelectedFolder, target, "", false)) {
      s.SkipWithError("restore failed");
    }
  }
  fs::remove_all(folder);
}
BENCHMARK(BM_RestoreIntoFolder20Mb)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kvlr

BENCHMARK_MAIN();
