#pragma once
// Consistent copies of a database and whole-file replacement, both through SQLite's online
// backup, so that a copy never reads a half-written transaction and a replacement is one
// atomic commit (a crash rolls it back through the journal). Raw file copies of a database
// that another process may be writing are never made.

#include <filesystem>
#include <memory>
#include <vector>

#include <SQLiteCpp/Database.h>

namespace kvlr {

// How long a connection waits for another process's lock before it gives up, in ms.
inline constexpr int kBusyWaitMs = 5000;

// Opens an existing database to read or replace it: waits up to kBusyWaitMs for a process
// still writing it and rolls back what a killed writer left in its journal. With
// `exclusive` the write lock is then held until the connection closes. Throws StoreError
// (kFileInUse, with words naming the file) when the wait runs out; SQLite::Exception else.
std::unique_ptr<SQLite::Database> OpenLocked(const std::filesystem::path& file, bool exclusive);

// Writes a consistent copy of `source` (its main database) to the new file `target`, which
// must not exist. On failure `target` is removed and StoreError/FileError is thrown.
void SnapshotDatabase(SQLite::Database& source, const std::filesystem::path& target);

// Replaces every page of `target`'s main database with those of the database file `source`
// in one transaction of `target`: on any failure (a full disk included) `target` keeps its
// old contents. Throws StoreError.
void ReplaceDatabaseContents(SQLite::Database& target, const std::filesystem::path& source);

// The companion files SQLite keeps beside a database: "-journal", "-wal", "-shm".
std::vector<std::filesystem::path> CompanionFiles(const std::filesystem::path& database);

}  // namespace kvlr
