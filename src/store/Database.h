#pragma once
// Making, opening and completing a user database.

#include <filesystem>
#include <memory>
#include <string>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "store/FieldType.h"

namespace kvlr {

enum class OpenMode { kExisting, kCreate };

// Opens a store file. With `exclusive` the file is kept for this process alone once
// HoldExclusively has run: another program opening it is refused as "in use". Nothing is
// written by opening. Throws SQLite::Exception on failure.
std::unique_ptr<SQLite::Database> OpenStoreFile(const std::filesystem::path& file, OpenMode mode,
                                                bool exclusive = true);
// SQLite's check of every page (`full` adds the index contents): true when it finds nothing
// wrong. A file whose damage keeps the check from running at all gives false too.
bool PagesOk(SQLite::Database& db, bool full = false);

// Takes the file's write lock for the rest of the run.
void HoldExclusively(SQLite::Database& db);

// Makes a new database with the tables of a new file, in their order. On a failure the user
// is told which table and why, and false comes back (the half-made file stays). The file
// must not exist yet. Sets gDatabaseName and, on success, gShortDbName.
bool CreateNewDatabase(AppState& state, const std::filesystem::path& file);

// Opens gDatabaseName as the current database: refuses files that aren't databases of this
// system, offers repair of a damaged file, completes missing tables. A failed open keeps the
// database that was open before. True if the database is now in use.
bool OpenLocalDB(AppState& state);

// Adds the tables (and their first rows) that an opened file lacks; true if usable.
bool CheckDatabaseTables(AppState& state);
// The same for the training-log tables.
bool CheckWorkoutTables(AppState& state);

// Adds a field to a table unless it is there; false (and the user told) on failure.
// which_db 0 is the user database, 1 the report database.
bool AddFieldIfMissing(AppState& state, int which_db, std::string_view table, FieldType type,
                       std::string_view field, int size);

// Settings of an opened database: date order, no-date value, OPTIONS, the standards and
// favourite filter of the database.
void ApplyDatabaseSettings(AppState& state);

// The four first rows of CODE in a new file.
void PopulateCodeTable(SQLite::Database& db);

// The file name without folder and extension.
std::string ShortName(const std::filesystem::path& file);

}  // namespace kvlr
