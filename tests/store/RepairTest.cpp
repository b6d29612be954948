// Repair and compaction of the open database.

#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include "store/Repair.h"
#include "store/StoreTexts.h"
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
  EXPECT_TRUE(t.io.Saw("Database Optimization Completed."));
  EXPECT_EQ(box::Icon(t.io.shown.back().style), box::kInformation) << "a success, not a warning";
  EXPECT_EQ(t.io.progress.front(), "Repairing Database...");
  EXPECT_TRUE(fs::exists(t.state.home.ReportDb()));

  // Without swimmers every individual row goes; relays stay.
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
  EXPECT_TRUE(
      t.io.Saw("There is not enough extra disk space available to optimize/repair this database."));
  EXPECT_TRUE(t.state.gDbOpen) << "the database is opened again";

  t.io.shown.clear();
  t.disk.free_bytes = (file_kb + 1000) * 1024;
  EXPECT_TRUE(RepairAndCompact(t.state));
  EXPECT_FALSE(
      t.io.Saw("There is not enough extra disk space available to optimize/repair this database."));
}

TEST(RepairAndCompact, RoomMessageHasTheFiguresInThousands) {
  EXPECT_EQ(store_text::DiskRoomMessage(5900, "/data", 6000),
            "There are 5,900 Kbytes of disk space left on /data\r\nThis operation will need at "
            "least 6,000 Kbytes for temporary files.\r\nThere is not enough extra disk space "
            "available to optimize/repair this database.");
  EXPECT_EQ(store_text::Thousands(0), "0");
  EXPECT_EQ(store_text::Thousands(1234567), "1,234,567");
}

}  // namespace
}  // namespace kvlr
