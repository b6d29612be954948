#include "workouts/Memorized.h"

#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>

#include "core/VbRules.h"
#include "workouts/WorkoutConvert.h"
#include "workouts/WorkoutTexts.h"

namespace kvlr {
namespace {

constexpr const char* kSetColumns =
    "set_reps, set_dist, set_interval, set_desc, set_energyno, set_type, set_categoryabbr";

SetValues ReadValues(SQLite::Statement& q, int from) {
  SetValues v;
  v.reps = q.getColumn(from).getInt();
  v.dist = q.getColumn(from + 1).getInt();
  v.interval = q.getColumn(from + 2).getInt();
  v.desc = q.getColumn(from + 3).getString();
  v.energyno = static_cast<int16_t>(q.getColumn(from + 4).getInt());
  v.type = q.getColumn(from + 5).getString();
  v.category = q.getColumn(from + 6).getString();
  return v;
}

std::string Desc(const std::string& text) {
  const std::string d = Trim(text.substr(0, 30));
  return d.empty() ? " " : d;
}

std::string OrBlank(const std::string& text) {
  return Trim(text).empty() ? " " : text;
}

void BindValues(SQLite::Statement& s, int from, const SetValues& v) {
  s.bind(from, v.reps);
  s.bind(from + 1, v.dist);
  s.bind(from + 2, v.interval);
  s.bind(from + 3, Desc(v.desc));
  s.bind(from + 4, v.energyno);
  s.bind(from + 5, OrBlank(v.type).substr(0, 4));
  s.bind(from + 6, OrBlank(v.category).substr(0, 3));
}

// Rewrites a library circuit's lines and totals from `lines`.
void WriteMemCircuitLines(SQLite::Database& db, int32_t cir_no, const std::vector<SetValues>& lines) {
  SQLite::Transaction tx(db);
  SQLite::Statement del(db, "DELETE FROM MemCirSets WHERE cir_no = ?");
  del.bind(1, cir_no);
  del.exec();
  int64_t dist = 0;
  int64_t seconds = 0;
  for (size_t i = 0; i < lines.size(); ++i) {
    SQLite::Statement ins(db, std::string("INSERT INTO MemCirSets (cir_no, circuit_line, ") +
                                  kSetColumns + ") VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    ins.bind(1, cir_no);
    ins.bind(2, static_cast<int>(i + 1));
    BindValues(ins, 3, lines[i]);
    ins.exec();
    dist += static_cast<int64_t>(lines[i].reps) * lines[i].dist;
    seconds += static_cast<int64_t>(lines[i].reps) * lines[i].interval;
  }
  SQLite::Statement up(db, "UPDATE MemCirName SET tot_lines = ?, tot_dist = ?, tot_seconds = ? "
                           "WHERE cir_no = ?");
  up.bind(1, static_cast<int>(lines.size()));
  up.bind(2, dist);
  up.bind(3, seconds);
  up.bind(4, cir_no);
  up.exec();
  tx.commit();
}

SetValues OfLine(const WkLine& l) {
  if (l.IsNote()) return SetValues{0, 0, 0, l.set_note, 0, " ", " "};
  return SetValues{l.set_reps, l.set_dist, l.set_interval, l.set_desc, l.set_energyno, l.set_type,
                   l.set_categoryabbr};
}

}  // namespace

std::vector<MemSet> ReadMemSets(SQLite::Database& db) {
  std::vector<MemSet> out;
  SQLite::Statement q(db, std::string("SELECT set_no, ") + kSetColumns +
                              " FROM MemSets ORDER BY set_energyno, set_dist, set_reps, "
                              "set_interval, set_desc");
  while (q.executeStep()) out.push_back({q.getColumn(0).getInt(), ReadValues(q, 1)});
  return out;
}

int32_t AddMemSet(SQLite::Database& db, const SetValues& v) {
  SQLite::Statement ins(db, std::string("INSERT INTO MemSets (") + kSetColumns +
                                ") VALUES (?, ?, ?, ?, ?, ?, ?)");
  BindValues(ins, 1, v);
  ins.exec();
  return static_cast<int32_t>(db.getLastInsertRowid());
}

void EditMemSet(SQLite::Database& db, int32_t set_no, const SetValues& v) {
  SQLite::Statement up(db, "UPDATE MemSets SET set_reps = ?, set_dist = ?, set_interval = ?, "
                           "set_desc = ?, set_energyno = ?, set_type = ?, set_categoryabbr = ? "
                           "WHERE set_no = ?");
  BindValues(up, 1, v);
  up.bind(8, set_no);
  up.exec();
}

void DeleteMemSet(SQLite::Database& db, int32_t set_no) {
  SQLite::Statement del(db, "DELETE FROM MemSets WHERE set_no = ?");
  del.bind(1, set_no);
  del.exec();
}

std::vector<MemCircuit> ReadMemCircuits(SQLite::Database& db) {
  std::vector<MemCircuit> out;
  SQLite::Statement q(db, "SELECT cir_no, cir_name, tot_lines, tot_dist, tot_seconds FROM "
                          "MemCirName ORDER BY cir_name, cir_no");
  while (q.executeStep()) {
    out.push_back({q.getColumn(0).getInt(), q.getColumn(1).getString(),
                   static_cast<int16_t>(q.getColumn(2).getInt()), q.getColumn(3).getInt(),
                   q.getColumn(4).getInt()});
  }
  return out;
}

std::vector<SetValues> ReadMemCircuitLines(SQLite::Database& db, int32_t cir_no) {
  std::vector<SetValues> out;
  SQLite::Statement q(db, std::string("SELECT ") + kSetColumns +
                              " FROM MemCirSets WHERE cir_no = ? ORDER BY circuit_line");
  q.bind(1, cir_no);
  while (q.executeStep()) out.push_back(ReadValues(q, 0));
  return out;
}

int32_t AddMemCircuit(SQLite::Database& db, const std::string& name) {
  if (Trim(name).empty()) return 0;
  SQLite::Statement ins(db, "INSERT INTO MemCirName (cir_name, tot_lines, tot_dist, tot_seconds) "
                            "VALUES (?, 0, 0, 0)");
  ins.bind(1, Trim(name).substr(0, 30));
  ins.exec();
  return static_cast<int32_t>(db.getLastInsertRowid());
}

void RenameMemCircuit(SQLite::Database& db, int32_t cir_no, const std::string& name) {
  SQLite::Statement up(db, "UPDATE MemCirName SET cir_name = ? WHERE cir_no = ?");
  up.bind(1, Trim(name).substr(0, 30));
  up.bind(2, cir_no);
  up.exec();
}

void DeleteMemCircuit(SQLite::Database& db, int32_t cir_no) {
  SQLite::Transaction tx(db);
  for (const char* sql : {"DELETE FROM MemCirSets WHERE cir_no = ?", "DELETE FROM MemCirName WHERE cir_no = ?"}) {
    SQLite::Statement del(db, sql);
    del.bind(1, cir_no);
    del.exec();
  }
  tx.commit();
}

void AddMemCircuitLine(SQLite::Database& db, int32_t cir_no, int at, const SetValues& v) {
  auto lines = ReadMemCircuitLines(db, cir_no);
  const int pos = std::clamp(at, 1, static_cast<int>(lines.size()) + 1) - 1;
  lines.insert(lines.begin() + pos, v);
  WriteMemCircuitLines(db, cir_no, lines);
}

void AddMemCircuitNote(SQLite::Database& db, int32_t cir_no, int at, const std::string& note) {
  AddMemCircuitLine(db, cir_no, at, SetValues{0, 0, 0, note, 0, " ", " "});
}

void EditMemCircuitLine(SQLite::Database& db, int32_t cir_no, int line, const SetValues& v) {
  auto lines = ReadMemCircuitLines(db, cir_no);
  if (line < 1 || line > static_cast<int>(lines.size())) return;
  lines[static_cast<size_t>(line - 1)] = v;
  WriteMemCircuitLines(db, cir_no, lines);
}

void DeleteMemCircuitLine(SQLite::Database& db, int32_t cir_no, int line) {
  auto lines = ReadMemCircuitLines(db, cir_no);
  if (line < 1 || line > static_cast<int>(lines.size())) return;
  lines.erase(lines.begin() + line - 1);
  WriteMemCircuitLines(db, cir_no, lines);
}

std::string MemMinutesText(int32_t seconds) {
  // Cut, not rounded, to one decimal.
  const int32_t tenths = seconds * 10 / 60;
  return fmt::format("{}.{}", tenths / 10, tenths % 10);
}

MemorizePlan PlanMemorize(const std::vector<WkLine>& lines, int r) {
  MemorizePlan plan;
  const int n = static_cast<int>(lines.size());
  if (r < 1 || r > n) {
    plan.text = std::string(wk_text::kEndNotMemorizable);
    return plan;
  }
  if (const auto rows = CircuitRows(lines, r)) {
    plan.kind = MemorizePlan::kAskCircuit;
    plan.first = rows->first;
    plan.last = rows->second;
    plan.text = fmt::format("Memorize lines {} through {} in this circuit set ?", plan.first,
                            plan.last);
    return plan;
  }
  const WkLine& l = lines[static_cast<size_t>(r - 1)];
  if (l.set_reps > 0 || l.set_dist > 0) {
    plan.kind = MemorizePlan::kAskLine;
    plan.first = plan.last = r;
    plan.text = fmt::format("Memorize line {} ?", r);
    return plan;
  }
  plan.text = std::string(wk_text::kNoNoteMemorize);
  return plan;
}

std::string NextCircuitName(SQLite::Database& db) {
  SQLite::Statement q(db, "SELECT 1 FROM MemCirName WHERE cir_name = ? COLLATE NOCASE");
  for (int i = 1; i <= 1000; ++i) {
    const std::string name = fmt::format("Circuit{:04}", i);
    q.reset();
    q.bind(1, name);
    if (!q.executeStep()) return name;
  }
  return "Circuit1001";
}

int32_t Memorize(SQLite::Database& db, const std::vector<WkLine>& lines, const MemorizePlan& plan) {
  if (plan.kind == MemorizePlan::kRefuse) return 0;
  if (plan.kind == MemorizePlan::kAskLine) {
    return AddMemSet(db, OfLine(lines[static_cast<size_t>(plan.first - 1)]));
  }
  std::vector<SetValues> values;
  for (int r = plan.first; r <= plan.last; ++r) values.push_back(OfLine(lines[static_cast<size_t>(r - 1)]));
  SQLite::Transaction tx(db);
  const int32_t cir_no = AddMemCircuit(db, NextCircuitName(db));
  tx.commit();
  WriteMemCircuitLines(db, cir_no, values);
  return cir_no;
}

std::vector<Permutation> SetPermutations(int32_t reps, int32_t dist, int32_t interval) {
  std::vector<Permutation> out;
  const int32_t top = std::max(reps + 12, 2 * reps);
  const int64_t total = static_cast<int64_t>(reps) * interval;
  for (int32_t i = top; i >= 1; --i) {
    const int64_t t = total / i;
    if (2 * t < dist) continue;
    Permutation p;
    p.number = static_cast<int>(out.size()) + 1;
    p.text = fmt::format("{} x {} on {}", i, dist, gSecondsToMMSS(static_cast<long>(t)));
    p.reps = i;
    p.interval = static_cast<int32_t>(t);
    p.current = i == reps;
    out.push_back(std::move(p));
  }
  return out;
}

int32_t RoundPermutationInterval(int32_t t, PermutationRounding rounding) {
  const int32_t d = t % 10;
  if (rounding == PermutationRounding::kNone || d == 0 || d == 5) return t;
  if (rounding == PermutationRounding::kDown) return d < 5 ? t - d : t - d + 5;
  return d < 5 ? t + 5 - d : t + 10 - d;
}

}  // namespace kvlr
