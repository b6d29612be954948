#include "store/Snapshot.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include "core/Errors.h"
#include "core/FileOps.h"
#include "store/StoreTexts.h"

namespace kvlr {
namespace fs = std::filesystem;

namespace {

// The store's failure as a StoreError whose text a user understands.
[[noreturn]] void ThrowStore(const SQLite::Exception& e, const fs::path& file) {
  const int code = e.getErrorCode() & 0xff;
  if (code == SQLITE_BUSY || code == SQLITE_LOCKED) {
    throw StoreError(err::kFileInUse, store_text::InUseByAnother(file.string()));
  }
  if (code == SQLITE_FULL) throw StoreError(err::kDiskFull, store_text::DiskFull(file.string()));
  throw StoreError(StoreErrorNumber(e.getExtendedErrorCode()),
                   fmt::format("{}: {}", file.string(), e.what()));
}

void CopyAllPages(SQLite::Database& to, SQLite::Database& from, const fs::path& named) {
  try {
    SQLite::Backup backup(to, from);
    // One step copies everything under one read lock of the source: the copy is of one
    // moment, whatever other processes do afterwards.
    const int rc = backup.executeStep(-1);
    if (rc != SQLITE_DONE) {
      throw SQLite::Exception(fmt::format("the copy stopped ({})", sqlite3_errstr(rc)), rc);
    }
  } catch (const SQLite::Exception& e) {
    ThrowStore(e, named);
  }
}

}  // namespace

std::unique_ptr<SQLite::Database> OpenLocked(const fs::path& file, bool exclusive) {
  try {
    auto db = std::make_unique<SQLite::Database>(file.string(), SQLite::OPEN_READWRITE);
    db->setBusyTimeout(kBusyWaitMs);
    if (exclusive) db->exec("PRAGMA locking_mode = EXCLUSIVE");
    // The first transaction waits for writers and rolls back a hot journal before anything
    // is read; an exclusive one keeps the lock for the connection's life.
    db->exec(exclusive ? "BEGIN EXCLUSIVE" : "BEGIN");
    db->exec("SELECT count(*) FROM sqlite_master");
    db->exec("COMMIT");
    return db;
  } catch (const SQLite::Exception& e) {
    ThrowStore(e, file);
  }
}

void SnapshotDatabase(SQLite::Database& source, const fs::path& target) {
  try {
    SQLite::Database copy(target.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    CopyAllPages(copy, source, fs::path(source.getFilename()));
  } catch (...) {
    std::error_code ec;
    fs::remove(target, ec);
    throw;
  }
}

void ReplaceDatabaseContents(SQLite::Database& target, const fs::path& source) {
  std::unique_ptr<SQLite::Database> from;
  try {
    from = std::make_unique<SQLite::Database>(source.string(), SQLite::OPEN_READONLY);
  } catch (const SQLite::Exception& e) {
    ThrowStore(e, source);
  }
  CopyAllPages(target, *from, fs::path(target.getFilename()));
}

std::vector<fs::path> CompanionFiles(const fs::path& database) {
  std::vector<fs::path> files;
  for (const char* suffix : {"-journal", "-wal", "-shm"}) {
    fs::path f = database;
    f += suffix;
    files.push_back(std::move(f));
  }
  return files;
}

}  // namespace kvlr
