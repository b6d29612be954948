#pragma once
// Field types of the record store, numbered as the store's field-type codes.

#include <string>

namespace kvlr {

enum class FieldType {
  kBoolean = 1,
  kByte = 2,
  kInteger = 3,  // signed 16 bit
  kLong = 4,     // signed 32 bit
  kSingle = 6,
  kDouble = 7,
  kDate = 8,   // ISO text
  kText = 10,  // with a size
  kMemo = 12,
};

// The column declaration of one field: type, collation, default and the checks that make
// the store refuse what the field can't hold (text over its size, numbers out of range).
std::string ColumnSql(const std::string& name, FieldType type, int size,
                      const std::string& default_sql);

// SQL text of a quoted identifier.
std::string Quoted(const std::string& name);

}  // namespace kvlr
