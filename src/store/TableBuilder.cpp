#include "store/TableBuilder.h"

#include <algorithm>
#include <cctype>

#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

namespace kvlr {
namespace {

// The primary index that the auto-increment column itself stands for, if any.
const IndexDef* PrimaryOnCounter(const TableDef& table, const FieldDef& counter) {
  for (const auto& index : table.indexes) {
    if (index.primary && index.columns.size() == 1 &&
        SameName(index.columns[0].name, counter.name)) {
      return &index;
    }
  }
  return nullptr;
}

}  // namespace

std::vector<std::string> CreateStatements(const TableDef& table, bool temporary) {
  std::vector<std::string> statements;
  const IndexDef* counter_index = nullptr;
  std::string columns;
  for (const auto& field : table.fields) {
    if (!columns.empty()) columns += ",\n  ";
    if (field.auto_increment) {
      counter_index = PrimaryOnCounter(table, field);
      columns += Quoted(field.name) + " INTEGER";
      if (counter_index) columns += " CONSTRAINT " + Quoted(counter_index->name);
      columns += " PRIMARY KEY AUTOINCREMENT";
    } else {
      columns += ColumnSql(field.name, field.type, field.size, field.default_sql);
    }
  }
  statements.push_back(fmt::format("CREATE {}TABLE {} (\n  {}\n)", temporary ? "TEMP " : "",
                                   Quoted(table.name), columns));

  for (const auto& index : table.indexes) {
    if (&index == counter_index) continue;
    std::string cols;
    for (const auto& c : index.columns) {
      if (!cols.empty()) cols += ", ";
      cols += Quoted(c.name) + (c.descending ? " DESC" : "");
    }
    statements.push_back(fmt::format(
        "CREATE {}INDEX {}{} ON {} ({})", index.unique ? "UNIQUE " : "", temporary ? "temp." : "",
        Quoted(IndexFileName(table, index)), Quoted(table.name), cols));
  }
  return statements;
}

void CreateTable(SQLite::Database& db, const TableDef& table) {
  for (const auto& sql : CreateStatements(table)) db.exec(sql);
}

void CreatePrivateTable(SQLite::Database& db, const TableDef& table) {
  SQLite::Statement exists(db,
                           "SELECT 1 FROM sqlite_temp_master WHERE type = 'table' AND upper(name) "
                           "= upper(?)");
  exists.bind(1, table.name);
  if (exists.executeStep()) return;
  for (const auto& sql : CreateStatements(table, true)) db.exec(sql);
}

std::set<std::string> TableNames(SQLite::Database& db) {
  std::set<std::string> names;
  SQLite::Statement query(db, "SELECT name FROM sqlite_master WHERE type = 'table'");
  while (query.executeStep()) names.insert(UpperName(query.getColumn(0).getString()));
  return names;
}

bool TableExists(SQLite::Database& db, std::string_view name) {
  SQLite::Statement query(
      db, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND upper(name) = upper(?)");
  query.bind(1, std::string(name));
  return query.executeStep();
}

std::set<std::string> FieldNames(SQLite::Database& db, std::string_view table) {
  std::set<std::string> names;
  SQLite::Statement query(db, "SELECT name FROM pragma_table_info(?)");
  query.bind(1, std::string(table));
  while (query.executeStep()) names.insert(UpperName(query.getColumn(0).getString()));
  return names;
}

bool IndexExists(SQLite::Database& db, std::string_view index_file_name) {
  SQLite::Statement query(
      db, "SELECT 1 FROM sqlite_master WHERE type = 'index' AND upper(name) = upper(?)");
  query.bind(1, std::string(index_file_name));
  return query.executeStep();
}

long long RowCount(SQLite::Database& db, std::string_view table) {
  SQLite::Statement query(db, fmt::format("SELECT count(*) FROM {}", Quoted(std::string(table))));
  query.executeStep();
  return query.getColumn(0).getInt64();
}

}  // namespace kvlr
