#include "workouts/WorkoutReportText.h"

#include <algorithm>
#include <cmath>
#include <map>

#include <SQLiteCpp/Statement.h>
#include <fmt/format.h>

#include "core/VbRules.h"
#include "workouts/WorkoutConvert.h"
#include "workouts/WorkoutNotes.h"
#include "workouts/WorkoutSetup.h"

namespace kvlr {
namespace {

constexpr size_t kMaxLine = 140;

std::string Right(const std::string& text, size_t width) {
  return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}
std::string Left(const std::string& text, size_t width) {
  return text.size() >= width ? text : text + std::string(width - text.size(), ' ');
}

std::string LongDate(const Date& d) {
  static constexpr const char* kDays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                          "Thursday", "Friday", "Saturday"};
  static constexpr const char* kMonths[] = {"January", "February", "March",     "April",
                                            "May",     "June",     "July",      "August",
                                            "September", "October", "November", "December"};
  return fmt::format("{}, {:02} {}  {}", kDays[Weekday(d)], d.day, kMonths[d.month - 1], d.year);
}

void Push(std::vector<ReportTextLine>& out, std::string text, bool bold = false) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  if (text.size() > kMaxLine) text.resize(kMaxLine);
  out.push_back({std::move(text), bold});
}

bool Selected(const std::vector<std::string>& users, const std::string& code) {
  return users.empty() || std::find(users.begin(), users.end(), code) != users.end();
}

// Breaks a note at its line ends, and long lines at the last blank before `width`.
std::vector<std::string> NoteLines(const std::string& note, size_t width) {
  std::vector<std::string> out;
  size_t start = 0;
  while (start <= note.size()) {
    size_t end = note.find('\n', start);
    if (end == std::string::npos) end = note.size();
    std::string line = note.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    while (line.size() > width) {
      size_t cut = line.rfind(' ', width);
      if (cut == std::string::npos || cut == 0) cut = width;
      out.push_back(line.substr(0, cut));
      line = Trim(line.substr(cut));
    }
    out.push_back(line);
    start = end + 1;
  }
  while (!out.empty() && Trim(out.back()).empty()) out.pop_back();
  return out;
}

void AnalysisTable(std::vector<ReportTextLine>& out, const std::string& title,
                   const std::vector<AnalysisRow>& rows, bool meters) {
  std::vector<std::array<std::string, 5>> cells;
  cells.push_back({title, meters ? " Meters" : " Yards", "Percent", "Minutes", "Percent"});
  for (const AnalysisRow& r : rows) {
    cells.push_back({r.name, gFormatThousands(r.distance), r.distance_percent,
                     AnalysisMinutes(r.seconds), r.time_percent});
  }
  std::array<size_t, 5> width{};
  for (const auto& row : cells) {
    for (size_t c = 0; c < 5; ++c) width[c] = std::max(width[c], row[c].size());
  }
  auto line = [&](const std::array<std::string, 5>& row) {
    std::string text = Left(row[0], width[0]);
    for (size_t c = 1; c < 5; ++c) text += "  " + Right(row[c], width[c]);
    return text;
  };
  Push(out, "");
  Push(out, line(cells[0]));
  std::array<std::string, 5> rule;
  for (size_t c = 0; c < 5; ++c) rule[c] = std::string(width[c], '=');
  Push(out, line(rule));
  for (size_t i = 1; i < cells.size(); ++i) Push(out, line(cells[i]));
}

}  // namespace

std::vector<ReportTextLine> LogbookBlock(const WkHeader& h, const std::string& user_name,
                                         const WkTable& lines, const std::string& note,
                                         const WorkoutAnalysis* analysis,
                                         const LogbookOptions& o) {
  std::vector<ReportTextLine> out;
  const bool meters = h.course_yls != "Y";
  Push(out, fmt::format("Workout #{} - {}  {}", h.wk_num, LongDate(h.wk_date), user_name), true);
  Push(out, gSecondsToWords(h.rest_period) + " rest between sets", true);
  if (lines.empty()) {
    Push(out, "  No workout sets have been created");
    return out;
  }
  size_t mark = 0, text = std::string("Set Description").size();
  for (const WkRow& r : lines) {
    mark = std::max(mark, Trim(r[wkcol::kCircuitMark]).size());
    text = std::max(text, r[wkcol::kText].size());
  }
  if (mark > 0) mark += 1;
  // Heading words stacked over their columns: first line, second line, underline.
  std::string h1, h2, rule;
  if (o.times) {
    h1 += Left(" Start", 8);
    h2 += Left("  Time", 8);
    rule += "======= ";
  }
  h1 += std::string(7, ' ');
  h2 += meters ? "Meters " : " Yards ";
  rule += "====== ";
  h1 += std::string(mark + text, ' ');
  h2 += std::string(mark, ' ') + Left("Set Description", text);
  rule += std::string(mark, ' ') + std::string(text, '=');
  if (o.energy) {
    h1 += "    ";
    h2 += " EGY";
    rule += " ===";
  }
  if (o.strokes) {
    h1 += "         ";
    h2 += " WORK STK";
    rule += " ==== ===";
  }
  if (o.paces) {
    h1 += "      ";
    h2 += "  PACE";
    rule += " =====";
  }
  Push(out, h1, true);
  Push(out, h2, true);
  Push(out, rule, true);
  for (const WkRow& r : lines) {
    std::string line;
    if (o.times) line += Right(Trim(r[wkcol::kClock]), 7) + " ";
    // Later lines of a circuit carry its distance on the first line only.
    const bool inner = Trim(r[wkcol::kCircuitMark]) == "{";
    line += Right(inner ? "" : Trim(r[wkcol::kDistance]), 6) + " ";
    if (mark > 0) line += Right(Trim(r[wkcol::kCircuitMark]), mark - 1) + " ";
    line += Left(r[wkcol::kText], text);
    if (o.energy) line += " " + Right(Trim(r[wkcol::kEnergy]), 3);
    if (o.strokes) {
      line += " " + Right(Trim(r[wkcol::kType]), 4) + " " + Right(Trim(r[wkcol::kStroke]), 3);
    }
    if (o.paces) line += " " + Right(Trim(r[wkcol::kPace]), 5);
    Push(out, line);
  }
  if (o.notes && !Trim(note).empty()) {
    Push(out, "");
    for (const std::string& l : NoteLines(note, std::max<size_t>(60, rule.size()))) Push(out, l);
  }
  if (analysis && analysis->any) {
    AnalysisTable(out, "Energy Levels", analysis->energy, meters);
    AnalysisTable(out, "Stroke Categories", analysis->stroke, meters);
    AnalysisTable(out, "Type of Work", analysis->work, meters);
  }
  Push(out, "");
  return out;
}

LogbookResult BuildLogbook(AppState& state, const LogbookOptions& o) {
  LogbookResult result;
  SQLite::Database& db = *state.gDb;
  const auto all = ListWorkouts(db, "0", o.by_number ? "wk_num" : "wk_date, start_time");
  if (all.empty()) {
    result.message = kNoWorkoutsYet;
    return result;
  }
  auto in_range = [&](const WkHeader& h) {
    return o.by_number ? h.wk_num >= o.from_number && h.wk_num <= o.to_number
                       : h.wk_date >= o.from_date && h.wk_date <= o.to_date;
  };
  if (std::none_of(all.begin(), all.end(), in_range)) {
    result.message = o.by_number ? kNoWorkoutsInNumbers : kNoWorkoutsInDates;
    return result;
  }
  if (o.selected_users && o.users.empty()) {
    result.message = kNoUsersSelected;
    return result;
  }
  const auto start = gSetStartParmeters(ReadStartParameters(StartParametersFile(state.home.Root())));
  const EnergyArray energy = gLoadWKEnergyArray(db);
  const auto work_stroke = gLoadWKWorkStrokeArray(db);
  const auto users = LoadWorkoutUsers(db);
  const auto notes = WorkoutNotesFile(state);
  for (const WkHeader& h : all) {
    if (!in_range(h) || !Selected(o.users, h.group_abbr)) continue;
    auto rows = ReadWorkoutLines(db, h.wk_ptr);
    WorkoutLinesParams params;
    params.base_interval = start.base_interval;
    params.course = h.course_yls;
    params.rest = h.rest_period;
    params.start = h.start_time;
    params.show_stress = o.stress;
    WorkoutLinesResult lines;
    gGetWorkoutLines(rows, params, energy, false, lines);
    std::string note;
    if (o.notes) note = ReadWorkoutNote(notes, h.wk_ptr).text;
    WorkoutAnalysis analysis;
    if (o.analysis) analysis = AnalyzeWorkout(rows, energy, work_stroke);
    LogbookWorkout w{h, UserNameOf(users, h.group_abbr), {}};
    w.lines = LogbookBlock(h, w.user_name, lines.lines, note, o.analysis ? &analysis : nullptr, o);
    result.workouts.push_back(std::move(w));
  }
  if (result.workouts.empty()) result.message = kNoWorkoutsFound;
  return result;
}

int StatCycles(const Date& start, const Date& end, int cycle_days) {
  const long days = DaysBetween(start, end) + 1;
  return static_cast<int>(days / cycle_days + (days % cycle_days ? 1 : 0));
}

namespace {

// One table of the statistics: cells[cycle][column].
struct StatGrid {
  std::string title;
  std::vector<std::string> columns;
  std::vector<std::vector<float>> cells;
  std::vector<bool> has_data;
};

size_t ColumnOf(StatGrid& g, const std::string& name, int cycles) {
  auto it = std::find(g.columns.begin(), g.columns.end(), name);
  if (it != g.columns.end()) return static_cast<size_t>(it - g.columns.begin());
  g.columns.push_back(name);
  for (auto& row : g.cells) row.push_back(0);
  (void)cycles;
  return g.columns.size() - 1;
}

std::string Figure(double v) { return gFormatThousands(static_cast<long>(RoundHalfEven(v))); }

// A share of a total as whole percent, blank when there is no total.
std::string Percent(double part, double whole) {
  if (whole <= 0) return "";
  return std::to_string(static_cast<long>(RoundHalfEven(part * 100 / whole)));
}

// The analysis tables end in a Total column; each column before it is printed as its value
// in 8 and its share of the cycle's total in 3, the Total itself in 11.
void PrintGrid(StatsTable& table, const StatGrid& g, const StatsOptions& o, bool percents) {
  const size_t parts = (g.columns.size() + 6) / 7;
  const size_t total_column = percents ? g.columns.size() - 1 : 0;
  long cycles_with_data = std::count(g.has_data.begin(), g.has_data.end(), true);
  std::vector<double> grand(g.columns.size(), 0);
  for (size_t row = 0; row < g.cells.size(); ++row) {
    for (size_t c = 0; c < g.columns.size(); ++c) grand[c] += g.cells[row][c];
  }
  auto cell = [&](size_t c, double value, double total) {
    if (c >= total_column) return Right(Figure(value), 11);
    return Right(Figure(value), 8) + Right(Percent(value, total), 3);
  };
  for (size_t part = 0; part < std::max<size_t>(parts, 1); ++part) {
    const size_t first = part * 7, last = std::min(g.columns.size(), first + 7);
    std::string title = g.title;
    if (parts > 1) title += fmt::format(" - Part {}", part + 1);
    Push(table.lines, "");
    Push(table.lines, title, true);
    std::string head = Right("Date", 11), rule = std::string(11, '-');
    for (size_t c = first; c < last; ++c) {
      if (c >= total_column) {
        head += Right(g.columns[c].substr(0, 10), 11);
        rule += " " + std::string(10, '-');
      } else {
        head += Right(g.columns[c].substr(0, 7), 8) + "  %";
        rule += " " + std::string(7, '-') + " --";
      }
    }
    Push(table.lines, head, true);
    Push(table.lines, rule, true);
    for (size_t row = 0; row < g.cells.size(); ++row) {
      if (!g.has_data[row]) continue;
      const Date d = AddDays(o.start, static_cast<long>(row) * o.cycle_days);
      std::string line = Right(fmt::format("{:02}/{:02}/{}", d.month, d.day, d.year), 11);
      const double row_total = percents ? g.cells[row][total_column] : 0;
      for (size_t c = first; c < last; ++c) line += cell(c, g.cells[row][c], row_total);
      Push(table.lines, line);
    }
    const double sum_total = percents ? grand[total_column] : 0;
    std::string total = Right("Total", 11), average = Right("Average", 11);
    for (size_t c = first; c < last; ++c) {
      total += cell(c, grand[c], sum_total);
      const double n = cycles_with_data ? static_cast<double>(cycles_with_data) : 0;
      average += cell(c, n ? grand[c] / n : 0, n ? sum_total / n : 0);
    }
    Push(table.lines, total, true);
    Push(table.lines, average, true);
  }
}

}  // namespace

StatsResult BuildWorkoutStats(AppState& state, const StatsOptions& o) {
  StatsResult result;
  SQLite::Database& db = *state.gDb;
  if (o.start > o.end) {
    result.message = kStartAfterEnd;
    return result;
  }
  const auto all = ListWorkouts(db, "0", "wk_date, start_time");
  const auto first = std::find_if(all.begin(), all.end(),
                                  [&](const WkHeader& h) { return h.wk_date >= o.start; });
  if (first == all.end() || first->wk_date > o.end) {
    result.message = kNoWorkoutsInDates;
    return result;
  }
  if (o.cycle_days < 1 || o.cycle_days > 1461) {
    result.message = kBadCycle;
    result.focus_days = 1;
    return result;
  }
  const int cycles = StatCycles(o.start, o.end, o.cycle_days);
  if (cycles > 53) {
    result.message = fmt::format(
        "The number of cycles within the date range is {} and is not to exceed 53.", cycles);
    result.focus_days = 1;
    return result;
  }
  static constexpr const char* kTypes[] = {"Energy Analysis", "Stroke Categories",
                                           "Work Type Categories", "Distance Totals",
                                           "Stress Totals"};
  const bool stress = o.type == StatType::kStress;
  const std::string total_word = stress      ? "Stress Totals "
                                 : o.minutes ? "Total Minutes "
                                 : o.meters  ? "Total Meters "
                                             : "Total Yards ";
  result.heading = fmt::format(
      "{} - {}{} - {} Through {}", kTypes[static_cast<int>(o.type)], total_word,
      o.cycle_days == 1 ? "Each Day" : fmt::format("Every {} Days", o.cycle_days),
      fmt::format("{:02}/{:02}/{}", o.start.month, o.start.day, o.start.year),
      fmt::format("{:02}/{:02}/{}", o.end.month, o.end.day, o.end.year));

  const EnergyArray energy = gLoadWKEnergyArray(db);
  const auto work_stroke = gLoadWKWorkStrokeArray(db);
  const auto users = LoadWorkoutUsers(db);
  const bool per_user = o.type == StatType::kEnergy || o.type == StatType::kStroke ||
                        o.type == StatType::kWork;
  std::map<std::string, StatGrid> grids;  // per user, or "" for the one table
  std::vector<std::string> order;
  auto grid_of = [&](const std::string& key, const std::string& title) -> StatGrid& {
    auto it = grids.find(key);
    if (it == grids.end()) {
      StatGrid g;
      g.title = title;
      g.cells.assign(static_cast<size_t>(cycles), {});
      g.has_data.assign(static_cast<size_t>(cycles), false);
      it = grids.emplace(key, std::move(g)).first;
      order.push_back(key);
    }
    return it->second;
  };
  auto user_word = [&](const std::string& code) {
    return code == "---" ? std::string(" ") : UserNameOf(users, code);
  };
  for (auto it = first; it != all.end() && it->wk_date <= o.end; ++it) {
    const WkHeader& h = *it;
    if (!o.users.empty() &&
        std::find(o.users.begin(), o.users.end(), h.group_abbr) == o.users.end()) {
      continue;
    }
    const size_t cycle = static_cast<size_t>(DaysBetween(o.start, h.wk_date) / o.cycle_days);
    const bool in_meters = h.course_yls != "Y";
    double factor = 1;
    if (in_meters && !o.meters) factor = 1.0933;
    if (!in_meters && o.meters) factor = 0.9146;
    StatGrid& g = per_user ? grid_of(h.group_abbr, UserNameOf(users, h.group_abbr))
                           : grid_of("", kTypes[static_cast<int>(o.type)]);
    size_t user_column = 0;
    if (!per_user) user_column = ColumnOf(g, user_word(h.group_abbr), cycles);
    for (const WkLine& l : ReadWorkoutLines(db, h.wk_ptr)) {
      const float reps = static_cast<float>(l.set_reps) * (l.IsCircuit() ? l.circuit_reps : 1);
      const float yardage = static_cast<float>(l.set_dist) * reps;
      float value = o.minutes ? static_cast<float>(l.set_interval) * reps / 60.0f
                              : yardage * static_cast<float>(factor);
      if (stress) {
        const int level = l.set_energyno;
        const float index = level >= 1 && level <= 9
                                ? static_cast<float>(energy[static_cast<size_t>(level)].stress_index)
                                : 0.0f;
        value = yardage / 100.0f * index * (in_meters ? 1.1f : 1.0f);
      }
      if (value == 0) continue;
      size_t column = user_column;
      if (per_user) {
        std::string key = o.type == StatType::kEnergy
                              ? (l.set_energyno >= 1 && l.set_energyno <= 9 ? Trim(energy[static_cast<size_t>(l.set_energyno)].abbr) : "")
                          : o.type == StatType::kStroke ? Trim(l.set_categoryabbr)
                                                        : Trim(l.set_type);
        std::string name = key;
        const bool known = o.type == StatType::kEnergy ? EnergyName(energy, key) != "Undefined"
                           : WorkStrokeName(work_stroke, key, o.type == StatType::kWork ? 1 : 2) !=
                               "Undefined";
        if (key.empty() || (!known && o.type != StatType::kWork)) name = "???";
        column = ColumnOf(g, name, cycles);
      }
      g.cells[cycle][column] += value;
      g.has_data[cycle] = true;
    }
  }
  for (const std::string& key : order) {
    StatGrid& g = grids.at(key);
    if (std::none_of(g.has_data.begin(), g.has_data.end(), [](bool b) { return b; })) continue;
    if (per_user) {
      const size_t n = g.columns.size();
      g.columns.push_back("Total");
      for (auto& row : g.cells) {
        float sum = 0;
        for (size_t c = 0; c < n; ++c) sum += row[c];
        row.push_back(sum);
      }
    }
    StatsTable table;
    table.title = g.title;
    PrintGrid(table, g, o, per_user);
    result.tables.push_back(std::move(table));
  }
  if (result.tables.empty()) result.message = kNoWorkoutsFound;
  return result;
}

}  // namespace kvlr
