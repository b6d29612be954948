// Files of earlier releases are completed at open, adding only what is missing.

#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "store/Database.h"
#include "store/DbVersion.h"
#include "store/TableBuilder.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::MakeOpenDatabase;
using test::TempHome;

// Closes, lets `change` alter the file as an older release left it, opens again.
void Reopen(TempHome& t, const fs::path& file,
            const std::function<void(SQLite::Database&)>& change) {
  t.state.CloseCurrentDB();
  {
    SQLite::Database db(file.string(), SQLite::OPEN_READWRITE);
    change(db);
  }
  t.state.gDatabaseName = file.string();
  ASSERT_TRUE(OpenLocalDB(t.state));
  CheckDbVersion(t.state);
}

TEST(Completion, MissingTablesComeBackEmptyAndNothingElseChanges) {
  TempHome t;
  fs::path file = MakeOpenDatabase(t);
  t.state.gDb->exec("INSERT INTO Athlete (Last, First, Sex) VALUES ('Lane', 'Ada', 'F')");
  t.state.gDb->exec("INSERT INTO TEAM (TCode) VALUES ('ABC')");
  Reopen(t, file, [](SQLite::Database& db) {
    db.exec("DROP TABLE tblHealth");
    db.exec("DROP TABLE WorkCategory");
    db.exec("DROP TABLE CODE");
  });
  SQLite::Database& db = *t.state.gDb;
  EXPECT_TRUE(TableExists(db, "TBLHEALTH"));
  EXPECT_EQ(RowCount(db, "tblHealth"), 0);
  EXPECT_EQ(RowCount(db, "WorkCategory"), 6);
  // A CODE made at completion has the two High School rows, not the four of a new file.
  EXPECT_EQ(test::QueryNumber(db, "SELECT count(*) FROM CODE WHERE ABBR = 'HS' AND TYPE IN (0, 3)"),
            2);
  EXPECT_EQ(RowCount(db, "CODE"), 2);
  EXPECT_EQ(RowCount(db, "Athlete"), 1);
  EXPECT_EQ(RowCount(db, "TEAM"), 1);
}

// Splits belong to a result: none without one, and they go with it; a file made without
// that relation gains it at open.
TEST(Completion, SplitsFollowTheirResult) {
  TempHome t;
  fs::path file = MakeOpenDatabase(t);
  Reopen(t, file, [](SQLite::Database& db) {
    db.exec("DROP TRIGGER ResultsSplits");
    db.exec("DROP TRIGGER ResultsSplitsCheck");
  });
  SQLite::Database& db = *t.state.gDb;
  db.exec(
      "INSERT INTO RESULT (MEET, ATHLETE, I_R, MTEVENT, F_P, SCORE) VALUES (1, 1, 'I', 1, 'F', "
      "6123)");
  const auto id = db.getLastInsertRowid();
  SQLite::Statement add(db, "INSERT INTO SPLITS (SplitID, SplitIndex, Split) VALUES (?, ?, ?)");
  for (int i = 1; i <= 2; ++i) {
    add.reset();
    SQLite::bind(add, id, i, i * 3000);
    add.exec();
  }
  add.reset();
  SQLite::bind(add, id + 99, 1, 3000);
  EXPECT_THROW(add.exec(), SQLite::Exception);

  db.exec("DELETE FROM RESULT");
  EXPECT_EQ(RowCount(db, "SPLITS"), 0);
}

TEST(DbVersion, GoalFlyEventsAreAddedOnceToYardsAndShortCourseGoals) {
  TempHome t;
  fs::path file = MakeOpenDatabase(t);
  SQLite::Database& db = *t.state.gDb;
  db.exec(
      "INSERT INTO MEET (MName, Start, Course, Type) VALUES "
      "('Goals - Yards', '2026-01-01', 'Y', 'G'), ('Goals - SCM', '2026-01-01', 'S', 'G'), "
      "('Goals - LCM', '2026-01-01', 'L', 'G'), ('Goalsetters Invite', '2026-02-01', 'Y', 'AG')");
  // A file without the version field gets it, the version and the events.
  Reopen(t, file,
         [](SQLite::Database& db) { db.exec("ALTER TABLE OPTIONS DROP COLUMN DbVersion"); });
  Reopen(t, file, [](SQLite::Database&) {});  // a second open adds nothing more
  SQLite::Database& again = *t.state.gDb;
  SQLite::Statement version(again, "SELECT DbVersion FROM OPTIONS");
  ASSERT_TRUE(version.executeStep());
  EXPECT_EQ(version.getColumn(0).getString(), "2.1Da");
  EXPECT_EQ(test::QueryNumber(again, "SELECT count(*) FROM MTEVENT"), 4);
  EXPECT_EQ(test::QueryNumber(again,
                              "SELECT count(*) FROM MTEVENT E JOIN MEET M ON M.Meet = E.Meet "
                              "WHERE M.Course = 'L'"),
            0);
  EXPECT_EQ(test::QueryNumber(again,
                              "SELECT count(*) FROM MTEVENT WHERE MtEv = 37 AND Sex = 'M' AND "
                              "Distance = 200 AND Stroke = 4 AND Lo_Hi = 99 AND I_R = 'I'"),
            2);
  EXPECT_EQ(test::QueryNumber(again, "SELECT count(*) FROM MTEVENT WHERE MtEv = 38 AND Sex = 'F'"),
            2);
}

TEST(DbVersion, VersionIsOlderComparesLetterByLetter) {
  struct Case {
    const char* a;
    const char* b;
    bool older;
  };
  const Case cases[] = {
      {"", "2.1Bc", true},       {"2.1Bc", "", true},       {"2.1Da", "2.1Bc", true},
      {"2.1Bc", "2.1Bc", false}, {"2.1Dc", "2.1Bc", false}, {"2.0Zz", "2.1Aa", true},
      {"2.1A", "2.1Bc", true},   {"2.2Cd", "2.1Bc", false}, {"2.1Bd", "2.1B", false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(VersionIsOlder(c.a, c.b), c.older) << c.a << " vs " << c.b;
  }
}

}  // namespace
}  // namespace kvlr
