#include "store/FieldType.h"

#include <fmt/format.h>

namespace kvlr {

std::string Quoted(const std::string& name) {
  std::string out = "\"";
  for (char c : name) {
    if (c == '"') out += '"';
    out += c;
  }
  return out + "\"";
}

namespace {

std::string RangeCheck(const std::string& q, const std::string& name, long lo, long hi) {
  return fmt::format(" CONSTRAINT {} CHECK ({} BETWEEN {} AND {})",
                     Quoted(fmt::format("{} must be from {} to {}", name, lo, hi)), q, lo, hi);
}

}  // namespace

std::string ColumnSql(const std::string& name, FieldType type, int size,
                      const std::string& default_sql) {
  const std::string q = Quoted(name);
  std::string sql = q;
  std::string def = default_sql;
  switch (type) {
    case FieldType::kText:
      sql += fmt::format(" VARCHAR({}) COLLATE NOCASE", size);
      break;
    case FieldType::kMemo:
      sql += " TEXT COLLATE NOCASE";
      break;
    case FieldType::kBoolean:
      sql += " BOOLEAN";
      if (def.empty()) def = "0";
      break;
    case FieldType::kByte:
      sql += " TINYINT";
      if (def.empty()) def = "0";
      break;
    case FieldType::kInteger:
      sql += " SMALLINT";
      if (def.empty()) def = "0";
      break;
    case FieldType::kLong:
      sql += " INTEGER";
      break;
    case FieldType::kSingle:
      sql += " REAL";
      break;
    case FieldType::kDouble:
      sql += " DOUBLE";
      break;
    case FieldType::kDate:
      sql += " DATE";
      break;
  }
  if (!def.empty()) sql += " DEFAULT " + def;
  switch (type) {
    case FieldType::kText:
      sql += fmt::format(" CONSTRAINT {} CHECK (length({}) <= {})",
                         Quoted(fmt::format("{} can not be longer than {} character{}", name, size,
                                            size == 1 ? "" : "s")),
                         q, size);
      break;
    case FieldType::kByte:
      sql += RangeCheck(q, name, 0, 255);
      break;
    case FieldType::kInteger:
      sql += RangeCheck(q, name, -32768, 32767);
      break;
    default:
      break;
  }
  return sql;
}

}  // namespace kvlr
