#include "store/Schema.h"

#include <algorithm>
#include <cctype>

namespace kvlr {

bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::toupper(static_cast<unsigned char>(x)) ==
                  std::toupper(static_cast<unsigned char>(y));
         });
}

std::string UpperName(std::string_view name) {
  std::string out(name);
  for (auto& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

const FieldDef* TableDef::Field(std::string_view field_name) const {
  for (const auto& f : fields) {
    if (SameName(f.name, field_name)) return &f;
  }
  return nullptr;
}

FieldDef Counter(std::string name) {
  return {std::move(name), FieldType::kLong, 0, true, ""};
}
FieldDef Long(std::string name) {
  return {std::move(name), FieldType::kLong, 0, false, ""};
}
FieldDef Int(std::string name) {
  return {std::move(name), FieldType::kInteger, 0, false, ""};
}
FieldDef Byte(std::string name) {
  return {std::move(name), FieldType::kByte, 0, false, ""};
}
FieldDef Bool(std::string name) {
  return {std::move(name), FieldType::kBoolean, 0, false, ""};
}
FieldDef Single(std::string name) {
  return {std::move(name), FieldType::kSingle, 0, false, ""};
}
FieldDef Double(std::string name) {
  return {std::move(name), FieldType::kDouble, 0, false, ""};
}
FieldDef DateField(std::string name) {
  return {std::move(name), FieldType::kDate, 0, false, ""};
}
FieldDef Text(std::string name, int size) {
  return {std::move(name), FieldType::kText, size, false, ""};
}
FieldDef Memo(std::string name) {
  return {std::move(name), FieldType::kMemo, 0, false, ""};
}
FieldDef WithDefault(FieldDef field, std::string default_sql) {
  field.default_sql = std::move(default_sql);
  return field;
}

namespace {
IndexDef MakeIndex(std::string name, std::vector<std::string> columns, bool primary, bool unique) {
  IndexDef index{std::move(name), {}, primary, unique};
  for (auto& c : columns) index.columns.push_back({std::move(c), false});
  return index;
}
}  // namespace

IndexDef Primary(std::string name, std::vector<std::string> columns) {
  return MakeIndex(std::move(name), std::move(columns), true, true);
}
IndexDef Unique(std::string name, std::vector<std::string> columns) {
  return MakeIndex(std::move(name), std::move(columns), false, true);
}
IndexDef Plain(std::string name, std::vector<std::string> columns) {
  return MakeIndex(std::move(name), std::move(columns), false, false);
}

const TableDef* FindTable(const std::vector<TableDef>& tables, std::string_view name) {
  for (const auto& t : tables) {
    if (SameName(t.name, name)) return &t;
  }
  return nullptr;
}

std::string IndexFileName(const TableDef& table, const IndexDef& index) {
  return table.name + "." + index.name;
}

}  // namespace kvlr
