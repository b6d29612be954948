#pragma once
// Staging tables and PDB files: rows go in as text cut to their fields' sizes, and a table
// becomes one record per row (rowid order) and back. Also where the files live.

#include <filesystem>
#include <string>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "handheld/Pdb.h"
#include "store/Schema.h"

namespace kvlr {

// Adds one row; values beyond the table's fields are dropped, missing ones are blank.
void InsertTextRow(SQLite::Database& db, const TableDef& table,
                   const std::vector<std::string>& values);
// Every row as text in field order (Null as "").
std::vector<std::vector<std::string>> TextRows(SQLite::Database& db, const TableDef& table);

PdbFile TableToPdb(SQLite::Database& db, const TableDef& table, const std::string& name,
                   const DateTime& now);
void PdbToTable(SQLite::Database& db, const TableDef& table, const PdbFile& file);

// "NorvanHandHeld" in the program home, where the staging files are made.
std::filesystem::path HandheldStagingDir(const AppState& state);
// The sync folder the exported files are left in for the user's sync tool: the folder kept
// in the program home's "KVL-Rsync.txt", else "HotSync" in the program home.
std::filesystem::path HandheldSyncDir(const AppState& state);
// Keeps the folder; refuses (false, the user told) a path over 60 characters.
bool SetHandheldSyncDir(AppState& state, const std::filesystem::path& folder);

// The file of `name` in `folder`, compared without case (the companion's files come in
// either case); empty when there is none.
std::filesystem::path FindFileNoCase(const std::filesystem::path& folder, std::string_view name);

}  // namespace kvlr
