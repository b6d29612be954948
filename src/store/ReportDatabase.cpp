#include "store/ReportDatabase.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/Errors.h"
#include "core/FileOps.h"
#include "core/VbRules.h"
#include "store/Database.h"
#include "store/ReportTables.h"
#include "store/StoreTexts.h"
#include "store/SystemFile.h"
#include "store/TableBuilder.h"
#include "store/WorkoutTables.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

// The import rules are the one table that every run reads alike; the others hold the rows of
// one run's report.
bool SharedAcrossRuns(const TableDef& table) {
  return SameName(table.name, "IMPRULES");
}

// Makes the missing tables of a list in the file, and this connection's own copies of those
// a run fills: two processes (two imports, an import beside a repair) then never see or wait
// on each other's report rows. False (user told) at the first failure.
bool CreateMissing(AppState& state, const std::vector<TableDef>& tables) {
  SQLite::Database& db = *state.gReportDb;
  const auto existing = TableNames(db);
  SQLite::Transaction transaction(db, SQLite::TransactionBehavior::IMMEDIATE);
  for (const auto& table : tables) {
    try {
      if (!existing.count(UpperName(table.name))) CreateTable(db, table);
      if (!SharedAcrossRuns(table)) CreatePrivateTable(db, table);
    } catch (const std::exception& e) {
      transaction.commit();
      state.io->Tell(store_text::ProblemCreating(table.word, e.what()));
      return false;
    }
  }
  transaction.commit();
  return true;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> ParseImportRules(std::string_view text) {
  std::vector<std::pair<std::string, std::string>> rules;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    start = end + 1;
    if (Trim(line).empty()) continue;
    size_t comma = line.find(',');
    if (comma == std::string_view::npos) {
      rules.emplace_back(Trim(line), "");
    } else {
      rules.emplace_back(Trim(line.substr(0, comma)), Trim(line.substr(comma + 1)));
    }
  }
  return rules;
}

bool FillImportRules(AppState& state) {
  std::error_code ec;
  if (!fs::exists(state.home.ImportRules(), ec)) {
    state.io->Tell(store_text::kImportRulesMissing);
    return false;
  }
  try {
    auto rules = ParseImportRules(ReadWholeFile(state.home.ImportRules()));
    SQLite::Database& db = *state.gReportDb;
    SQLite::Transaction transaction(db, SQLite::TransactionBehavior::IMMEDIATE);
    db.exec("DELETE FROM IMPRULES");
    SQLite::Statement insert(db, "INSERT INTO IMPRULES (REASON, \"DESC\") VALUES (?, ?)");
    for (const auto& [reason, desc] : rules) {
      insert.reset();
      SQLite::bind(insert, reason, desc);
      insert.exec();
    }
    transaction.commit();
    return true;
  } catch (const std::exception& e) {
    state.io->Tell(store_text::ProblemCreating(store_text::kImportReasonsWord, e.what()));
    return false;
  }
}

bool CheckWkReportTables(AppState& state, bool show_progress) {
  if (show_progress) state.io->Progress(store_text::kCheckingWkReportTables);
  return CreateMissing(state, WorkoutReportTables());
}

bool CheckReportTables(AppState& state) {
  state.io->Progress(store_text::kCheckingReportTables);
  try {
    std::error_code ec;
    if (fs::exists(state.home.NewReportDb(), ec)) {
      state.gReportDb.reset();
      ReplaceFile(state.home.NewReportDb(), state.home.ReportDb());
    }
    if (!state.gReportDb) {
      MakeFolder(state.home.ReportDir());
      state.gReportDb = OpenStoreFile(state.home.ReportDb(), OpenMode::kCreate, false);
    }
  } catch (const std::exception& e) {
    state.io->Tell(store_text::ProblemCreating("Report", e.what()));
    return false;
  }
  if (!CreateMissing(state, ReportTables())) return false;
  if (!FillImportRules(state)) return false;
  return CheckWkReportTables(state, false);
}

void CheckSystemTables(AppState& state) {
  state.io->Progress(store_text::kCheckingSystemTables);
  if (!CheckReportTables(state)) state.io->Tell(store_text::kErrorCheckingReportTables);
  if (!CheckSystemFile(state)) state.io->Tell(store_text::kErrorCheckingSystemTables);
}

void EmptyReportTables(AppState& state) {
  if (!state.gReportDb) return;
  for (const char* table : {"RAthInfo", "RMeetI", "RSPREAD"}) {
    state.gReportDb->exec(std::string("DELETE FROM ") + table);
  }
}

}  // namespace kvlr
