#pragma once
// Made-up standards for the standards tests.

#include <initializer_list>
#include <string>

#include "standards/StandardStore.h"
#include "standards/Standards.h"
#include "store/TableBuilder.h"
#include "store/UserTables.h"

namespace kvlr::test {

// Creates the standard `name` with the designators given (D1 on) and long names "<d> long".
inline void MakeStandard(SQLite::Database& db, const std::string& name,
                         std::initializer_list<std::string> designators) {
  CreateTable(db, StandardsTable(StandardTableName(name)));
  StandardDefinition def;
  def.name = name;
  def.year = "2026";
  def.descript = "Made-up cuts";
  size_t i = 0;
  for (const auto& d : designators) {
    def.designators[i] = d;
    def.long_names[i++] = d + " long";
  }
  WriteStandardDefinition(db, def);
}

// The limits of one designator level in one course; 0 is no limit.
struct Limit {
  char course;
  int level;
  int32_t slow;
  int32_t fast = 0;
};

// Stores a line of the standard `name`; returns its key.
inline int32_t AddLine(SQLite::Database& db, const std::string& name, const char* sex,
                       const char* i_r, int16_t lo, int16_t hi, int16_t distance, int16_t stroke,
                       std::initializer_list<Limit> limits = {}) {
  StandardLine line;
  line.sex = sex;
  line.i_r = i_r;
  line.lo_age = lo;
  line.hi_age = hi;
  line.distance = distance;
  line.stroke = stroke;
  for (const Limit& l : limits) {
    line.Slow(l.course, l.level) = l.slow;
    line.Fast(l.course, l.level) = l.fast;
  }
  return InsertStandardLine(db, StandardTableName(name), line);
}

}  // namespace kvlr::test
