// The logbook and the workout statistics: the text is made by the workouts routines,
// written into WKLOGBOOK / WKSTATS and printed from there in a fixed-width font.

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include <algorithm>

#include "core/Columns.h"
#include "reports/ReportFill.h"
#include "reports/ReportKinds.h"
#include "workouts/WorkoutReportText.h"

namespace kvlr {
namespace {

LogbookOptions LogbookOptionsOf(const ReportRequest& r) {
  const WorkoutReportChoices& w = r.workouts;
  LogbookOptions o;
  o.by_number = w.by_number;
  if (r.since) o.from_date = *r.since;
  if (r.until) o.to_date = *r.until;
  if (w.from_number > 0) o.from_number = w.from_number;
  if (w.to_number > 0) o.to_number = w.to_number;
  o.energy = w.energy;
  o.strokes = w.strokes;
  o.times = w.times;
  o.notes = w.notes;
  o.analysis = w.analysis;
  o.stress = w.stress;
  o.paces = w.paces;
  o.users = w.users;
  o.selected_users = w.selected_users;
  return o;
}

void WriteParameters(AppState& state, const ReportRequest& r) {
  SQLite::Database& rdb = *state.gReportDb;
  rdb.exec("DELETE FROM PARAMETERS");
  SQLite::Statement add(rdb,
                        "INSERT INTO PARAMETERS (num_columns, incl_datetime, sep_pages) "
                        "VALUES (?, 'B', ?)");
  add.bind(1, r.workouts.columns == 2 ? 2 : 1);
  add.bind(2, r.workouts.one_per_page ? 1 : 0);
  add.exec();
}

bool FillLogbook(AppState& state, const ReportRequest& r) {
  const LogbookResult book = BuildLogbook(state, LogbookOptionsOf(r));
  if (!book.message.empty()) {
    state.io->Tell(book.message);
    return false;
  }
  SetReportParameters(state, "Log Books", {});
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction tx(rdb);
  WriteParameters(state, r);
  rdb.exec("DELETE FROM WKLOGBOOK");
  SQLite::Statement add(rdb,
                        "INSERT INTO WKLOGBOOK (seq_no, look_ahead, wk_ptr, wk_numltr, wk_name, "
                        "event_change, div_Header, item_type, text_line) "
                        "VALUES (?,?,?,?,?,?,?,?,?)");
  double seq = 0;
  int event = 0;
  for (const LogbookWorkout& w : book.workouts) {
    ++event;
    for (const ReportTextLine& line : w.lines) {
      ++seq;
      add.bind(1, seq);
      add.bind(2, seq);
      add.bind(3, w.header.wk_ptr);
      add.bind(4, FitText(std::to_string(w.header.wk_num), 4));
      add.bind(5, FitText(w.user_name, 100));
      add.bind(6, event);
      add.bind(7, FitText(w.user_name, 70));
      add.bind(8, line.bold ? "B" : "N");
      add.bind(9, line.text);
      add.exec();
      add.reset();
    }
  }
  tx.commit();
  return true;
}

struct Parameters {
  int columns = 1;
  bool sep_pages = false;
};
Parameters ReadParameters(SQLite::Database& rdb) {
  Parameters p;
  SQLite::Statement q(rdb, "SELECT num_columns, sep_pages FROM PARAMETERS LIMIT 1");
  if (q.executeStep()) {
    p.columns = q.getColumn(0).getInt() == 2 ? 2 : 1;
    p.sep_pages = q.getColumn(1).getInt() != 0;
  }
  return p;
}

// One section per workout or table: text lines padded by the fill, in a fixed-width font.
ReportDoc TextLayout(AppState& state, const ReportRequest& r, const char* table,
                     const char* heading_field) {
  ReportDoc doc = StartReportDoc(state, r);
  SQLite::Database& rdb = *state.gReportDb;
  const Parameters p = ReadParameters(rdb);
  doc.flow_columns = p.columns;
  SQLite::Statement q(rdb, std::string("SELECT event_change, item_type, text_line, ") +
                               heading_field + " FROM " + table +
                               " ORDER BY event_change, seq_no");
  int event = -1;
  size_t widest = 0;
  while (q.executeStep()) {
    if (q.getColumn(0).getInt() != event) {
      event = q.getColumn(0).getInt();
      ReportSection s;
      s.fixed_pitch = true;
      s.new_page = p.sep_pages && !doc.sections.empty();
      s.columns = {ReportColumn{}};
      doc.sections.push_back(std::move(s));
    }
    std::string text = TextOf(q.getColumn(2));
    widest = std::max(widest, text.size());
    ReportLine line{ReportLine::Kind::kRow, {text}, {}};
    line.bold = TextOf(q.getColumn(1)) == "B";
    doc.sections.back().lines.push_back(std::move(line));
  }
  // The widest line sets the font size, the same for every section.
  for (ReportSection& s : doc.sections) s.columns[0].weight = std::max<double>(40, widest + 1);
  return doc;
}

bool FillStats(AppState& state, const ReportRequest& r) {
  const WorkoutReportChoices& w = r.workouts;
  StatsOptions o;
  o.type = static_cast<StatType>(std::clamp(w.stat_type, 0, 4));
  o.meters = w.meters;
  o.minutes = w.minutes;
  o.cycle_days = w.cycle_days;
  o.start = r.since.value_or(kNullDate);
  o.end = r.until.value_or(state.clock->Today());
  o.users = w.users;
  if (w.selected_users && w.users.empty()) {
    state.io->Tell(kNoWorkoutsFound);
    return false;
  }
  const StatsResult stats = BuildWorkoutStats(state, o);
  if (!stats.message.empty()) {
    state.io->Tell(stats.message);
    return false;
  }
  SetReportParameters(state, "Workout Statistics", {"", "", stats.heading, ""});
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction tx(rdb);
  WriteParameters(state, r);
  rdb.exec("DELETE FROM WKSTATS");
  SQLite::Statement add(rdb,
                        "INSERT INTO WKSTATS (seq_no, look_ahead, group_name, event_change, "
                        "item_type, text_line) VALUES (?,?,?,?,?,?)");
  double seq = 0;
  int event = 0;
  for (const StatsTable& t : stats.tables) {
    ++event;
    for (const ReportTextLine& line : t.lines) {
      ++seq;
      add.bind(1, seq);
      add.bind(2, seq);
      add.bind(3, FitText(t.title, 100));
      add.bind(4, event);
      add.bind(5, line.bold ? "B" : "N");
      add.bind(6, line.text);
      add.exec();
      add.reset();
    }
  }
  tx.commit();
  return true;
}

}  // namespace

void AddWorkoutReports(ReportCatalog& catalog) {
  catalog.Add({"logbook", "the workouts of a date or number range as a coach's log",
               FillLogbook, [](AppState& s, const ReportRequest& r) {
                 return TextLayout(s, r, "WKLOGBOOK", "wk_name");
               }});
  catalog.Add({"workout-stats", "workout totals by cycles of days", FillStats,
               [](AppState& s, const ReportRequest& r) {
                 return TextLayout(s, r, "WKSTATS", "group_name");
               }});
}

}  // namespace kvlr
