// The system file, the last-databases list and the report database.

#include <gtest/gtest.h>

#include <SQLiteCpp/Statement.h>

#include "core/FileOps.h"
#include "store/LastDatabase.h"
#include "store/ReportDatabase.h"
#include "store/SystemFile.h"
#include "store/TableBuilder.h"
#include "support/TempHome.h"

namespace kvlr {
namespace {

namespace fs = std::filesystem;
using test::TempHome;

fs::path Touch(const fs::path& file) {
  WriteFileAtomically(file, "x");
  return file;
}

TEST(LastDatabase, KeepsTheFiveNewestAndOpensTheNewestThatExists) {
  TempHome t;
  for (int i = 1; i <= 7; ++i) {
    t.clock.Set(DateTime{Date{2026, 11, i}, 9, 0, 0});
    t.state.gDatabaseName = Touch(t.Data() / ("db" + std::to_string(i) + ".mdb")).string();
    t.state.gStandardFile = "STD" + std::to_string(i);
    SaveLastDatabase(t.state);
  }
  fs::remove(t.Data() / "db7.mdb");  // moved away since
  t.state.gDatabaseName.clear();
  auto names = GetLastDatabase(t.state);
  ASSERT_EQ(names.size(), 5u);
  EXPECT_EQ(fs::path(names.front()).filename(), "db7.mdb");
  EXPECT_EQ(fs::path(names.back()).filename(), "db3.mdb");
  EXPECT_EQ(fs::path(t.state.gDatabaseName).filename(), "db6.mdb");
  EXPECT_EQ(t.state.gStandardFile, "STD6");
}

TEST(LastDatabase, ReopeningMovesAFileToTheTopWithoutACopy) {
  TempHome t;
  const fs::path a = Touch(t.Data() / "O'Brien family.mdb");
  const fs::path b = Touch(t.Data() / "b.mdb");
  for (const auto& [file, day] : {std::pair{a, 1}, std::pair{b, 2}, std::pair{a, 3}}) {
    t.clock.Set(DateTime{Date{2026, 11, day}, 9, 0, 0});
    t.state.gDatabaseName = file.string();
    SaveLastDatabase(t.state);
  }
  auto names = GetLastDatabase(t.state);
  ASSERT_EQ(names.size(), 2u);
  EXPECT_EQ(names[0], a.string());
  EXPECT_EQ(t.state.gDatabaseName, a.string());
}

TEST(ReportTables, MissingRulesFileIsReported) {
  TempHome t;
  fs::remove(t.state.home.ImportRules());
  EXPECT_FALSE(CheckReportTables(t.state));
  EXPECT_TRUE(t.io.Saw("Required KVL-Rimprul.txt file not found."));
  t.io.shown.clear();
  CheckSystemTables(t.state);
  EXPECT_TRUE(t.io.Saw("Error checking Report Tables"));
  EXPECT_FALSE(t.io.Saw("Error Checking System Tables"));
}

TEST(ReportTables, ParseImportRulesTakesOnePairALine) {
  auto rules = ParseImportRules("Y,Taken\r\n\n1, Same result, already on file \nZ\n");
  ASSERT_EQ(rules.size(), 3u);
  EXPECT_EQ(rules[1], (std::pair<std::string, std::string>{"1", "Same result, already on file"}));
  EXPECT_EQ(rules[2].second, "");
}

// A newer report database left by an update replaces the old; the rules come from the
// shipped file; the system file is made with its tables.
TEST(ReportTables, AreMadeFromTheNewerFileAndTheShippedRules) {
  TempHome t;
  SQLite::Database(t.state.home.NewReportDb().string(),
                   SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
      .exec("CREATE TABLE MARKER (X INTEGER)");
  ASSERT_TRUE(CheckReportTables(t.state));
  EXPECT_TRUE(TableExists(*t.state.gReportDb, "MARKER"));
  EXPECT_TRUE(TableExists(*t.state.gReportDb, "RMEETI"));
  EXPECT_FALSE(fs::exists(t.state.home.NewReportDb()));
  SQLite::Statement q(*t.state.gReportDb, "SELECT REASON FROM IMPRULES ORDER BY REASON");
  std::vector<std::string> reasons;
  while (q.executeStep()) reasons.push_back(q.getColumn(0).getString());
  EXPECT_EQ(reasons, (std::vector<std::string>{"1", "Y"}));
  EXPECT_EQ(t.io.progress.front(), "Checking Report tables...");

  ASSERT_TRUE(CheckSystemFile(t.state));
  SQLite::Database db(t.state.home.SystemFile().string(), SQLite::OPEN_READONLY);
  EXPECT_TRUE(TableExists(db, "SETTINGS"));
  EXPECT_TRUE(TableExists(db, "REMINDERS"));
}

}  // namespace
}  // namespace kvlr
