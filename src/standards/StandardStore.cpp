#include "standards/StandardStore.h"

#include <algorithm>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>

#include "core/TextClean.h"
#include "standards/StandardTexts.h"
#include "standards/Standards.h"
#include "store/TableBuilder.h"
#include "store/UserTables.h"

namespace kvlr {
namespace {

// Identifiers can't be bound: a table name is quoted instead (doubling any '"').
std::string Quoted(std::string_view name) {
  std::string out = "\"";
  for (char c : name) {
    out += c;
    if (c == '"') out += '"';
  }
  return out + "\"";
}

std::string Cut(std::string_view text, size_t size) {
  return std::string(text.substr(0, std::min(text.size(), size)));
}

int32_t LimitOf(const SQLite::Column& c) {
  return c.isNull() ? 0 : c.getInt();
}

// Index of a course's block of twelve within F() and S().
int Block(char course) {
  switch (course) {
    case 'S':
      return 0;
    case 'L':
      return 12;
    default:
      return 24;
  }
}

StandardLine LineFrom(SQLite::Statement& row) {
  StandardLine line;
  line.std = row.getColumn(0).getInt();
  line.lo_age = static_cast<int16_t>(row.getColumn(1).getInt());
  line.hi_age = static_cast<int16_t>(row.getColumn(2).getInt());
  for (int i = 0; i < 36; ++i) {
    line.fast[static_cast<size_t>(i)] = LimitOf(row.getColumn(3 + i));
    line.slow[static_cast<size_t>(i)] = LimitOf(row.getColumn(39 + i));
  }
  line.distance = static_cast<int16_t>(row.getColumn(75).getInt());
  line.stroke = static_cast<int16_t>(row.getColumn(76).getInt());
  line.sex = row.getColumn(77).getString();
  line.i_r = row.getColumn(78).getString();
  return line;
}

void BindLimit(SQLite::Statement& s, int index, int32_t value) {
  if (value == 0) {
    s.bind(index);
  } else {
    s.bind(index, value);
  }
}

}  // namespace

int FastBase(char course) {
  switch (course) {
    case 'Y':
      return 27;
    case 'L':
      return 15;
    case 'S':
      return 3;
    default:
      return 0;
  }
}

int SlowBase(char course) {
  switch (course) {
    case 'Y':
      return 63;
    case 'L':
      return 51;
    case 'S':
      return 39;
    default:
      return 0;
  }
}

const std::string& StandardFieldName(int ordinal) {
  static const TableDef layout = StandardsTable("X");
  return layout.fields.at(static_cast<size_t>(ordinal)).name;
}

int StandardDefinition::DesignatorsInUse() const {
  int n = 0;
  while (n < kDesignatorCount && !designators[static_cast<size_t>(n)].empty()) ++n;
  return n;
}

int32_t& StandardLine::Fast(char course, int index) {
  return fast.at(static_cast<size_t>(Block(course) + index));
}

int32_t& StandardLine::Slow(char course, int index) {
  return slow.at(static_cast<size_t>(Block(course) + index));
}

std::string_view SortText(StandardSort sort) {
  switch (sort) {
    case StandardSort::kSex:
      return "Sex,Lo_Age,Hi_Age,Stroke,Distance";
    case StandardSort::kLowAge:
      return "Lo_Age,Hi_Age,Stroke,Distance,Sex";
    case StandardSort::kHighAge:
      return "Hi_Age,Lo_Age,Stroke,Distance,Sex";
    case StandardSort::kDistance:
      return "Distance,Stroke,Sex,Lo_Age,Hi_Age";
    case StandardSort::kStroke:
      return "Stroke,Distance,Sex,Lo_Age,Hi_Age";
    case StandardSort::kRelaysFirst:
      return "I_R Desc,Hi_Age,Lo_Age,Stroke,Distance,Sex";
    case StandardSort::kRelaysLast:
      return "I_R,Hi_Age,Lo_Age,Stroke,Distance,Sex";
  }
  return "Lo_Age,Hi_Age,Stroke,Distance,Sex";
}

std::string StandardTableName(std::string_view name) {
  return ValidTableName(name);
}

namespace {

StandardDefinition DefinitionFrom(SQLite::Statement& row) {
  StandardDefinition def;
  def.name = row.getColumn("StdFile").getString();
  def.year = row.getColumn("Year").getString();
  def.descript = row.getColumn("Descript").getString();
  for (int i = 0; i < kDesignatorCount; ++i) {
    const auto at = static_cast<size_t>(i);
    def.designators[at] = row.getColumn(fmt::format("D{}", i + 1).c_str()).getString();
    def.long_names[at] = row.getColumn(fmt::format("D{}Des", i + 1).c_str()).getString();
  }
  return def;
}

}  // namespace

std::optional<StandardDefinition> ReadStandardDefinition(SQLite::Database& db,
                                                         std::string_view name) {
  SQLite::Statement query(db, "SELECT * FROM STDNAME WHERE StdFile = ? ORDER BY rowid LIMIT 1");
  query.bind(1, std::string(name));
  if (!query.executeStep()) return std::nullopt;
  return DefinitionFrom(query);
}

std::vector<StandardDefinition> ReadStandardDefinitions(SQLite::Database& db) {
  std::vector<StandardDefinition> all;
  SQLite::Statement query(db, "SELECT * FROM STDNAME ORDER BY rowid");
  while (query.executeStep()) all.push_back(DefinitionFrom(query));
  return all;
}

void WriteStandardDefinition(SQLite::Database& db, const StandardDefinition& def) {
  std::string sets = "StdFile = ?, Year = ?, Descript = ?";
  std::string names = "StdFile, Year, Descript";
  for (int i = 1; i <= kDesignatorCount; ++i) {
    sets += fmt::format(", D{} = ?", i);
    names += fmt::format(", D{}", i);
  }
  for (int i = 1; i <= kDesignatorCount; ++i) {
    sets += fmt::format(", D{}Des = ?", i);
    names += fmt::format(", D{}Des", i);
  }
  const std::string name = Cut(def.name, 8);
  auto bind_all = [&](SQLite::Statement& s) {
    int at = 1;
    s.bind(at++, name);
    s.bind(at++, Cut(def.year, 4));
    s.bind(at++, Cut(def.descript, 25));
    for (const auto& d : def.designators) s.bind(at++, Cut(d, 4));
    for (const auto& d : def.long_names) s.bind(at++, Cut(d, 15));
    return at;
  };
  SQLite::Statement update(db, "UPDATE STDNAME SET " + sets +
                                   " WHERE rowid = (SELECT rowid "
                                   "FROM STDNAME WHERE StdFile = ? ORDER BY rowid LIMIT 1)");
  update.bind(bind_all(update), name);
  if (update.exec() > 0) return;
  std::string marks = "?";
  for (int i = 1; i < 3 + 2 * kDesignatorCount; ++i) marks += ",?";
  SQLite::Statement insert(db, "INSERT INTO STDNAME (" + names + ") VALUES (" + marks + ")");
  bind_all(insert);
  insert.exec();
}

std::vector<StandardLine> ReadStandardLines(SQLite::Database& db, std::string_view table,
                                            const StandardFilter& filter, StandardSort sort) {
  std::string sql = "SELECT * FROM " + Quoted(table) + " WHERE Std > 0";
  if (!filter.sex.empty()) sql += " AND Sex = ?";
  if (filter.lo_age) sql += " AND Lo_Age = ?";
  if (filter.hi_age) sql += " AND Hi_Age = ?";
  if (filter.stroke) sql += " AND Stroke = ?";
  if (filter.distance) sql += " AND Distance = ?";
  sql += " ORDER BY ";
  sql += SortText(sort);
  SQLite::Statement query(db, sql);
  int at = 1;
  if (!filter.sex.empty()) query.bind(at++, filter.sex);
  for (const auto& value : {filter.lo_age, filter.hi_age, filter.stroke, filter.distance}) {
    if (value) query.bind(at++, *value);
  }
  std::vector<StandardLine> lines;
  while (query.executeStep()) lines.push_back(LineFrom(query));
  return lines;
}

int32_t InsertStandardLine(SQLite::Database& db, std::string_view table, const StandardLine& line) {
  std::string names = "Lo_Age, Hi_age";
  std::string marks = "?, ?";
  for (int ordinal = kFirstLimitOrdinal; ordinal < kLimitOrdinalEnd; ++ordinal) {
    names += ", " + Quoted(StandardFieldName(ordinal));
    marks += ", ?";
  }
  names += ", Distance, Stroke, Sex, I_R";
  marks += ", ?, ?, ?, ?";
  SQLite::Statement insert(
      db, "INSERT INTO " + Quoted(table) + " (" + names + ") VALUES (" + marks + ")");
  int at = 1;
  insert.bind(at++, line.lo_age);
  insert.bind(at++, line.hi_age);
  for (int32_t v : line.fast) BindLimit(insert, at++, v);
  for (int32_t v : line.slow) BindLimit(insert, at++, v);
  insert.bind(at++, line.distance);
  insert.bind(at++, line.stroke);
  insert.bind(at++, line.sex);
  insert.bind(at++, line.i_r);
  insert.exec();
  return static_cast<int32_t>(db.getLastInsertRowid());
}

bool UpdateStandardLimit(SQLite::Database& db, std::string_view table, int32_t std, int ordinal,
                         int32_t score) {
  if (ordinal < kFirstLimitOrdinal || ordinal >= kLimitOrdinalEnd) return false;
  SQLite::Statement update(db, "UPDATE " + Quoted(table) + " SET " +
                                   Quoted(StandardFieldName(ordinal)) + " = ? WHERE Std = ?");
  BindLimit(update, 1, score);
  update.bind(2, std);
  return update.exec() > 0;
}

bool StandardLineExists(SQLite::Database& db, std::string_view table, const StandardLine& key) {
  SQLite::Statement query(db, "SELECT 1 FROM " + Quoted(table) +
                                  " WHERE Lo_Age = ? AND Hi_Age = ? AND Sex = ? AND Stroke = ? "
                                  "AND Distance = ? AND I_R = ? LIMIT 1");
  SQLite::bind(query, key.lo_age, key.hi_age, key.sex, key.stroke, key.distance, key.i_r);
  return query.executeStep();
}

void DeleteAllStandardLines(SQLite::Database& db, std::string_view table) {
  db.exec("DELETE FROM " + Quoted(table));
}

bool DeleteStandardLine(SQLite::Database& db, std::string_view table, int32_t std) {
  SQLite::Statement remove(db, "DELETE FROM " + Quoted(table) + " WHERE Std = ?");
  remove.bind(1, std);
  return remove.exec() > 0;
}

void RemoveStandard(AppState& state, std::string_view name) {
  SQLite::Database& db = *state.gDb;
  {
    SQLite::Transaction transaction(db);
    const std::string table = StandardTableName(name);
    if (!table.empty() && TableExists(db, table)) db.exec("DROP TABLE " + Quoted(table));
    SQLite::Statement remove(db, "DELETE FROM STDNAME WHERE StdFile = ?");
    remove.bind(1, std::string(name));
    remove.exec();
    transaction.commit();
  }
  // A current standard that is gone leaves no standard current.
  if (SameName(StandardTableName(state.gStandardName), StandardTableName(name))) {
    MakeCurrentStandard(state, "");
  }
}

int CopyStandardLines(SQLite::Database& db, std::string_view from, std::string_view to) {
  const auto lines =
      ReadStandardLines(db, StandardTableName(from), StandardFilter{}, StandardSort::kLowAge);
  const std::string target = StandardTableName(to);
  for (const auto& line : lines) InsertStandardLine(db, target, line);
  return static_cast<int>(lines.size());
}

std::string CopyDesignators(SQLite::Database& db, std::string_view from, std::string_view to) {
  const auto source = ReadStandardDefinition(db, from);
  if (!source) return std::string(stdtext::kCopyFromMissing);
  auto target = ReadStandardDefinition(db, to);
  if (!target) return std::string(stdtext::kCopyToMissing);
  target->designators = source->designators;
  target->long_names = source->long_names;
  WriteStandardDefinition(db, *target);
  return "";
}

}  // namespace kvlr
