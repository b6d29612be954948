#include "store/Repair.h"

#include <algorithm>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>
#include <sqlite3.h>
#include <variant>

#include "core/ErrorHandler.h"
#include "core/Errors.h"
#include "core/FileOps.h"
#include "core/RunFolder.h"
#include "store/Database.h"
#include "store/ReportDatabase.h"
#include "store/Snapshot.h"
#include "store/StoreTexts.h"
#include "store/TableBuilder.h"
#include "store/UserTables.h"
#include "store/WorkoutTables.h"

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

// Drops and makes again every table of the report database in one transaction: another
// process using the file meanwhile waits rather than losing it under its feet.
void RebuildReportDatabase(AppState& state) {
  if (state.gReportDb) {
    SQLite::Database& db = *state.gReportDb;
    SQLite::Transaction transaction(db, SQLite::TransactionBehavior::IMMEDIATE);
    for (const auto& name : TableNames(db)) {
      if (name.rfind("SQLITE_", 0) == 0) continue;
      db.exec("DROP TABLE main." + Quoted(name));
    }
    transaction.commit();
  }
  CheckReportTables(state);
}

// Copies one table row by row, keeping what can be read before the damage. The rows are
// read first: a read of a damaged page may undo the transaction it happens in.
void CopyRowsOneByOne(SQLite::Database& db, const std::string& table) {
  const std::string q = Quoted(table);
  using Value = std::variant<std::monostate, int64_t, double, std::string>;
  std::vector<std::vector<Value>> rows;
  int columns = 0;
  try {
    SQLite::Statement read(db, fmt::format("SELECT * FROM damaged.{}", q));
    columns = read.getColumnCount();
    while (read.executeStep()) {
      auto& row = rows.emplace_back();
      for (int i = 0; i < columns; ++i) {
        SQLite::Column c = read.getColumn(i);
        switch (c.getType()) {
          case SQLITE_INTEGER:
            row.emplace_back(c.getInt64());
            break;
          case SQLITE_FLOAT:
            row.emplace_back(c.getDouble());
            break;
          case SQLITE_TEXT:
          case SQLITE_BLOB:
            row.emplace_back(c.getString());
            break;
          default:
            row.emplace_back(std::monostate{});
            break;
        }
      }
    }
  } catch (const SQLite::Exception&) {
    // The rest of the table lies in damaged pages.
  }
  if (rows.empty()) return;
  std::string marks;
  for (int i = 0; i < columns; ++i) marks += i ? ",?" : "?";
  SQLite::Transaction transaction(db);
  SQLite::Statement write(db, fmt::format("INSERT OR IGNORE INTO main.{} VALUES ({})", q, marks));
  for (const auto& row : rows) {
    write.reset();
    write.clearBindings();
    for (int i = 0; i < columns; ++i) {
      std::visit(
          [&](const auto& v) {
            using T = std::decay_t<decltype(v)>;
            if constexpr (!std::is_same_v<T, std::monostate>) write.bind(i + 1, v);
          },
          row[static_cast<size_t>(i)]);
    }
    write.exec();
  }
  transaction.commit();
}

// A copy of `source` in `work` whose header fields of fixed value are written again, for a
// file whose opening bytes were overwritten; the page size, when unreadable, is taken as ours.
fs::path MendedHeaderCopy(const fs::path& source, const fs::path& work) {
  std::string bytes = ReadWholeFile(source);
  if (bytes.size() < 100) bytes.resize(100, '\0');
  bytes.replace(0, 16, std::string_view("SQLite format 3\0", 16));
  const unsigned page =
      (static_cast<unsigned char>(bytes[16]) << 8) | static_cast<unsigned char>(bytes[17]);
  const bool page_ok = page == 1 || (page >= 512 && (page & (page - 1)) == 0);
  if (!page_ok) {
    bytes[16] = 0x10;
    bytes[17] = 0x00;
  }
  bytes[18] = bytes[19] = 1;
  bytes[20] = 0;
  bytes[21] = 64;
  bytes[22] = bytes[23] = 32;
  const fs::path mended = work / "mended.mdb";
  WriteFileAtomically(mended, bytes);
  return mended;
}

struct SchemaItem {
  std::string type, name, sql;
};

// The table list of the attached `damaged` file, as far as it can be read.
std::vector<SchemaItem> ReadableSchema(SQLite::Database& db) {
  std::vector<SchemaItem> items;
  try {
    SQLite::Statement schema(db,
                             "SELECT type, name, sql FROM damaged.sqlite_master WHERE sql IS NOT "
                             "NULL AND name NOT LIKE 'sqlite_%'");
    while (schema.executeStep()) {
      items.push_back({schema.getColumn(0).getString(), schema.getColumn(1).getString(),
                       schema.getColumn(2).getString()});
    }
  } catch (const SQLite::Exception&) {
    // The rest of the table list is lost; the declared layout fills the gap later.
  }
  return items;
}

bool HoldsOurSwimmers(const std::vector<SchemaItem>& items) {
  return std::any_of(items.begin(), items.end(), [](const SchemaItem& item) {
    return item.type == "table" && SameName(item.name, "ATHLETE") &&
           UpperName(item.sql).find("KVL2000") != std::string::npos;
  });
}

// Builds `target` from what `source` still holds: the schema first, then the rows, then the
// indexes and triggers that the saved rows allow. A file whose header can't be read is tried
// again with its header mended. False, and nothing made, when no table of this system could
// be read.
bool Salvage(const fs::path& source, const fs::path& target, const fs::path& work) {
  RemoveIfExists(target);
  SQLite::Database db(target.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  // Lets a file shorter than its header says be read up to where it ends.
  db.exec("PRAGMA writable_schema = ON");
  // Attached as "damaged" with its table list read; empty when the file can't be read.
  auto attach = [&db](const fs::path& file) {
    try {
      SQLite::Statement statement(db, "ATTACH DATABASE ? AS damaged");
      statement.bind(1, file.string());
      statement.exec();
    } catch (const SQLite::Exception&) {
      return std::vector<SchemaItem>();
    }
    auto items = ReadableSchema(db);
    if (!HoldsOurSwimmers(items)) db.exec("DETACH DATABASE damaged");
    return items;
  };
  std::vector<SchemaItem> items = attach(source);
  if (!HoldsOurSwimmers(items)) items = attach(MendedHeaderCopy(source, work));
  if (!HoldsOurSwimmers(items)) return false;

  SQLite::Transaction tables(db);
  for (const auto& item : items) {
    if (item.type == "table") db.exec(item.sql);
  }
  const auto saved = TableNames(db);
  for (const auto* declared : {&UserTables(), &WorkoutTables()}) {
    for (const auto& table : *declared) {
      if (!saved.count(UpperName(table.name))) CreateTable(db, table);
    }
  }
  tables.commit();
  for (const auto& item : items) {
    if (item.type != "table") continue;
    try {
      db.exec(fmt::format("INSERT INTO main.{0} SELECT * FROM damaged.{0}", Quoted(item.name)));
    } catch (const SQLite::Exception&) {
      CopyRowsOneByOne(db, item.name);
    }
  }
  SQLite::Transaction indexes(db);
  for (const auto& item : items) {
    if (item.type == "table") continue;
    try {
      db.exec(item.sql);
    } catch (const SQLite::Exception&) {
      // A unique index the saved rows break is left out rather than losing the rows.
    }
  }
  indexes.commit();
  db.exec("DETACH DATABASE damaged");
  db.exec("PRAGMA writable_schema = OFF");
  return true;
}

}  // namespace

fs::path DamagedCopyName(const fs::path& file, const DateTime& now) {
  return file.parent_path() / fmt::format("{}-damaged-{:04}{:02}{:02}-{:02}{:02}{:02}.mdb",
                                          file.stem().string(), now.date.year, now.date.month,
                                          now.date.day, now.hour, now.minute, now.second);
}

bool EnoughRoomToRepair(AppState& state, const fs::path& file) {
  std::error_code ec;
  const long long file_kb = static_cast<long long>(fs::file_size(file, ec) / 1024);
  const long long free_kb = static_cast<long long>(state.disk->FreeBytes(file) / 1024);
  if (free_kb - file_kb >= kRoomKb) return true;
  state.io->Tell(
      store_text::DiskRoomMessage(free_kb, file.parent_path().string(), file_kb + kRoomKb));
  return false;
}

bool RepairDamagedFile(AppState& state, const fs::path& file) {
  try {
    RunFolder work(state.home);
    const fs::path rebuilt = work.Path() / "KVLNEW.MDB";
    state.io->Progress(store_text::kRepairing);
    if (!Salvage(file, rebuilt, work.Path())) {
      state.io->Tell(store_text::kNotValidDatabase);
      return false;
    }
    // The damaged file is kept as it was, its companions with it; none may stay beside the
    // rebuilt file, which would take them for its own journal.
    const fs::path kept = DamagedCopyName(file, state.clock->Now());
    CopyFileSafely(file, kept);
    const auto companions = CompanionFiles(file);
    const auto kept_companions = CompanionFiles(kept);
    for (size_t i = 0; i < companions.size(); ++i) {
      std::error_code ec;
      if (fs::exists(companions[i], ec)) ReplaceFile(companions[i], kept_companions[i]);
    }
    ReplaceFile(rebuilt, file);
    return true;
  } catch (const std::exception& e) {
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
  if (!EnoughRoomToRepair(state, file)) return false;

  auto reopen = [&state] {
    if (OpenLocalDB(state)) ApplyDatabaseSettings(state);
  };
  try {
    state.io->Progress(store_text::kRepairing);
    if (!PagesOk(*state.gDb, true)) {
      state.CloseCurrentDB();
      if (!RepairDamagedFile(state, file)) {
        reopen();
        return false;
      }
      if (!OpenLocalDB(state)) return false;
    }
    state.io->Progress(store_text::kCompacting);
    // In place and under the lock this run holds: one transaction of SQLite's own, so a
    // crash or a full disk leaves the file as it was and no other process slips in.
    state.gDb->exec("VACUUM");
    RebuildReportDatabase(state);
  } catch (const std::exception& e) {
    ReportError(state, "basSetup.RepairAndCompact", e);
    if (!state.gDb) reopen();
    return false;
  }

  state.io->Progress(store_text::kOpeningFiles);
  ApplyDatabaseSettings(state);
  state.io->Progress(store_text::kCompactingNotes);
  if (state.hooks.compact_workout_notes) state.hooks.compact_workout_notes(state);
  state.io->Progress(store_text::kReranking);
  if (state.hooks.rerank_all) state.hooks.rerank_all(state);
  state.io->Message(store_text::kOptimizationCompleted, box::kOk + box::kInformation, {});
  return true;
}

}  // namespace kvlr
