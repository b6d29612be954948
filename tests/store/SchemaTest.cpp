// The files the store makes hold exactly the declared layout; files of earlier releases are
// completed at open, adding only what is missing.

#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/VariadicBind.h>

#include "store/Database.h"
#include "store/DbVersion.h"
#include "store/ReportDatabase.h"
#include "store/ReportTables.h"
#include "store/TableBuilder.h"
#include "store/UserTables.h"
#include "store/WorkoutTables.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::MakeOpenDatabase;
using test::TempHome;

std::vector<std::string> ColumnsOf(SQLite::Database& db, const std::string& table) {
  std::vector<std::string> names;
  SQLite::Statement q(db, "SELECT name FROM pragma_table_info(?)");
  q.bind(1, table);
  while (q.executeStep()) names.push_back(q.getColumn(0).getString());
  return names;
}

struct IndexInfo {
  bool found = false;
  bool unique = false;
  std::vector<std::string> columns;
};

IndexInfo IndexOf(SQLite::Database& db, const TableDef& table, const IndexDef& index) {
  IndexInfo info;
  // The primary key of an auto-increment column is the column itself.
  const FieldDef* f = index.columns.size() == 1 ? table.Field(index.columns[0].name) : nullptr;
  if (index.primary && f && f->auto_increment) {
    SQLite::Statement sql(db, "SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ?");
    sql.bind(1, table.name);
    sql.executeStep();
    info.found =
        sql.getColumn(0).getString().find("CONSTRAINT \"" + index.name +
                                          "\" PRIMARY KEY AUTOINCREMENT") != std::string::npos;
    info.unique = true;
    info.columns = {f->name};
    return info;
  }
  SQLite::Statement list(db, "SELECT \"unique\" FROM pragma_index_list(?) WHERE name = ?");
  SQLite::bind(list, table.name, IndexFileName(table, index));
  if (!list.executeStep()) return info;
  info.found = true;
  info.unique = list.getColumn(0).getInt() != 0;
  SQLite::Statement cols(db, "SELECT name FROM pragma_index_info(?) ORDER BY seqno");
  cols.bind(1, IndexFileName(table, index));
  while (cols.executeStep()) info.columns.push_back(cols.getColumn(0).getString());
  return info;
}

void ExpectLayout(SQLite::Database& db, const std::vector<TableDef>& tables) {
  for (const auto& table : tables) {
    SCOPED_TRACE(table.name);
    std::vector<std::string> expected;
    for (const auto& f : table.fields) expected.push_back(f.name);
    auto actual = ColumnsOf(db, table.name);
    // Completion may append fields after the declared ones (the workout group of Athlete).
    ASSERT_GE(actual.size(), expected.size());
    actual.resize(expected.size());
    EXPECT_EQ(actual, expected);
    for (const auto& index : table.indexes) {
      SCOPED_TRACE(index.name);
      IndexInfo info = IndexOf(db, table, index);
      ASSERT_TRUE(info.found);
      EXPECT_EQ(info.unique, index.unique);
      ASSERT_EQ(info.columns.size(), index.columns.size());
      for (size_t i = 0; i < info.columns.size(); ++i) {
        EXPECT_TRUE(SameName(info.columns[i], index.columns[i].name));
      }
    }
  }
}

TEST(Schema, NewReportAndStandardsTablesHoldEveryFieldAndIndex) {
  TempHome t;
  MakeOpenDatabase(t);
  ExpectLayout(*t.state.gDb, UserTables());
  ExpectLayout(*t.state.gDb, WorkoutTables());
  EXPECT_TRUE(IndexExists(*t.state.gDb, "Athlete.athWKgroup"));
  ASSERT_TRUE(CheckReportTables(t.state));
  ExpectLayout(*t.state.gReportDb, ReportTables());
  ExpectLayout(*t.state.gReportDb, WorkoutReportTables());
  TableDef std_table = StandardsTable("AGSTD2026");
  CreateTable(*t.state.gDb, std_table);
  SQLite::Statement q(*t.state.gDb,
                      "SELECT desc FROM pragma_index_xinfo('AGSTD2026.Hi_Age') WHERE key = 1 "
                      "ORDER BY seqno DESC LIMIT 1");
  ASSERT_TRUE(q.executeStep());
  EXPECT_EQ(q.getColumn(0).getInt(), 1);
  const auto columns = ColumnsOf(*t.state.gDb, "AGSTD2026");
  ASSERT_EQ(columns.size(), 3u + 72u + 4u);
  EXPECT_EQ(columns[3], "F(0)");
}

// What the store must refuse, whatever screen or import writes it.
TEST(Schema, StoreRefusesDuplicatesOverSizeAndOutOfRange) {
  TempHome t;
  MakeOpenDatabase(t);
  SQLite::Database& db = *t.state.gDb;
  db.exec("INSERT INTO MEET (MName, Start, Course) VALUES ('Spring Open', '2026-03-01', 'Y')");
  db.exec("INSERT INTO ENTRY (Meet, Athlete, I_R, MtEvent) VALUES (1, 1, 'I', 7)");
  db.exec("INSERT INTO RESULT (MEET, ATHLETE, I_R, MTEVENT, F_P) VALUES (1, 1, 'I', 7, 'P')");
  struct Case {
    const char* name;
    const char* sql;
    const char* words;  // nullptr: accepted
  };
  const Case cases[] = {
      {"same meet name and day, other case",
       "INSERT INTO MEET (MName, Start) VALUES ('SPRING OPEN', '2026-03-01')", "UNIQUE"},
      {"same meet name, another day",
       "INSERT INTO MEET (MName, Start) VALUES ('Spring Open', "
       "'2026-03-02')",
       nullptr},
      {"second entry in an event",
       "INSERT INTO ENTRY (Meet, Athlete, I_R, MtEvent) VALUES "
       "(1, 1, 'I', 7)",
       "UNIQUE"},
      {"entry of another kind",
       "INSERT INTO ENTRY (Meet, Athlete, I_R, MtEvent) VALUES "
       "(1, 1, 'E', 7)",
       nullptr},
      {"second result in a round",
       "INSERT INTO RESULT (MEET, ATHLETE, I_R, MTEVENT, F_P) "
       "VALUES (1, 1, 'I', 7, 'P')",
       "UNIQUE"},
      {"result of another round",
       "INSERT INTO RESULT (MEET, ATHLETE, I_R, MTEVENT, F_P) "
       "VALUES (1, 1, 'I', 7, 'F')",
       nullptr},
      {"text over its size",
       "INSERT INTO Athlete (Last, First) VALUES ('Abcdefghijklmnopqrstu', 'Ann')",
       "Last can not be longer than 20 characters"},
      {"byte out of range", "INSERT INTO RESULT (MEET, ATHLETE, NT) VALUES (1, 1, 256)",
       "NT must be from 0 to 255"},
      {"integer out of range", "INSERT INTO RESULT (MEET, ATHLETE, AGE) VALUES (1, 1, 40000)",
       "AGE must be from -32768 to 32767"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    try {
      db.exec(c.sql);
      EXPECT_EQ(c.words, nullptr) << "accepted";
    } catch (const SQLite::Exception& e) {
      ASSERT_NE(c.words, nullptr) << e.what();
      EXPECT_NE(std::string(e.what()).find(c.words), std::string::npos) << e.what();
    }
  }
}

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
