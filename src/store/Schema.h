#pragma once
// The layout of every table, declared once as data. Creation of new files and completion of
// files from earlier releases are both driven from these declarations.

#include <string>
#include <string_view>
#include <vector>

#include "store/FieldType.h"

namespace kvlr {

struct FieldDef {
  std::string name;
  FieldType type = FieldType::kLong;
  int size = 0;  // text size; 0 otherwise
  bool auto_increment = false;
  std::string default_sql;  // SQL literal; "" keeps the type's default
};

struct IndexColumn {
  std::string name;
  bool descending = false;
};

struct IndexDef {
  std::string name;
  std::vector<IndexColumn> columns;
  bool primary = false;
  bool unique = false;
};

struct TableDef {
  std::string name;
  std::string word;     // how messages name the table: "Problem Creating the <word> Table"
  std::string routine;  // the routine that makes it, as the log names it
  std::vector<FieldDef> fields;
  std::vector<IndexDef> indexes;

  const FieldDef* Field(std::string_view field_name) const;  // case-insensitive; null if none
};

// Builders that keep the declarations short.
FieldDef Counter(std::string name);
FieldDef Long(std::string name);
FieldDef Int(std::string name);
FieldDef Byte(std::string name);
FieldDef Bool(std::string name);
FieldDef Single(std::string name);
FieldDef Double(std::string name);
FieldDef DateField(std::string name);
FieldDef Text(std::string name, int size);
FieldDef Memo(std::string name);
FieldDef WithDefault(FieldDef field, std::string default_sql);

IndexDef Primary(std::string name, std::vector<std::string> columns);
IndexDef Unique(std::string name, std::vector<std::string> columns);
IndexDef Plain(std::string name, std::vector<std::string> columns);

// The table of `name` in a list, compared case-insensitively; null if absent.
const TableDef* FindTable(const std::vector<TableDef>& tables, std::string_view name);

// The name an index has in the file: "<table>.<index>", since index names are per table.
std::string IndexFileName(const TableDef& table, const IndexDef& index);

bool SameName(std::string_view a, std::string_view b);  // ASCII, case-insensitive
std::string UpperName(std::string_view name);           // ASCII upper case

}  // namespace kvlr
