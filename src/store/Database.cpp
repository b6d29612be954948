#include "store/Database.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/Errors.h"
#include "core/FileOps.h"
#include "core/Options.h"
#include "core/RunFolder.h"
#include "store/Repair.h"
#include "store/Snapshot.h"
#include "store/StoreTexts.h"
#include "store/TableBuilder.h"
#include "store/UserTables.h"
#include "store/WorkoutTables.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

void AddCodeRow(SQLite::Database& db, const char* abbr, const char* desc, int type) {
  SQLite::Statement insert(db, "INSERT INTO CODE (ABBR, \"DESC\", TYPE) VALUES (?, ?, ?)");
  SQLite::bind(insert, abbr, desc, type);
  insert.exec();
}

// A file of this system has a table ATHLETE with the field KVL2000.
bool IsKvlDatabase(SQLite::Database& db) {
  return FieldNames(db, "ATHLETE").count("KVL2000") > 0;
}

void RefuseInvalid(AppState& state, bool tell = true) {
  if (tell) state.io->Tell(store_text::kNotValidDatabase);
  state.CloseCurrentDB();
  state.gTitle = std::string(kTitleInvalidDatabase);
  state.gDbOpen = false;
  state.gShortDbName.clear();
  state.gDatabaseName.clear();
}

// Opens and tests the file; throws what the store throws, and StoreError kDamagedFile when
// pages are damaged. Null if not a file of this system.
std::unique_ptr<SQLite::Database> TryOpen(const fs::path& file) {
  auto db = OpenStoreFile(file, OpenMode::kExisting);
  if (!IsKvlDatabase(*db)) return nullptr;
  HoldExclusively(*db);
  if (!PagesOk(*db)) {
    throw StoreError(err::kDamagedFile,
                     fmt::format("{} is damaged: some of its pages can't be read correctly.",
                                 file.filename().string()));
  }
  return db;
}

// Removes a database file that was never finished, with its companions.
void DiscardUnfinished(const fs::path& file) {
  std::error_code ec;
  fs::remove(file, ec);
  for (const auto& companion : CompanionFiles(file)) fs::remove(companion, ec);
}

void SeedCategories(SQLite::Database& db, const TableDef& table) {
  if (SameName(table.name, "Energy")) {
    SQLite::Statement seek(db, "SELECT 1 FROM Energy WHERE energy_no = ?");
    SQLite::Statement insert(db,
                             "INSERT INTO Energy (energy_no, energy_abbr, energy_name, "
                             "stress_index) VALUES (?, ?, ?, ?)");
    for (const auto& e : EnergySeeds()) {
      seek.reset();
      seek.bind(1, e.energy_no);
      if (seek.executeStep()) continue;
      insert.reset();
      SQLite::bind(insert, e.energy_no, e.abbr, e.name, e.stress_index);
      insert.exec();
    }
  } else if (SameName(table.name, "StrokeCategory") || SameName(table.name, "WorkCategory")) {
    const auto& seeds =
        SameName(table.name, "StrokeCategory") ? StrokeCategorySeeds() : WorkCategorySeeds();
    SQLite::Statement insert(
        db,
        fmt::format("INSERT INTO {} (stroke_abbr, stroke_name) VALUES (?, ?)", Quoted(table.name)));
    for (const auto& [abbr, name] : seeds) {
      insert.reset();
      SQLite::bind(insert, abbr, name);
      insert.exec();
    }
  } else if (SameName(table.name, "SetDescriptions")) {
    SQLite::Statement insert(db, "INSERT INTO SetDescriptions (set_name) VALUES (?)");
    for (const char* name : SetDescriptionSeeds()) {
      insert.reset();
      insert.bind(1, name);
      insert.exec();
    }
  }
}

// Splits go with their result: a split needs one, and deleting a result takes its splits.
void AddResultsSplitsRelation(SQLite::Database& db) {
  db.exec(
      "CREATE TRIGGER IF NOT EXISTS \"ResultsSplits\" AFTER DELETE ON RESULT "
      "BEGIN DELETE FROM SPLITS WHERE SplitID = old.RESULT; END");
  db.exec(
      "CREATE TRIGGER IF NOT EXISTS \"ResultsSplitsCheck\" BEFORE INSERT ON SPLITS "
      "WHEN NOT EXISTS (SELECT 1 FROM RESULT WHERE RESULT = new.SplitID) "
      "BEGIN SELECT RAISE(ABORT, 'A split needs the result it belongs to.'); END");
}

bool HasRelation(SQLite::Database& db) {
  SQLite::Statement q(db,
                      "SELECT count(*) FROM sqlite_master WHERE type = 'trigger' AND name IN "
                      "('ResultsSplits', 'ResultsSplitsCheck')");
  q.executeStep();
  return q.getColumn(0).getInt() == 2;
}

}  // namespace

std::string ShortName(const fs::path& file) {
  return file.stem().string();
}

std::unique_ptr<SQLite::Database> OpenStoreFile(const fs::path& file, OpenMode mode,
                                                bool exclusive) {
  int flags = SQLite::OPEN_READWRITE;
  if (mode == OpenMode::kCreate) flags |= SQLite::OPEN_CREATE;
  auto db = std::make_unique<SQLite::Database>(file.string(), flags);
  // A second process waits a little for one that is finishing a write.
  db->setBusyTimeout(kBusyWaitMs);
  // Locks once taken are held for the whole run, as the file is opened for one user.
  if (exclusive) db->exec("PRAGMA locking_mode = EXCLUSIVE");
  // Whole-table passes (ranking, import) touch every page of RESULT and its indexes.
  db->exec("PRAGMA cache_size = -32768");
  db->exec("PRAGMA temp_store = MEMORY");
  return db;
}

bool PagesOk(SQLite::Database& db, bool full) {
  try {
    SQLite::Statement check(db, full ? "PRAGMA integrity_check(1)" : "PRAGMA quick_check(1)");
    return check.executeStep() && check.getColumn(0).getString() == "ok";
  } catch (const SQLite::Exception&) {
    return false;
  }
}

void HoldExclusively(SQLite::Database& db) {
  db.exec("BEGIN EXCLUSIVE");
  db.exec("COMMIT");
}

void PopulateCodeTable(SQLite::Database& db) {
  AddCodeRow(db, "HS", "High School", 3);
  AddCodeRow(db, "AG", "Age Group", 3);
  AddCodeRow(db, "JV", "Junior Varsity", 4);
  AddCodeRow(db, "VR", "Varsity", 4);
}

bool CreateNewDatabase(AppState& state, const fs::path& file) {
  state.gDatabaseName = file.string();
  auto already_exists = [&] {
    state.io->Tell(
        fmt::format("{}\r\n{} already exists.", store_text::kDidntCreateDatabase, file.string()));
    return false;
  };
  std::error_code ec;
  if (fs::exists(file, ec)) return already_exists();
  // The file is made under a name of this run and renamed into place when complete, so a
  // crash or a full disk never leaves a half-made database under the chosen name.
  const fs::path part = PartFileBeside(file);
  DiscardUnfinished(part);
  auto fail = [&](const std::exception& e, std::string_view word) {
    DiscardUnfinished(part);
    if (ErrorNumberOf(e) == err::kDiskFull) {
      state.io->Tell(store_text::DiskFull(file.string()));
    } else if (!word.empty()) {
      state.io->Tell(store_text::ProblemCreating(word, e.what()));
    } else {
      ReportError(state, "basSetup.CreateNewDatabase", e);
    }
    return false;
  };
  std::string word;  // of the table being made when a failure comes
  try {
    auto db = OpenStoreFile(part, OpenMode::kCreate);
    SQLite::Transaction transaction(*db);
    for (std::string_view name : NewDatabaseTableOrder()) {
      const TableDef& table = *FindTable(UserTables(), name);
      word = table.word;
      CreateTable(*db, table);
      if (SameName(name, "CODE")) PopulateCodeTable(*db);
    }
    word.clear();
    transaction.commit();
  } catch (const std::exception& e) {
    return fail(e, word);
  }
  try {
    RenameNoReplace(part, file);
  } catch (const FileError& e) {
    const bool taken = fs::exists(file, ec);
    DiscardUnfinished(part);
    if (taken) return already_exists();
    return fail(e, "");
  }
  state.gShortDbName = ShortName(file);
  return true;
}

bool OpenLocalDB(AppState& state) {
  const fs::path file = state.gDatabaseName;
  std::unique_ptr<SQLite::Database> db;
  bool repaired = false;
  for (;;) {
    try {
      db = TryOpen(file);
      if (!db) {
        RefuseInvalid(state);
        return false;
      }
      break;
    } catch (const std::exception& e) {
      const int number = ErrorNumberOf(e);
      // A garbled header reads as "not a database" and is offered the repair like any damage.
      if (number == err::kDamagedFile) {
        if (repaired || !state.io->AskYesNo(
                            fmt::format("{}\r\n\r\n{}", e.what(), store_text::kAttemptRepair))) {
          RefuseInvalid(state);
          return false;
        }
        repaired = true;
        if (!RepairDamagedFile(state, file)) {
          RefuseInvalid(state, false);
          return false;
        }
        continue;
      }
      if (number == err::kFileInUse) {
        state.io->Tell(
            fmt::format("{}{}", file.filename().string(), store_text::kOpenedExclusively));
        return false;
      }
      if (ReportError(state, "basUtil.OpenLocalDB", e) == action::kRetry) continue;
      return false;
    }
  }

  std::string path = state.gDatabaseName;
  state.CloseCurrentDB();
  state.gDatabaseName = path;
  state.gDb = std::move(db);
  state.gShortDbName = ShortName(file);
  state.gDbOpen = true;
  state.gDataDir = file.parent_path();
  RemoveLeftovers(state.home, {state.gDataDir});
  if (!CheckDatabaseTables(state) || !CheckWorkoutTables(state)) {
    // What is there stays usable; the missing tables were reported.
  }
  state.gTitle = fmt::format("{}{}", kTitleDatabasePrefix, state.gDatabaseName);
  // A salvaged file goes on through the whole repair: orphans, compaction, ranks.
  if (repaired) RepairAndCompact(state);
  return state.gDb != nullptr;
}

bool CheckDatabaseTables(AppState& state) {
  SQLite::Database& db = *state.gDb;
  const auto existing = TableNames(db);
  bool relation = existing.count("RESULT") && existing.count("SPLITS") && HasRelation(db);
  bool complete = relation;
  for (const auto& table : UserTables()) {
    if (!existing.count(UpperName(table.name))) complete = false;
  }
  if (complete) return true;

  SQLite::Transaction transaction(db);
  for (const auto& table : UserTables()) {
    if (TableExists(db, table.name)) continue;
    try {
      CreateTable(db, table);
      if (SameName(table.name, "CODE")) {
        AddCodeRow(db, "HS", "High School", 0);
        AddCodeRow(db, "HS", "High School", 3);
      }
    } catch (const std::exception& e) {
      transaction.commit();
      state.io->Tell(store_text::ProblemCreating(table.word, e.what()));
      return false;
    }
  }
  try {
    AddResultsSplitsRelation(db);
  } catch (const std::exception& e) {
    ReportError(state, "basSetup.CheckDatabaseTables", e);
  }
  transaction.commit();
  return true;
}

bool CheckWorkoutTables(AppState& state) {
  SQLite::Database& db = *state.gDb;
  const auto existing = TableNames(db);
  bool complete = IndexExists(db, "Athlete.athWKgroup");
  for (const auto& table : WorkoutTables()) {
    if (!existing.count(UpperName(table.name))) complete = false;
  }
  if (complete) return true;

  SQLite::Transaction transaction(db);
  for (const auto& table : WorkoutTables()) {
    if (TableExists(db, table.name)) continue;
    try {
      CreateTable(db, table);
      SeedCategories(db, table);
    } catch (const std::exception& e) {
      transaction.commit();
      state.io->Tell(store_text::ProblemCreating(table.word, e.what()));
      state.io->Tell(store_text::kDidntCreateDatabase);
      return false;
    }
  }
  if (!IndexExists(db, "Athlete.athWKgroup")) {
    // The workout group fields of a swimmer come with the index that orders by them.
    if (!AddFieldIfMissing(state, 0, "Athlete", FieldType::kText, "WKgroup", 5) ||
        !AddFieldIfMissing(state, 0, "Athlete", FieldType::kText, "WKSubGr", 3)) {
      transaction.commit();
      return false;
    }
    db.exec(
        "CREATE INDEX \"Athlete.athWKgroup\" ON Athlete (WKgroup, WKSubGr, Last, First, "
        "Initial)");
  }
  transaction.commit();
  return true;
}

bool AddFieldIfMissing(AppState& state, int which_db, std::string_view table, FieldType type,
                       std::string_view field, int size) {
  SQLite::Database& db = which_db == 0 ? *state.gDb : *state.gReportDb;
  try {
    if (FieldNames(db, table).count(UpperName(field))) return true;
    db.exec(fmt::format("ALTER TABLE {} ADD COLUMN {}", Quoted(std::string(table)),
                        ColumnSql(std::string(field), type, size, "")));
    return true;
  } catch (const std::exception& e) {
    state.io->Tell(store_text::ProblemAddingField(field, table));
    return false;
  }
}

void ApplyDatabaseSettings(AppState& state) {
  state.gDateOrder = DetectDateOrder(state.locale_date_format);
  state.gNullDate = kNullDate;
  GetOptions(state);
  if (state.hooks.load_standard) state.hooks.load_standard(state);
  if (state.hooks.get_favorites) state.hooks.get_favorites(state);
}

}  // namespace kvlr
