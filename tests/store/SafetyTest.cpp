// What a second process, a kill or a full disk does to a database: restores over a journal a
// killed writer left, backups beside a writer, new files on a full disk, leftovers of dead
// runs, report rows of two runs, and damage found at opening.

#include <gtest/gtest.h>

#include <csignal>
#include <functional>

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "core/FileOps.h"
#include "core/RunFolder.h"
#include "store/Backup.h"
#include "store/Database.h"
#include "store/ReportDatabase.h"
#include "store/StoreTexts.h"
#include "store/ZipArchive.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::MakeOpenDatabase;
using test::QueryNumber;
using test::TempHome;

// Runs `body` in a child process; its exit status (a kill gives 128 + the signal).
int InChild(const std::function<int()>& body) {
  const pid_t pid = ::fork();
  if (pid == 0) ::_exit(body());
  int status = 0;
  ::waitpid(pid, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// A process id that no process has any more.
long DeadPid() {
  const pid_t pid = ::fork();
  if (pid == 0) ::_exit(0);
  ::waitpid(pid, nullptr, 0);
  return pid;
}

long long Swimmers(const fs::path& file) {
  SQLite::Database db(file.string(), SQLite::OPEN_READONLY);
  return QueryNumber(db, "SELECT count(*) FROM Athlete");
}

bool Intact(const fs::path& file) {
  SQLite::Database db(file.string(), SQLite::OPEN_READONLY);
  SQLite::Statement q(db, "PRAGMA integrity_check");
  return q.executeStep() && q.getColumn(0).getString() == "ok";
}

void AddSwimmers(SQLite::Database& db, int count) {
  SQLite::Transaction transaction(db);
  SQLite::Statement insert(db, "INSERT INTO Athlete (Last, First, Sex) VALUES (?, 'Ada', 'F')");
  for (int i = 0; i < count; ++i) {
    insert.reset();
    insert.bind(1, "Lane" + std::to_string(i));
    insert.exec();
  }
  transaction.commit();
}

// A database of `count` swimmers, closed.
fs::path ClosedDatabase(TempHome& t, const std::string& name, int count) {
  const fs::path file = MakeOpenDatabase(t, name);
  AddSwimmers(*t.state.gDb, count);
  t.state.CloseCurrentDB();
  return file;
}

// A backup of a family of `count` swimmers, the restore folder, and the archive's details.
struct Restorable {
  fs::path database;
  fs::path zip;
  BackupInfo info;
  fs::path folder;
  fs::path target;  // the family's name in the folder
  Restorable(TempHome& t, int count) {
    database = ClosedDatabase(t, "family.mdb", count);
    t.state.gDatabaseName = database.string();
    EXPECT_TRUE(OpenLocalDB(t.state));
    zip = BackupDatabase(t.state, t.Root() / "backups", "").value_or(fs::path());
    t.state.CloseCurrentDB();
    info = LoadBackupInfo(t.state, zip).value_or(BackupInfo{});
    folder = t.Root() / "restored";
    fs::create_directories(folder);
    target = folder / "family.MDB";
  }
  std::optional<fs::path> Run(TempHome& t) const {
    return RestoreDatabase(t.state, zip, info, RestoreOption::kSelectedFolder, folder, "", false);
  }
};

TEST(Restore, OverAJournalAKilledWriterLeftGivesTheBackupAndArchivesTheCommittedFile) {
  TempHome t;
  const Restorable r(t, 1);
  const fs::path& target = r.target;
  // The target holds 300 committed swimmers; a writer then deletes them under a cache too
  // small to hold its changes and is killed before it commits.
  fs::copy_file(ClosedDatabase(t, "other.mdb", 300), target);
  EXPECT_EQ(InChild([&] {
              sqlite3* db = nullptr;
              sqlite3_open(target.c_str(), &db);
              sqlite3_exec(db, "PRAGMA cache_size = 2; BEGIN; DELETE FROM Athlete;", nullptr,
                           nullptr, nullptr);
              std::raise(SIGKILL);
              return 0;
            }),
            128 + SIGKILL);
  ASSERT_TRUE(fs::exists(fs::path(target.string() + "-journal")));
  ASSERT_EQ(r.Run(t), target);
  EXPECT_TRUE(Intact(target));
  EXPECT_EQ(Swimmers(target), 1);
  EXPECT_FALSE(fs::exists(fs::path(target.string() + "-journal")));
  const fs::path archive = r.folder / "KVL-RArchive-family-01.zip";
  const fs::path archived = t.Root() / "archived.mdb";
  ZipArchive(archive).Extract(0, archived);
  EXPECT_TRUE(Intact(archived));
  EXPECT_EQ(Swimmers(archived), 300) << "the archive holds the last committed state";
}

TEST(Restore, AWriteThatFailsHalfwayLeavesTheOldDatabase) {
  TempHome t;
  const Restorable r(t, 600);
  const fs::path& target = r.target;
  // A target of the same size: every file of the run fits the limit but the journal of the
  // replacement, which holds each old page and a little more.
  fs::copy_file(r.database, target);
  {
    SQLite::Database db(target.string(), SQLite::OPEN_READWRITE);
    db.exec("UPDATE Athlete SET First = 'Zed'");
  }
  const auto size = fs::file_size(target);
  EXPECT_EQ(InChild([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              const rlimit room{size + 1024, size + 1024};
              ::setrlimit(RLIMIT_FSIZE, &room);
              if (r.Run(t)) return 1;
              return t.io.Saw("Nothing was restored") ? 0 : 2;
            }),
            0);
  EXPECT_TRUE(Intact(target));
  SQLite::Database db(target.string(), SQLite::OPEN_READONLY);
  EXPECT_EQ(QueryNumber(db, "SELECT count(*) FROM Athlete WHERE First = 'Zed'"), 600);
}

TEST(SilentBackup, WaitsForAWriterAndArchivesWhatItCommitted) {
  TempHome t;
  const fs::path file = ClosedDatabase(t, "family.mdb", 1);
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t writer = ::fork();
  if (writer == 0) {
    sqlite3* db = nullptr;
    sqlite3_open(file.c_str(), &db);
    sqlite3_exec(db, "BEGIN EXCLUSIVE; DELETE FROM Athlete WHERE Athlete > 0;", nullptr, nullptr,
                 nullptr);
    ::write(ready[1], "x", 1);
    ::usleep(800 * 1000);
    sqlite3_exec(db, "INSERT INTO Athlete (Last, First, Sex) VALUES ('Moss', 'Bo', 'M'); COMMIT;",
                 nullptr, nullptr, nullptr);
    ::_exit(0);
  }
  char c;
  ASSERT_EQ(::read(ready[0], &c, 1), 1);
  EXPECT_TRUE(SilentBackup(t.state, file));
  ::waitpid(writer, nullptr, 0);
  const fs::path archived = t.Root() / "archived.mdb";
  ZipArchive(SilentArchiveName(file).parent_path() / "KVL-RArchive-family-01.zip")
      .Extract(0, archived);
  EXPECT_TRUE(Intact(archived));
  SQLite::Database db(archived.string(), SQLite::OPEN_READONLY);
  EXPECT_EQ(db.execAndGet("SELECT group_concat(Last) FROM Athlete").getString(), "Moss");
}

TEST(CreateNewDatabase, AFullDiskLeavesNoFileAndARetryWorks) {
  TempHome t;
  const fs::path file = t.Data() / "new.mdb";
  EXPECT_EQ(InChild([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              const rlimit small{16 * 1024, 16 * 1024};
              ::setrlimit(RLIMIT_FSIZE, &small);
              return CreateNewDatabase(t.state, file) ? 1 : 0;
            }),
            0);
  EXPECT_FALSE(fs::exists(file));
  for (const auto& entry : fs::directory_iterator(t.Data())) {
    ADD_FAILURE() << "left behind: " << entry.path();
  }
  EXPECT_TRUE(CreateNewDatabase(t.state, file));
  EXPECT_TRUE(Intact(file));
}

TEST(RemoveLeftovers, TakesWhatDeadRunsLeftAndNothingOfLiveOnes) {
  TempHome t;
  const fs::path file = ClosedDatabase(t, "family.mdb", 1);
  const long dead = DeadPid();
  const fs::path dead_run = t.state.home.TempDir() / ("run-" + std::to_string(dead) + "-1");
  const fs::path live_run = t.state.home.TempDir() / ("run-" + std::to_string(::getppid()) + "-1");
  const std::vector<fs::path> dead_parts = {
      t.Data() / ("KVL-RBkupfamily-01.zip.part-" + std::to_string(dead) + ".Xa12Bc"),
      t.Data() / ("new.mdb.part-" + std::to_string(dead) + "-journal")};
  const fs::path live_part = t.Data() / ("new.mdb.part-" + std::to_string(::getppid()));
  for (const auto& folder : {dead_run, live_run}) fs::create_directories(folder / "inside");
  for (const auto& part : dead_parts) WriteFileAtomically(part, "half");
  WriteFileAtomically(live_part, "being written");
  t.state.home.Ensure();
  EXPECT_FALSE(fs::exists(dead_run));
  EXPECT_TRUE(fs::exists(live_run));
  t.state.gDatabaseName = file.string();
  ASSERT_TRUE(OpenLocalDB(t.state));
  for (const auto& part : dead_parts) EXPECT_FALSE(fs::exists(part)) << part;
  EXPECT_TRUE(fs::exists(live_part));
}

TEST(ReportDatabase, TwoRunsNeverSeeEachOthersRowsButShareTheImportRules) {
  TempHome t;
  test::ScriptedUserIo other_io;
  AppState other(t.state.home, other_io, t.clock, t.disk);
  ASSERT_TRUE(CheckReportTables(t.state));
  ASSERT_TRUE(CheckReportTables(other));
  t.state.gReportDb->exec("INSERT INTO RPTISDIN (Reason) VALUES ('1')");
  EXPECT_EQ(QueryNumber(*t.state.gReportDb, "SELECT count(*) FROM RPTISDIN"), 1);
  EXPECT_EQ(QueryNumber(*other.gReportDb, "SELECT count(*) FROM RPTISDIN"), 0);
  EXPECT_GT(QueryNumber(*other.gReportDb, "SELECT count(*) FROM IMPRULES"), 0);
}

TEST(OpenLocalDB, DamagedPagesBehindAnIntactTableListAreFoundAndRepairOffered) {
  TempHome t;
  const fs::path file = ClosedDatabase(t, "family.mdb", 400);
  std::string bytes = ReadWholeFile(file);
  const size_t page = 4096;
  ASSERT_GT(bytes.size(), 40 * page);
  for (size_t i = bytes.size() - 6 * page; i < bytes.size() - 2 * page; ++i) bytes[i] = '\x5A';
  WriteFileAtomically(file, bytes);
  t.io.Script({Answer::kNo});
  t.state.gDatabaseName = file.string();
  EXPECT_FALSE(OpenLocalDB(t.state));
  EXPECT_TRUE(t.io.Saw(store_text::kAttemptRepair));
}

TEST(OpenLocalDB, AGarbledHeaderIsOfferedTheWholeRepairAndKeepsTheRows) {
  TempHome t;
  const fs::path file = ClosedDatabase(t, "family.mdb", 5);
  std::string bytes = ReadWholeFile(file);
  bytes.replace(0, 24, std::string(24, 'X'));
  WriteFileAtomically(file, bytes);
  t.state.gDatabaseName = file.string();
  ASSERT_TRUE(OpenLocalDB(t.state));
  EXPECT_TRUE(t.io.Saw("Attempt to Repair it?"));
  EXPECT_TRUE(t.io.Saw("Database Optimization Completed."));
  EXPECT_EQ(QueryNumber(*t.state.gDb, "SELECT count(*) FROM Athlete"), 5);
}

}  // namespace
}  // namespace kvlr
