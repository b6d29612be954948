#include "workouts/WorkoutSetup.h"

#include <fstream>

#include <SQLiteCpp/Transaction.h>

#include "core/FileOps.h"
#include "core/VbRules.h"
#include "workouts/WorkoutConvert.h"
#include "workouts/WorkoutTexts.h"

namespace kvlr {
namespace fs = std::filesystem;

fs::path StartParametersFile(const fs::path& program_home) {
  return program_home / "wkstartparam.mem";
}

StartParameters ReadStartParameters(const fs::path& file) {
  StartParameters p;
  std::ifstream in(file, std::ios::binary);
  std::string line;
  for (size_t i = 0; i < p.line.size() && std::getline(in, line); ++i) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!Trim(line).empty()) p.line[i] = line;
  }
  return p;
}

void WriteStartParameters(const fs::path& file, const StartParameters& p) {
  std::string text;
  for (const auto& l : p.line) text += l + "\r\n";
  WriteFileAtomically(file, text);
}

std::string CheckStartParameters(const StartParameters& p) {
  if (!gValidClock(p.line[0])) return std::string(wk_text::kStartInvalid);
  std::string rest = p.line[1];
  if (!gValidRest(rest)) return std::string(wk_text::kRestInvalid);
  std::string interval = p.line[6];
  if (interval.size() < 5) interval.insert(0, 5 - interval.size(), '0');
  if (!gValidRest(interval)) return std::string(wk_text::kIntervalInvalid);
  return {};
}

StartValues gSetStartParmeters(const StartParameters& p) {
  StartValues v;
  v.start_text = p.line[0];
  v.start_minutes = gClockToMinutes(p.line[0]);
  v.rest_seconds = gMMSSToSeconds(p.line[1]);
  v.course = Trim(p.line[2]) == "0" ? "Y" : "M";
  v.base_interval = Val(p.line[3]) == 1 ? 50 : 100;
  v.reps = ToInt32(Val(p.line[4]));
  v.dist = ToInt32(Val(p.line[5]));
  v.interval = static_cast<int32_t>(gMMSSToSeconds(p.line[6]));
  v.circuit_reps = static_cast<int16_t>(ToInt32(Val(p.line[7])));
  v.desc = p.line[8];
  v.disable_energy = Val(p.line[9]) == -1;
  v.disable_stroke = Val(p.line[10]) == -1;
  return v;
}

std::vector<EnergyRow> ReadEnergyRows(SQLite::Database& db) {
  std::vector<EnergyRow> out;
  SQLite::Statement q(db, "SELECT energy_no, energy_abbr, energy_name, stress_index FROM Energy "
                          "ORDER BY energy_no");
  while (q.executeStep()) {
    out.push_back({static_cast<int16_t>(q.getColumn(0).getInt()), q.getColumn(1).getString(),
                   q.getColumn(2).getString(), static_cast<int16_t>(q.getColumn(3).getInt())});
  }
  return out;
}

std::string CheckEnergyEntry(SQLite::Database& db, int16_t level, const std::string& code,
                             const std::string& name) {
  const std::string c = UCase(Trim(code));
  if (c.empty()) return std::string(wk_text::kEnergyCodeNeeded);
  for (const auto& row : ReadEnergyRows(db)) {
    if (row.energy_no != level && UCase(Trim(row.abbr)) == c) return std::string(wk_text::kCodeAssigned);
  }
  if (Trim(name).empty()) return std::string(wk_text::kEnergyNameNeeded);
  return {};
}

void SaveEnergyEntry(SQLite::Database& db, int16_t level, const std::string& code,
                     const std::string& name, const std::string& index_text) {
  SQLite::Statement q(db, "UPDATE Energy SET energy_abbr = ?, energy_name = ?, stress_index = ? "
                          "WHERE energy_no = ?");
  q.bind(1, UCase(Trim(code)).substr(0, 3));
  q.bind(2, Trim(name).substr(0, 20));
  q.bind(3, static_cast<int>(ToInt32(Val(index_text))));
  q.bind(4, level);
  q.exec();
}

void ClearEnergyLevel(SQLite::Database& db, int16_t level) {
  SQLite::Statement q(db, "UPDATE Energy SET energy_abbr = ' ', energy_name = ' ', "
                          "stress_index = 0 WHERE energy_no = ?");
  q.bind(1, level);
  q.exec();
}

std::string RemoveCodeQuestion(const std::string& code) {
  return "Warning: This action will remove the  " + code +
         "  and clear that code from all workouts using it.\r\nDo you still want to remove it ?";
}

namespace {

struct KindSql {
  const char* table;
  const char* code;
  const char* name;
  const char* line_field;  // the Workout field holding the code
  size_t size;
};

KindSql Sql(CategoryKind kind) {
  switch (kind) {
    case CategoryKind::kStroke:
      return {"StrokeCategory", "stroke_abbr", "stroke_name", "set_categoryabbr", 3};
    case CategoryKind::kWork:
      return {"WorkCategory", "stroke_abbr", "stroke_name", "set_type", 1};
    default:
      return {"SetDescriptions", "set_name", "set_name", nullptr, 30};
  }
}

bool TableExists(SQLite::Database& db, const char* table) {
  SQLite::Statement q(db, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? "
                          "COLLATE NOCASE");
  q.bind(1, table);
  return q.executeStep();
}

// Lines holding exactly `from` take `to`; a work type of several letters is left alone.
void FollowCode(SQLite::Database& db, const char* field, const std::string& from,
                const std::string& to) {
  for (const char* table : {"Workout", "MODEL"}) {
    if (!TableExists(db, table)) continue;
    SQLite::Statement q(db, std::string("UPDATE ") + table + " SET " + field + " = ? WHERE " +
                                field + " = ?");
    q.bind(1, to);
    q.bind(2, from);
    q.exec();
  }
}

}  // namespace

std::vector<CategoryRow> ReadCategories(SQLite::Database& db, CategoryKind kind) {
  const auto s = Sql(kind);
  std::vector<CategoryRow> out;
  SQLite::Statement q(db, std::string("SELECT ") + s.code + ", " + s.name + " FROM " + s.table +
                              " ORDER BY " + s.code);
  while (q.executeStep()) {
    out.push_back({kind == CategoryKind::kDescription ? std::string() : q.getColumn(0).getString(),
                   q.getColumn(1).getString()});
  }
  return out;
}

std::string CheckCategoryEntry(SQLite::Database& db, CategoryKind kind,
                               const std::string& old_code, const std::string& code,
                               const std::string& name) {
  if (kind == CategoryKind::kDescription) {
    return Trim(name).empty() ? std::string(wk_text::kDescriptionBlank) : std::string();
  }
  const std::string c = UCase(Trim(code));
  if (c.empty() || c.size() > Sql(kind).size) return std::string(wk_text::kCategoryCodeNeeded);
  for (const auto& row : ReadCategories(db, kind)) {
    if (UCase(Trim(row.code)) == c && UCase(Trim(old_code)) != c) {
      return std::string(wk_text::kCodeAssigned);
    }
  }
  if (Trim(name).empty()) return std::string(wk_text::kCategoryNameNeeded);
  return {};
}

void SaveCategoryEntry(SQLite::Database& db, CategoryKind kind, const std::string& old_code,
                       const std::string& code, const std::string& name) {
  const auto s = Sql(kind);
  SQLite::Transaction tx(db);
  const std::string c = kind == CategoryKind::kDescription ? Trim(name).substr(0, 30)
                                                           : UCase(Trim(code)).substr(0, s.size);
  if (old_code.empty()) {
    SQLite::Statement ins(db, kind == CategoryKind::kDescription
                                  ? std::string("INSERT INTO SetDescriptions (set_name) VALUES (?)")
                                  : std::string("INSERT INTO ") + s.table + " (stroke_abbr, "
                                                "stroke_name) VALUES (?, ?)");
    ins.bind(1, c);
    if (kind != CategoryKind::kDescription) ins.bind(2, Trim(name).substr(0, 20));
    ins.exec();
  } else if (kind == CategoryKind::kDescription) {
    SQLite::Statement up(db, "UPDATE SetDescriptions SET set_name = ? WHERE set_name = ?");
    up.bind(1, c);
    up.bind(2, old_code);
    up.exec();
  } else {
    SQLite::Statement up(db, std::string("UPDATE ") + s.table +
                                 " SET stroke_abbr = ?, stroke_name = ? WHERE stroke_abbr = ?");
    up.bind(1, c);
    up.bind(2, Trim(name).substr(0, 20));
    up.bind(3, old_code);
    up.exec();
    if (UCase(Trim(old_code)) != c) FollowCode(db, s.line_field, old_code, c);
  }
  tx.commit();
}

void RemoveCategory(SQLite::Database& db, CategoryKind kind, const std::string& code) {
  const auto s = Sql(kind);
  SQLite::Transaction tx(db);
  SQLite::Statement del(db, std::string("DELETE FROM ") + s.table + " WHERE " + s.code + " = ?");
  del.bind(1, code);
  del.exec();
  if (s.line_field) FollowCode(db, s.line_field, code, " ");
  tx.commit();
}

}  // namespace kvlr
