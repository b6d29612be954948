#include "store/Repair.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include "core/ErrorHandler.h"
#include "core/Errors.h"
#include "core/FileOps.h"
#include "store/Database.h"
#include "store/ReportDatabase.h"
#include "store/StoreTexts.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

constexpr long long kRoomKb = 1000;

void RemoveOrphans(SQLite::Database& db) {
  SQLite::Transaction transaction(db);
  db.exec(
      "DELETE FROM RESULT WHERE I_R = 'I' AND NOT EXISTS "
      "(SELECT 1 FROM Athlete AS A WHERE A.Athlete = RESULT.Athlete)");
  db.exec(
      "DELETE FROM AthInfo WHERE NOT EXISTS "
      "(SELECT 1 FROM Athlete AS A WHERE A.Athlete = AthInfo.Athlete)");
  db.exec(
      "DELETE FROM ENTRY WHERE I_R = 'I' AND NOT EXISTS "
      "(SELECT 1 FROM Athlete AS A WHERE A.Athlete = ENTRY.Athlete)");
  transaction.commit();
}

bool IntegrityOk(const fs::path& file) {
  try {
    SQLite::Database db(file.string(), SQLite::OPEN_READONLY);
    SQLite::Statement check(db, "PRAGMA integrity_check(1)");
    return check.executeStep() && check.getColumn(0).getString() == "ok";
  } catch (const SQLite::Exception&) {
    return false;
  }
}

// Copies one table row by row, keeping what can be read before the damage.
void CopyRowsOneByOne(SQLite::Database& db, const std::string& table) {
  const std::string q = Quoted(table);
  SQLite::Statement read(db, fmt::format("SELECT * FROM damaged.{}", q));
  const int columns = read.getColumnCount();
  std::string marks;
  for (int i = 0; i < columns; ++i) marks += i ? ",?" : "?";
  SQLite::Statement write(db, fmt::format("INSERT OR IGNORE INTO main.{} VALUES ({})", q, marks));
  try {
    while (read.executeStep()) {
      write.reset();
      for (int i = 0; i < columns; ++i) {
        SQLite::Column c = read.getColumn(i);
        switch (c.getType()) {
          case SQLITE_INTEGER: write.bind(i + 1, c.getInt64()); break;
          case SQLITE_FLOAT: write.bind(i + 1, c.getDouble()); break;
          case SQLITE_TEXT: write.bind(i + 1, c.getString()); break;
          case SQLITE_BLOB: write.bind(i + 1, c.getBlob(), c.getBytes()); break;
          default: write.bind(i + 1); break;
        }
      }
      write.exec();
    }
  } catch (const SQLite::Exception&) {
    // The rest of the table lies in damaged pages.
  }
}

// Builds `target` from what `source` still holds: the schema first, then the rows, then the
// indexes and triggers that the saved rows allow.
void Salvage(const fs::path& source, const fs::path& target) {
  RemoveIfExists(target);
  SQLite::Database db(target.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  SQLite::Statement attach(db, "ATTACH DATABASE ? AS damaged");
  attach.bind(1, source.string());
  attach.exec();

  struct Item {
    std::string type, name, sql;
  };
  std::vector<Item> items;
  {
    SQLite::Statement schema(db,
                             "SELECT type, name, sql FROM damaged.sqlite_master WHERE sql IS NOT "
                             "NULL AND name NOT LIKE 'sqlite_%'");
    while (schema.executeStep()) {
      items.push_back({schema.getColumn(0).getString(), schema.getColumn(1).getString(),
                       schema.getColumn(2).getString()});
    }
  }
  SQLite::Transaction transaction(db);
  for (const auto& item : items) {
    if (item.type == "table") db.exec(item.sql);
  }
  for (const auto& item : items) {
    if (item.type != "table") continue;
    try {
      db.exec(fmt::format("INSERT INTO main.{0} SELECT * FROM damaged.{0}", Quoted(item.name)));
    } catch (const SQLite::Exception&) {
      db.exec(fmt::format("DELETE FROM main.{}", Quoted(item.name)));
      CopyRowsOneByOne(db, item.name);
    }
  }
  for (const auto& item : items) {
    if (item.type == "table") continue;
    try {
      db.exec(item.sql);
    } catch (const SQLite::Exception&) {
      // A unique index the saved rows break is left out rather than losing the rows.
    }
  }
  transaction.commit();
  db.exec("DETACH DATABASE damaged");
}

}  // namespace

fs::path DamagedCopyName(const fs::path& file, const DateTime& now) {
  return file.parent_path() /
         fmt::format("{}-damaged-{:04}{:02}{:02}-{:02}{:02}{:02}.mdb", file.stem().string(),
                     now.date.year, now.date.month, now.date.day, now.hour, now.minute,
                     now.second);
}

bool EnoughRoomToRepair(AppState& state, const fs::path& file) {
  std::error_code ec;
  const long long file_kb = static_cast<long long>(fs::file_size(file, ec) / 1024);
  const long long free_kb = static_cast<long long>(state.disk->FreeBytes(file) / 1024);
  if (free_kb - file_kb >= kRoomKb) return true;
  state.io->Tell(store_text::DiskRoomMessage(free_kb, file.parent_path().string(),
                                             file_kb + kRoomKb));
  return false;
}

bool RepairDamagedFile(AppState& state, const fs::path& file) {
  const fs::path rebuilt = state.home.CompactTemp();
  try {
    state.io->Progress(store_text::kRepairing);
    Salvage(file, rebuilt);
    CopyFileSafely(file, DamagedCopyName(file, state.clock->Now()));
    ReplaceFile(rebuilt, file);
    return true;
  } catch (const std::exception& e) {
    std::error_code ec;
    fs::remove(rebuilt, ec);
    ReportError(state, "basSetup.RepairDamagedFile", e);
    return false;
  }
}

bool RepairAndCompact(AppState& state) {
  const fs::path file = state.gDatabaseName;
  try {
    RemoveOrphans(*state.gDb);
  } catch (const std::exception& e) {
    ReportError(state, "basSetup.RepairAndCompact", e);
    return false;
  }
  state.CloseCurrentDB();

  auto reopen = [&state] {
    if (OpenLocalDB(state)) ApplyDatabaseSettings(state);
  };
  if (!EnoughRoomToRepair(state, file)) {
    reopen();
    return false;
  }
  try {
    state.io->Progress(store_text::kRepairing);
    if (!IntegrityOk(file) && !RepairDamagedFile(state, file)) {
      reopen();
      return false;
    }
    const fs::path compacted = state.home.CompactTemp();
    RemoveIfExists(compacted);
    state.io->Progress(store_text::kCompacting);
    {
      SQLite::Database db(file.string(), SQLite::OPEN_READWRITE);
      SQLite::Statement vacuum(db, "VACUUM INTO ?");
      vacuum.bind(1, compacted.string());
      vacuum.exec();
    }
    ReplaceFile(compacted, file);

    state.gReportDb.reset();
    RemoveIfExists(state.home.ReportDb());
    CheckReportTables(state);
  } catch (const std::exception& e) {
    ReportError(state, "basSetup.RepairAndCompact", e);
    reopen();
    return false;
  }

  state.io->Progress(store_text::kOpeningFiles);
  if (!OpenLocalDB(state)) return false;
  ApplyDatabaseSettings(state);
  state.io->Progress(store_text::kCompactingNotes);
  if (state.hooks.compact_workout_notes) state.hooks.compact_workout_notes(state);
  state.io->Progress(store_text::kReranking);
  if (state.hooks.rerank_all) state.hooks.rerank_all(state);
  state.io->Tell(store_text::kOptimizationCompleted);
  return true;
}

}  // namespace kvlr
