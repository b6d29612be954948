#pragma once
// Makes tables from their declarations and tells which tables and fields a file has.

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "store/Schema.h"

namespace kvlr {

// The CREATE TABLE and CREATE INDEX statements of a declaration. `temporary` makes them
// for the connection's own temporary copy, which hides the file's table of that name.
std::vector<std::string> CreateStatements(const TableDef& table, bool temporary = false);

// Makes the table with its indexes. Store failures throw SQLite::Exception.
void CreateTable(SQLite::Database& db, const TableDef& table);

// Makes the connection's own temporary copy of a table (and its indexes) unless it has one.
void CreatePrivateTable(SQLite::Database& db, const TableDef& table);

// Upper-cased names of the tables in the file.
std::set<std::string> TableNames(SQLite::Database& db);
bool TableExists(SQLite::Database& db, std::string_view name);  // case-insensitive
// Upper-cased names of the fields of a table; empty if the table is missing.
std::set<std::string> FieldNames(SQLite::Database& db, std::string_view table);
bool IndexExists(SQLite::Database& db, std::string_view index_file_name);  // case-insensitive

// Rows of a table.
long long RowCount(SQLite::Database& db, std::string_view table);

}  // namespace kvlr
