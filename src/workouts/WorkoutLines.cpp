#include "workouts/WorkoutLines.h"

#include <cmath>
#include <limits>
#include <stdexcept>

#include <SQLiteCpp/Transaction.h>
#include <sqlite3.h>

#include <memory>

#include "core/ErrorHandler.h"
#include "core/Errors.h"
#include "core/VbRules.h"
#include "workouts/WorkoutConvert.h"

namespace kvlr {
namespace {

constexpr int kOverflow = 6;  // VB's "Overflow"

int32_t Mul(int64_t a, int64_t b) {
  const int64_t p = a * b;
  if (p > std::numeric_limits<int32_t>::max() || p < std::numeric_limits<int32_t>::min()) {
    throw KvlError(kOverflow, "Overflow");
  }
  return static_cast<int32_t>(p);
}

int32_t Mul(int64_t a, int64_t b, int64_t c) {
  return Mul(Mul(a, b), c);
}

int64_t Round(double value) {
  if (!std::isfinite(value) || std::fabs(value) > 9e18) throw KvlError(kOverflow, "Overflow");
  return RoundHalfEven(value);
}

std::string DropOneLeadingZero(std::string text) {
  if (!text.empty() && text[0] == '0') text.erase(0, 1);
  return text;
}

std::string Trimmed(std::string_view text) {
  return Trim(text);
}

std::string SetText(int64_t reps, int64_t dist, const std::string& t,
                         const std::string& desc) {
  return std::to_string(reps) + " x " + std::to_string(dist) + " on " + t + " " + desc;
}

std::string SetTextNoDistance(int64_t reps, const std::string& t, const std::string& desc) {
  return std::to_string(reps) + " on " + t + " " + desc;
}

bool RealSet(const WkLine& l) {
  return l.set_dist > 0 && l.set_reps > 0;
}

void Derive(std::vector<WkLine>& rows, const WorkoutLinesParams& p, const EnergyArray& energy,
            bool update, WorkoutLinesResult& out) {
  const size_t n = rows.size();
  if (n == 0) return;
  out.look_ahead.reserve(n);
  for (const auto& l : rows) {
    WkRow a{};
    a[0] = std::to_string(l.wk_line);
    a[1] = l.wk_type;
    a[2] = std::to_string(l.set_reps);
    a[3] = std::to_string(l.circuit_reps);
    a[4] = std::to_string(l.circuit_line);
    a[6] = std::to_string(l.set_interval);
    a[7] = std::to_string(l.set_dist);
    out.look_ahead.push_back(std::move(a));
  }
  // real_after[i]: some row from i on is a set with distance and reps.
  std::vector<bool> real_after(n + 1, false);
  for (size_t i = n; i-- > 0;) real_after[i] = real_after[i + 1] || RealSet(rows[i]);

  int64_t clock = 0;
  int32_t stress = 0;
  int64_t distance = 0;
  out.lines.reserve(n + 1);
  for (size_t i = 0; i < n; ++i) {
    WkLine& l = rows[i];
    const int64_t reps = l.set_reps;
    const int64_t dist = l.set_dist;
    const int64_t interval = l.set_interval;
    const int64_t laps = l.circuit_reps;
    bool changed = false;
    out.lines.emplace_back();
    WkRow& row = out.lines.back();
    row[10] = l.wk_type;
    row[14] = std::to_string(l.set_reps);
    row[15] = std::to_string(l.set_dist);
    row[16] = std::to_string(l.set_interval);
    row[11] = std::to_string(l.circuit_line);
    row[12] = std::to_string(l.circuit_tot);
    row[18] = std::to_string(l.set_energyno);
    row[13] = "0";
    row[0] = std::to_string(l.wk_line);
    if (i == 0) clock = static_cast<int64_t>(p.start) * 60;
    row[3] = " ";

    const bool circuit = l.wk_type == "C";
    const bool first_of_circuit = circuit && l.circuit_line == 1;
    const bool timed = !circuit || first_of_circuit;
    size_t circuit_end = i + 1;  // one past the circuit's last row
    if (!circuit) {
      row[1] = gFormatThousands(l.tot_yards);
      const int32_t yards = Mul(reps, dist);
      if (yards != l.tot_yards) {
        if (update) {
          l.tot_yards = yards;
          changed = true;
        }
        row[1] = gFormatThousands(yards);
      }
    } else if (first_of_circuit) {
      row[1] = gFormatThousands(l.tot_yards);
      row[3] = std::to_string(laps) + "x {";
      row[13] = std::to_string(laps);
      int64_t sum = Mul(laps, reps, dist);
      while (circuit_end < n && rows[circuit_end].wk_type == "C" &&
             rows[circuit_end].circuit_line != 1) {
        sum += Mul(laps, rows[circuit_end].set_reps, rows[circuit_end].set_dist);
        ++circuit_end;
      }
      const int32_t total = Mul(sum, 1);
      if (total != l.tot_yards && update) {
        l.tot_yards = total;
        changed = true;
      }
      row[1] = gFormatThousands(total);
    } else {
      row[3] = "{";
      row[13] = std::to_string(laps);
      row[1] = gFormatThousands(l.tot_yards);
    }

    if (timed) {
      const int64_t minute = clock / 60;
      if (minute != l.set_starttime && update) {
        l.set_starttime = static_cast<int32_t>(minute);
        changed = true;
      }
      row[2] = gMinutesToClock(static_cast<long>(minute));
      clock = minute * 60;
      if (!circuit) {
        if (dist > 0 || reps >= 1) clock += Mul(reps, interval);
        if (real_after[i + 1] && dist >= 1 && reps >= 1) clock += p.rest + 59;
      } else {
        if (dist > 0 || reps >= 1) clock += Mul(laps, reps, interval);
        for (size_t j = i + 1; j < circuit_end; ++j) {
          clock += Mul(laps, rows[j].set_reps, rows[j].set_interval);
        }
        if (real_after[circuit_end]) clock += p.rest + 59;
      }
    }

    row[8] = " ";
    if (dist < 1 && reps < 1) {
      row[4] = " " + l.set_note;
      row[17] = l.set_note;
      if (!first_of_circuit) {
        row[1] = " ";
        row[2] = " ";
      }
    } else {
      const std::string t = DropOneLeadingZero(gSecondsToMMSS(static_cast<long>(interval)));
      row[4] = dist == 0 ? SetTextNoDistance(reps, t, l.set_desc)
                         : SetText(reps, dist, t, l.set_desc);
      row[17] = l.set_desc;
      const double per_base = static_cast<double>(dist) / p.base_interval;
      if (per_base > 0) {
        row[8] = gSecondsToMMSS(static_cast<long>(Round(static_cast<double>(interval) / per_base)));
      }
    }
    const int level = l.set_energyno > 9 || l.set_energyno < 0 ? 0 : l.set_energyno;
    row[5] = energy[static_cast<size_t>(level)].abbr;
    row[6] = l.set_type;
    row[7] = l.set_categoryabbr;
    const std::string line3 = "000" + std::to_string(l.wk_line);
    row[19] = line3.substr(line3.size() - 3);

    if (dist > 0) {
      const int32_t yards = circuit ? Mul(laps, reps, dist) : Mul(reps, dist);
      const double index = energy[static_cast<size_t>(level)].stress_index;
      int64_t line_stress = Round(static_cast<double>(yards) / 100 * index);
      if (p.course == "M") line_stress = Round(static_cast<double>(line_stress) * 1.1);
      distance += yards;
      const int64_t total = stress + line_stress;
      if (total > std::numeric_limits<int16_t>::max() ||
          total < std::numeric_limits<int16_t>::min()) {
        throw KvlError(kOverflow, "Overflow");
      }
      stress = static_cast<int32_t>(total);
    }
    row[2] = DropOneLeadingZero(Trimmed(row[2]));
    if (changed) out.changed.push_back(i);
    out.clock = static_cast<long>(clock);
    out.stress = static_cast<int16_t>(stress);
    out.distance = static_cast<long>(distance);
    out.line_count = static_cast<int16_t>(out.lines.size());
  }

  WkRow end;
  end.fill(" ");
  end[0] = std::to_string(out.lines.size() + 1);
  end[1] = "End";
  end[4] = " " + gFormatThousands(static_cast<long>(distance)) +
           (p.course == "Y" ? " Yards" : " Meters");
  if (stress > 0 && p.show_stress) end[4] += " - Stress Value = " + std::to_string(stress);
  end[2] = DropOneLeadingZero(Trimmed(gMinutesToClock(static_cast<long>((clock + 59) / 60))));
  out.lines.push_back(std::move(end));
  out.line_count = static_cast<int16_t>(out.lines.size());
}

}  // namespace

bool gGetWorkoutLines(std::vector<WkLine>& rows, const WorkoutLinesParams& params,
                      const EnergyArray& energy, bool update, WorkoutLinesResult& out) {
  out = WorkoutLinesResult{};
  try {
    Derive(rows, params, energy, update, out);
    return true;
  } catch (const KvlError&) {
    return false;
  }
}

namespace {

constexpr const char* kLineColumns =
    "wk_ptr, wk_line, wk_type, circuit_line, circuit_tot, circuit_reps, set_reps, set_dist, "
    "set_interval, set_desc, set_note, set_energyno, set_type, set_categoryabbr, tot_yards, "
    "set_starttime, set_finishtime";

std::string Text(const SQLite::Column& c) {
  return c.isNull() ? std::string(" ") : c.getString();
}

std::string Cut(const std::string& text, size_t size) {
  if (text.empty()) return " ";
  return text.substr(0, size);
}

}  // namespace

std::vector<WkLine> ReadWorkoutLines(SQLite::Database& db, int32_t wk_ptr) {
  SQLite::Statement q(db, std::string("SELECT ") + kLineColumns +
                              " FROM Workout WHERE wk_ptr = ? ORDER BY wk_line");
  q.bind(1, wk_ptr);
  std::vector<WkLine> lines;
  while (q.executeStep()) {
    WkLine l;
    l.wk_ptr = q.getColumn(0).getInt();
    l.wk_line = static_cast<int16_t>(q.getColumn(1).getInt());
    l.wk_type = Text(q.getColumn(2));
    l.circuit_line = static_cast<int16_t>(q.getColumn(3).getInt());
    l.circuit_tot = static_cast<int16_t>(q.getColumn(4).getInt());
    l.circuit_reps = static_cast<int16_t>(q.getColumn(5).getInt());
    l.set_reps = q.getColumn(6).getInt();
    l.set_dist = q.getColumn(7).getInt();
    l.set_interval = q.getColumn(8).getInt();
    l.set_desc = Text(q.getColumn(9));
    l.set_note = Text(q.getColumn(10));
    l.set_energyno = static_cast<int16_t>(q.getColumn(11).getInt());
    l.set_type = Text(q.getColumn(12));
    l.set_categoryabbr = Text(q.getColumn(13));
    l.tot_yards = q.getColumn(14).getInt();
    l.set_starttime = q.getColumn(15).getInt();
    l.set_finishtime = q.getColumn(16).getInt();
    lines.push_back(std::move(l));
  }
  return lines;
}

void InsertWorkoutLine(SQLite::Database& db, int32_t wk_ptr, const WkLine& l) {
  SQLite::Statement ins(db, std::string("INSERT INTO Workout (") + kLineColumns +
                                ") VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
  ins.bind(1, wk_ptr);
  ins.bind(2, l.wk_line);
  ins.bind(3, Cut(l.wk_type, 1));
  ins.bind(4, l.circuit_line);
  ins.bind(5, l.circuit_tot);
  ins.bind(6, l.circuit_reps);
  ins.bind(7, l.set_reps);
  ins.bind(8, l.set_dist);
  ins.bind(9, l.set_interval);
  ins.bind(10, Cut(l.set_desc, 30));
  ins.bind(11, Cut(l.set_note, 55));
  ins.bind(12, l.set_energyno);
  ins.bind(13, Cut(l.set_type, 4));
  ins.bind(14, Cut(l.set_categoryabbr, 3));
  ins.bind(15, l.tot_yards);
  ins.bind(16, l.set_starttime);
  ins.bind(17, l.set_finishtime);
  ins.exec();
}

void WriteWorkoutLines(SQLite::Database& db, int32_t wk_ptr, const std::vector<WkLine>& lines) {
  // Inside a caller's transaction the lines go with it; otherwise they get their own.
  std::unique_ptr<SQLite::Transaction> tx;
  if (sqlite3_get_autocommit(db.getHandle())) tx = std::make_unique<SQLite::Transaction>(db);
  SQLite::Statement del(db, "DELETE FROM Workout WHERE wk_ptr = ?");
  del.bind(1, wk_ptr);
  del.exec();
  for (const auto& l : lines) InsertWorkoutLine(db, wk_ptr, l);
  if (tx) tx->commit();
}

bool gGetWorkoutLines(AppState& state, int32_t wk_ptr, const WorkoutLinesParams& params,
                      const EnergyArray& energy, bool update, WorkoutLinesResult& out,
                      std::string_view window) {
  out = WorkoutLinesResult{};
  const std::string source = std::string(window) + ".gGetWorkoutLines";
  try {
    SQLite::Database& db = *state.gDb;
    auto rows = ReadWorkoutLines(db, wk_ptr);
    Derive(rows, params, energy, update, out);
    if (update && !out.changed.empty()) {
      SQLite::Transaction tx(db);
      SQLite::Statement set(db,
                            "UPDATE Workout SET tot_yards = ?, set_starttime = ? "
                            "WHERE wk_ptr = ? AND wk_line = ?");
      for (size_t i : out.changed) {
        set.bind(1, rows[i].tot_yards);
        set.bind(2, rows[i].set_starttime);
        set.bind(3, wk_ptr);
        set.bind(4, rows[i].wk_line);
        set.exec();
        set.reset();
      }
      tx.commit();
    }
    return true;
  } catch (const std::exception& e) {
    ReportError(state, source, e);
    return false;
  }
}

WorkoutLinesParams ParamsOfWorkout(SQLite::Database& db, int32_t wk_ptr, int16_t base_interval) {
  WorkoutLinesParams p;
  p.base_interval = base_interval;
  SQLite::Statement q(db,
                      "SELECT start_time, rest_period, course_yls FROM WkParam WHERE wk_ptr = ?");
  q.bind(1, wk_ptr);
  if (q.executeStep()) {
    p.start = q.getColumn(0).getInt();
    p.rest = q.getColumn(1).getInt();
    p.course = Text(q.getColumn(2));
  }
  return p;
}

bool RefreshWorkoutHeader(SQLite::Database& db, int32_t wk_ptr, const WorkoutLinesResult& result) {
  SQLite::Statement q(db, "SELECT tot_yards, tot_stress FROM WkParam WHERE wk_ptr = ?");
  q.bind(1, wk_ptr);
  if (!q.executeStep()) return false;
  if (q.getColumn(0).getInt64() == result.distance && q.getColumn(1).getInt64() == result.stress) {
    return false;
  }
  SQLite::Statement set(db, "UPDATE WkParam SET tot_yards = ?, tot_stress = ? WHERE wk_ptr = ?");
  set.bind(1, static_cast<int64_t>(result.distance));
  set.bind(2, result.stress);
  set.bind(3, wk_ptr);
  set.exec();
  return true;
}

}  // namespace kvlr
