// Repair and compaction of the open database.

#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "store/Repair.h"
#include "store/StoreTexts.h"
#include "store/TableBuilder.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::MakeOpenDatabase;
using test::TempHome;

void AddSwims(SQLite::Database& db) {
  db.exec("INSERT INTO Athlete (Athlete, Last, First, Sex) VALUES (1, 'Lane', 'Ada', 'F')");
  db.exec("INSERT INTO AthInfo (Athlete, City) VALUES (1, 'Springfield'), (2, 'Gone')");
  db.exec(
      "INSERT INTO RESULT (MEET, ATHLETE, I_R, MTEVENT, F_P, SCORE) VALUES "
      "(1, 1, 'I', 1, 'F', 3000), (1, 2, 'I', 2, 'F', 3100), (1, 2, 'R', 3, 'F', 12000)");
  db.exec(
      "INSERT INTO ENTRY (Meet, Athlete, I_R, MtEvent) VALUES "
      "(1, 1, 'I', 1), (1, 2, 'I', 2), (1, 2, 'R', 3)");
}

TEST(RepairAndCompact, RemovesOrphansKeepsRelaysAndReopens) {
  TempHome t;
  MakeOpenDatabase(t);
  AddSwims(*t.state.gDb);
  std::vector<std::string> steps;
  t.state.hooks.compact_workout_notes = [&](AppState&) { steps.push_back("notes"); };
  t.state.hooks.rerank_all = [&](AppState&) { steps.push_back("rank"); };

  ASSERT_TRUE(RepairAndCompact(t.state));
  ASSERT_TRUE(t.state.gDbOpen);
  SQLite::Database& db = *t.state.gDb;
  EXPECT_EQ(test::QueryNumber(db, "SELECT count(*) FROM RESULT WHERE ATHLETE = 2 AND I_R = 'I'"),
            0);
  EXPECT_EQ(test::QueryNumber(db, "SELECT count(*) FROM RESULT WHERE I_R = 'R'"), 1);
  EXPECT_EQ(test::QueryNumber(db, "SELECT count(*) FROM ENTRY WHERE ATHLETE = 2 AND I_R = 'I'"), 0);
  EXPECT_EQ(test::QueryNumber(db, "SELECT count(*) FROM ENTRY WHERE I_R = 'R'"), 1);
  EXPECT_EQ(test::QueryNumber(db, "SELECT count(*) FROM AthInfo"), 1);
  EXPECT_EQ(test::QueryNumber(db, "SELECT count(*) FROM RESULT WHERE ATHLETE = 1"), 1);
  EXPECT_EQ(steps, (std::vector<std::string>{"notes", "rank"}));
  EXPECT_TRUE(t.io.Saw(store_text::kOptimizationCompleted));
  EXPECT_EQ(box::Icon(t.io.shown.back().style), box::kInformation) << "a success, not a warning";
  EXPECT_EQ(t.io.progress.front(), store_text::kRepairing);
  EXPECT_TRUE(fs::exists(t.state.home.ReportDb()));
}

TEST(RepairAndCompact, WithoutSwimmersEveryIndividualRowGoes) {
  TempHome t;
  MakeOpenDatabase(t);
  AddSwims(*t.state.gDb);
  t.state.gDb->exec("DELETE FROM Athlete");
  ASSERT_TRUE(RepairAndCompact(t.state));
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT count(*) FROM RESULT WHERE I_R = 'I'"), 0);
  EXPECT_EQ(test::QueryNumber(*t.state.gDb, "SELECT count(*) FROM RESULT"), 1);
}

// Room left after the file itself must be 1000 Kbytes or more.
TEST(RepairAndCompact, NeedsRoomForItsTemporaryFile) {
  TempHome t;
  fs::path file = MakeOpenDatabase(t);
  const auto file_kb = fs::file_size(file) / 1024;

  t.disk.free_bytes = (file_kb + 999) * 1024;
  EXPECT_FALSE(RepairAndCompact(t.state));
  EXPECT_TRUE(t.io.Saw(store_text::kNotEnoughRoom));
  EXPECT_TRUE(t.state.gDbOpen) << "the database is opened again";

  t.io.shown.clear();
  t.disk.free_bytes = (file_kb + 1000) * 1024;
  EXPECT_TRUE(RepairAndCompact(t.state));
  EXPECT_FALSE(t.io.Saw(store_text::kNotEnoughRoom));
}

TEST(RepairAndCompact, RoomMessageHasTheFiguresInThousands) {
  EXPECT_EQ(store_text::DiskRoomMessage(5900, "/data", 6000),
            "There are 5,900 Kbytes of disk space left on /data\r\nThis operation will need at "
            "least 6,000 Kbytes for temporary files.\r\nThere is not enough extra disk space "
            "available to optimize/repair this database.");
  EXPECT_EQ(store_text::Thousands(0), "0");
  EXPECT_EQ(store_text::Thousands(1234567), "1,234,567");
}

TEST(RepairDamagedFile, SavesTheRowsBeforeTheDamage) {
  TempHome t;
  fs::path file = MakeOpenDatabase(t);
  {
    SQLite::Transaction transaction(*t.state.gDb);
    SQLite::Statement insert(*t.state.gDb, "INSERT INTO JOURNAL (Subject, Comment) VALUES (?, ?)");
    for (int i = 0; i < 2000; ++i) {
      insert.reset();
      insert.bind(1, "Day " + std::to_string(i));
      insert.bind(2, std::string(200, 'a'));
      insert.exec();
    }
    transaction.commit();
  }
  t.state.CloseCurrentDB();
  fs::resize_file(file, fs::file_size(file) * 3 / 4);

  ASSERT_TRUE(RepairDamagedFile(t.state, file));
  SQLite::Database db(file.string(), SQLite::OPEN_READONLY);
  SQLite::Statement check(db, "PRAGMA integrity_check");
  check.executeStep();
  EXPECT_EQ(check.getColumn(0).getString(), "ok");
  EXPECT_TRUE(TableExists(db, "Athlete"));
  EXPECT_GT(RowCount(db, "JOURNAL"), 0);
  EXPECT_EQ(fs::path(DamagedCopyName(file, t.clock.Now())).filename(),
            "family-damaged-20261122-103000.mdb");
  EXPECT_TRUE(fs::exists(DamagedCopyName(file, t.clock.Now())));
}

}  // namespace
}  // namespace kvlr
