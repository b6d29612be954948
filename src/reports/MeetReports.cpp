// The reports over meets: the meet list, results, entries and a time standard.

#include <algorithm>
#include <map>

#include <fmt/format.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "interchange/ImportReportTexts.h"
#include "meets/Meets.h"
#include "reports/ReportFill.h"
#include "reports/ReportKinds.h"
#include "standards/StandardStore.h"

namespace kvlr {
namespace {

constexpr std::string_view kNothingToReport = "There is nothing to report for these choices.";

// The date range and course of a request as the line under the title.
std::string RangeLine(const AppState& state, const ReportRequest& r) {
  std::string line;
  if (r.since) line = "From " + ShownDate(*r.since, state.gDateOrder);
  if (r.until) line += (line.empty() ? "Until " : " to ") + ShownDate(*r.until, state.gDateOrder);
  if (r.course) line += (line.empty() ? "" : ", ") + CourseWord(std::string(1, r.course));
  return line;
}

// Binds the shared filter: ?1 meet, ?2 athlete, ?3 since, ?4 until, ?5 course, ?6 type.
void BindFilter(SQLite::Statement& q, const AppState& state, const ReportRequest& r) {
  q.bind(1, r.meet);
  q.bind(2, r.athlete);
  if (r.since) {
    q.bind(3, r.since->Iso());
  } else {
    q.bind(3);
  }
  if (r.until) {
    q.bind(4, r.until->Iso());
  } else {
    q.bind(4);
  }
  q.bind(5, r.course ? std::string(1, r.course) : std::string());
  q.bind(6, r.meet_type);
  (void)state;
}

constexpr const char* kMeetFilter =
    " (m.Type IS NULL OR m.Type <> 'G') AND (?1 = 0 OR m.Meet = ?1) "
    "AND (?3 IS NULL OR m.Start >= ?3) AND (?4 IS NULL OR m.Start <= ?4) "
    "AND (?6 = '' OR m.Type = ?6) ";

std::string MeetHeading(const AppState& state, const std::string& name, const std::string& start,
                        const std::string& course) {
  std::string text = Trim(name);
  if (auto d = Date::FromIso(start)) text += "  -  " + ShownDate(*d, state.gDateOrder);
  const std::string word = CourseWord(course);
  if (!word.empty()) text += "  (" + word + ")";
  return text;
}

// ---- Meets

// The end of a fill over a date range: with no rows the user is told, else the parameter row
// names the range.
bool EndRangeFill(AppState& state, const ReportRequest& r, int rows, std::string_view title,
                  std::string_view sort_by = {}) {
  if (rows == 0) {
    state.io->Tell(kNothingToReport);
    return false;
  }
  SetReportParameters(state, title, {"", "", RangeLine(state, r), ""}, sort_by);
  return true;
}

// The meet's and the swimmer's columns both report queries select in one order, from
// column `first` on: meet key, name, start, end, course, type, athlete, last, first,
// initial, sex.
void ReadMeetAndSwimmer(SQLite::Statement& q, int first, int output_case, RMeetRow& row) {
  auto t = [&q, first](int i) { return TextOf(q.getColumn(first + i)); };
  const SQLite::Column key = q.getColumn(first);
  row.meet_id = key.isNull() ? 0 : key.getInt();
  row.meet = ReportCase(output_case, t(1));
  row.meet_start = t(2);
  row.meet_end = t(3);
  row.meet_crs = t(4);
  row.meet_type = t(5);
  const SQLite::Column athlete = q.getColumn(first + 6);
  row.athlete = athlete.isNull() ? 0 : athlete.getInt();
  row.last = t(7);
  row.first = t(8);
  row.initial = t(9);
  row.name = ReportCase(output_case, ReportName(t(7), t(8), t(9)));
  row.sex = t(10);
}

bool FillMeets(AppState& state, const ReportRequest& r) {
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction transaction(rdb);
  rdb.exec("DELETE FROM MEET");
  SQLite::Statement q(*state.gDb,
                      std::string("SELECT m.Meet, m.MName, m.Start, m.End, m.AgeUp, m.Since, "
                                  "m.Course, m.Location, m.Remarks, m.Type FROM MEET m WHERE ") +
                          kMeetFilter +
                          "AND (?2 = 0 OR EXISTS (SELECT 1 FROM RESULT x WHERE x.MEET = m.Meet "
                          "AND x.ATHLETE = ?2)) AND (?5 = '' OR substr(m.Course, 1, 1) = ?5) "
                          "ORDER BY m.Start, m.MName");
  BindFilter(q, state, r);
  SQLite::Statement add(rdb,
                        "INSERT INTO MEET (Meet, MName, Start, End, AgeUp, Since, Course, "
                        "Location, Remarks, Type) VALUES (?,?,?,?,?,?,?,?,?,?)");
  int rows = 0;
  while (q.executeStep()) {
    for (int i = 0; i < 10; ++i) BindColumn(add, i + 1, q.getColumn(i));
    add.exec();
    add.reset();
    ++rows;
  }
  transaction.commit();
  return EndRangeFill(state, r, rows, "Meets", "Start");
}

ReportDoc LayoutMeets(AppState& state, const ReportRequest& r) {
  ReportDoc doc = StartReportDoc(state, r);
  ReportSection s;
  s.columns = {{"Start", 11}, {"End", 11}, {"Meet", 40}, {"Course", 10}, {"Type", 5},
               {"Location", 30}};
  SQLite::Statement q(*state.gReportDb,
                      "SELECT MName, Start, End, Course, Type, Location, Remarks FROM MEET "
                      "ORDER BY Start, MName");
  std::string year;
  int count = 0;
  while (q.executeStep()) {
    auto t = [&q](int i) { return Trim(TextOf(q.getColumn(i))); };
    auto date = [&](int i) {
      auto d = DateOf(q.getColumn(i));
      return d ? ShownDate(*d, state.gDateOrder) : std::string();
    };
    if (t(1).substr(0, 4) != year) s.Group(year = t(1).substr(0, 4));
    s.Row({date(1), date(2), t(0), CourseWord(t(3)), t(4), t(5)});
    if (!t(6).empty()) s.Detail(t(6));
    ++count;
  }
  s.Note(fmt::format("{} meets", count));
  doc.sections.push_back(std::move(s));
  return doc;
}

// ---- Meet results

bool FillMeetResults(AppState& state, const ReportRequest& r) {
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction transaction(rdb);
  rdb.exec("DELETE FROM RMEETI");
  rdb.exec("DELETE FROM RSPLITS");
  const int output_case = ReportCaseOption(state);
  SQLite::Statement q(
      *state.gDb,
      std::string(
          "SELECT r.RESULT, m.Meet, m.MName, m.Start, m.End, m.Course, m.Type, a.Athlete, "
          "a.Last, a.First, a.Initial, a.Sex, r.I_R, r.SCORE, r.F_P, r.EX, r.NT, r.AGE, "
          "r.DISTANCE, r.STROKE, r.COURSE, r.PLACE, e.MtEv, e.MtEvX, e.Lo_Hi, e.Sex, c.Comment "
          "FROM RESULT r JOIN MEET m ON m.Meet = r.MEET JOIN ATHLETE a ON a.Athlete = r.ATHLETE "
          "LEFT JOIN MTEVENT e ON e.MtEvent = r.MTEVENT "
          "LEFT JOIN tblComments c ON c.ResultID = r.RESULT "
          "WHERE r.I_R IN ('I', 'L') AND (?2 = 0 OR r.ATHLETE = ?2) "
          "AND (?5 = '' OR substr(r.COURSE, 1, 1) = ?5) AND") +
          kMeetFilter +
          "ORDER BY m.Start, m.MName, m.Meet, a.Last, a.First, a.Athlete, e.MtEv, e.MtEvX, "
          "r.F_P");
  BindFilter(q, state, r);
  int rows = 0;
  MeetRowWriter rows_out(rdb);
  while (q.executeStep()) {
    auto t = [&q](int i) { return TextOf(q.getColumn(i)); };
    auto n = [&q](int i) { return q.getColumn(i).isNull() ? 0 : q.getColumn(i).getInt(); };
    RMeetRow row;
    const int64_t result = q.getColumn(0).getInt64();
    ReadMeetAndSwimmer(q, 1, output_case, row);
    row.i_r = t(12);
    row.convt = n(13);
    row.f_p = t(14);
    row.ex = t(15);
    row.age = n(17);
    row.int_dist = n(18);
    row.int_stroke = n(19);
    row.course = t(20);
    row.place = n(21);
    row.mtev = Trim(t(22) + t(23));
    row.lo_hi = n(24);
    row.event_sex = t(25);
    row.comment = t(26);
    row.distance = ReportDistText(row.int_dist);
    row.stroke = StrokeText(row.int_stroke, "I");
    row.score = Trim(row.ex + ScoreText(row.convt, row.int_stroke, row.course.substr(0, 1), n(16)));
    row.sort_order = ++rows;
    if (AddSplitsToReport(state, result, row.int_dist, row.course.empty() ? 0 : row.course[0],
                          r.split_mode)) {
      row.split = result;
    }
    rows_out.Add(row);
  }
  transaction.commit();
  return EndRangeFill(state, r, rows, "Meet Results");
}

ReportDoc LayoutMeetResults(AppState& state, const ReportRequest& r) {
  ReportDoc doc = StartReportDoc(state, r);
  SQLite::Database& rdb = *state.gReportDb;
  const ReportParameters p = ReadReportParameters(rdb);
  ReportSection s;
  s.columns = {{"Ev #", 5, ReportColumn::Align::kRight},
               {"Age", 6},
               {"Event", 24},
               {"Round", 10},
               {"Time", 10, ReportColumn::Align::kRight},
               {"Place", 6, ReportColumn::Align::kRight},
               {"Comment", 30}};
  SQLite::Statement q(rdb,
                      "SELECT MEETID, MEET, MEETSTART, MEETCRS, ATHLETE, NAME, MTEV, LO_HI, "
                      "DISTANCE, STROKE, I_R, F_P, SCORE, PLACE, COMMENT, SPLIT FROM RMEETI "
                      "ORDER BY SORTORDER");
  int64_t meet = -1, athlete = -1;
  while (q.executeStep()) {
    auto t = [&q](int i) { return Trim(TextOf(q.getColumn(i))); };
    if (q.getColumn(0).getInt64() != meet) {
      meet = q.getColumn(0).getInt64();
      athlete = -1;
      s.Group(MeetHeading(state, t(1), t(2), t(3)));
    }
    if (q.getColumn(4).getInt64() != athlete) {
      athlete = q.getColumn(4).getInt64();
      s.SubGroup(t(5));
    }
    std::string event = t(8) + " " + t(9);
    if (t(10) == "L") event += " (Relay Lead Off)";
    const int place = q.getColumn(13).getInt();
    s.Row({t(6), ReportAgeText(q.getColumn(7).getInt(), p), event, FinalsWord(t(11)), t(12),
           place > 0 ? std::to_string(place) : "", t(14)});
    const std::string splits = SplitsText(rdb, q.getColumn(15).getInt64());
    if (!splits.empty()) s.Detail(splits);
  }
  doc.sections.push_back(std::move(s));
  return doc;
}

// ---- Meet entries

bool FillMeetEntries(AppState& state, const ReportRequest& r) {
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction transaction(rdb);
  rdb.exec("DELETE FROM RMEETI");
  const int output_case = ReportCaseOption(state);
  SQLite::Statement q(
      *state.gDb,
      std::string(
          "SELECT m.Meet, m.MName, m.Start, m.End, m.Course, m.Type, a.Athlete, a.Last, "
          "a.First, a.Initial, a.Sex, n.Score, n.Misc, n.Ex, n.Course, e.MtEv, e.MtEvX, "
          "e.Lo_Hi, e.Sex, e.Distance, e.Stroke, e.I_R "
          "FROM ENTRY n JOIN MEET m ON m.Meet = n.Meet JOIN ATHLETE a ON a.Athlete = n.Athlete "
          "JOIN MTEVENTE e ON e.MtEvent = n.MtEvent "
          "WHERE (?2 = 0 OR n.Athlete = ?2) AND (?5 = '' OR substr(m.Course, 1, 1) = ?5) AND") +
          kMeetFilter +
          "ORDER BY m.Start, m.MName, m.Meet, e.MtEv, e.MtEvX, (n.Misc = 'N'), n.Score, a.Last");
  BindFilter(q, state, r);
  int rows = 0;
  MeetRowWriter rows_out(rdb);
  while (q.executeStep()) {
    auto t = [&q](int i) { return TextOf(q.getColumn(i)); };
    auto n = [&q](int i) { return q.getColumn(i).isNull() ? 0 : q.getColumn(i).getInt(); };
    RMeetRow row;
    ReadMeetAndSwimmer(q, 0, output_case, row);
    row.convt = n(11);
    row.misc = t(12);
    row.ex = t(13);
    row.course = t(14);
    row.mtev = Trim(t(15) + t(16));
    row.lo_hi = n(17);
    row.event_sex = t(18);
    row.int_dist = n(19);
    row.int_stroke = n(20);
    row.i_r = t(21);
    row.distance = ReportDistText(row.int_dist);
    row.stroke = StrokeText(row.int_stroke, row.i_r);
    // An entry without a time prints "NT".
    row.score = row.misc == "N" || row.convt == 0
                    ? "NT"
                    : Trim(row.ex + ScoreText(row.convt, row.int_stroke,
                                              row.course.substr(0, 1), 0));
    if (row.misc == "N" && row.ex == "X") row.score = "XNT";
    row.sort_order = ++rows;
    rows_out.Add(row);
  }
  transaction.commit();
  return EndRangeFill(state, r, rows, "Meet Entries", "E");
}

ReportDoc LayoutMeetEntries(AppState& state, const ReportRequest& r) {
  ReportDoc doc = StartReportDoc(state, r);
  SQLite::Database& rdb = *state.gReportDb;
  const ReportParameters p = ReadReportParameters(rdb);
  ReportSection s;
  s.columns = {{"Ev #", 5, ReportColumn::Align::kRight},
               {"Event", 34},
               {"Swimmer", 30},
               {"Entry Time", 10, ReportColumn::Align::kRight}};
  SQLite::Statement q(rdb,
                      "SELECT MEETID, MEET, MEETSTART, MEETCRS, MTEV, EVENTSEX, LO_HI, DISTANCE, "
                      "STROKE, NAME, SCORE FROM RMEETI ORDER BY SORTORDER");
  int64_t meet = -1;
  int count = 0;
  auto total = [&] {
    if (count > 0) s.Note(fmt::format("{} entries", count));
    count = 0;
  };
  while (q.executeStep()) {
    auto t = [&q](int i) { return Trim(TextOf(q.getColumn(i))); };
    if (q.getColumn(0).getInt64() != meet) {
      total();
      meet = q.getColumn(0).getInt64();
      s.Group(MeetHeading(state, t(1), t(2), t(3)));
    }
    const std::string event = ReportSexWord(t(5), p) + " " +
                              ReportAgeText(q.getColumn(6).getInt(), p) + " " + t(7) + " " + t(8);
    s.Row({t(4), Trim(event), t(9), t(10)});
    ++count;
  }
  total();
  doc.sections.push_back(std::move(s));
  return doc;
}

// ---- Time standards: one REVENT row for each line and designator of the standard.

bool FillStandards(AppState& state, const ReportRequest& r) {
  const auto def = ReadStandardDefinition(*state.gDb, r.standard);
  if (!def) {
    state.io->Tell("There is no standard named " + r.standard + ".");
    return false;
  }
  std::vector<StandardLine> lines = ReadStandardLines(
      *state.gDb, StandardTableName(def->name), StandardFilter{r.sex, {}, {}, {}, {}},
      StandardSort::kLowAge);
  std::stable_sort(lines.begin(), lines.end(), [](const StandardLine& a, const StandardLine& b) {
    return std::tie(a.i_r, a.sex, a.lo_age, a.hi_age, a.stroke, a.distance) <
           std::tie(b.i_r, b.sex, b.lo_age, b.hi_age, b.stroke, b.distance);
  });
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction transaction(rdb);
  rdb.exec("DELETE FROM REVENT");
  SQLite::Statement add(rdb,
                        "INSERT INTO REVENT (Meet, MtEv, Lo_Hi, FastCut, SlowCut, Course, "
                        "MtEvent, Fast_L, Slow_L, Fast_Y, Slow_Y, TstdFile, TstDesig, Distance, "
                        "Stroke, Sex, I_R) VALUES (0,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
  const int designators = def->DesignatorsInUse();
  int seq = 0;
  for (StandardLine& line : lines) {
    ++seq;
    for (int d = 0; d < designators; ++d) {
      auto cut = [](int32_t score) { return score > 0 ? FormatTime(score, false) : ""; };
      SQLite::bind(add, fmt::format("{:05d}", seq), line.lo_age * 100 + line.hi_age,
                   cut(line.Fast('S', d)), cut(line.Slow('S', d)),
                   r.course ? std::string(1, r.course) : std::string(), seq,
                   cut(line.Fast('L', d)), cut(line.Slow('L', d)), cut(line.Fast('Y', d)),
                   cut(line.Slow('Y', d)), FitText(def->name, 8), FitText(def->designators[d], 4),
                   ReportDistText(line.distance), StrokeText(line.stroke, line.i_r), line.sex,
                   line.i_r);
      add.exec();
      add.reset();
    }
  }
  transaction.commit();
  if (lines.empty() || designators == 0) {
    state.io->Tell(kNothingToReport);
    return false;
  }
  std::string misc = Trim(def->descript);
  if (!Trim(def->year).empty()) misc += (misc.empty() ? "" : " ") + Trim(def->year);
  SetReportParameters(state, "Time Standards - " + def->name, {"", "", misc, ""});
  return true;
}

ReportDoc LayoutStandards(AppState& state, const ReportRequest& r) {
  ReportDoc doc = StartReportDoc(state, r);
  SQLite::Database& rdb = *state.gReportDb;
  const ReportParameters p = ReadReportParameters(rdb);
  std::vector<std::string> designators;
  {
    SQLite::Statement d(rdb, "SELECT TstDesig FROM REVENT WHERE MtEvent = 1 ORDER BY rowid");
    while (d.executeStep()) designators.push_back(Trim(TextOf(d.getColumn(0))));
  }
  const std::string courses = r.course ? std::string(1, r.course) : "YSL";
  for (char course : courses) {
    ReportSection s;
    s.heading = CourseWord(std::string(1, course));
    s.new_page = !doc.sections.empty();
    s.columns.push_back({"Event", 16});
    for (const std::string& d : designators) {
      s.columns.push_back({d, 8, ReportColumn::Align::kRight});
    }
    const char* fields = course == 'Y'   ? "Fast_Y, Slow_Y"
                         : course == 'L' ? "Fast_L, Slow_L"
                                         : "FastCut, SlowCut";
    SQLite::Statement q(rdb, std::string("SELECT MtEvent, Sex, Lo_Hi, Distance, Stroke, ") +
                                 fields + " FROM REVENT ORDER BY MtEvent, rowid");
    std::string group;
    int line = -1;
    while (q.executeStep()) {
      auto t = [&q](int i) { return Trim(TextOf(q.getColumn(i))); };
      const std::string heading =
          ReportSexWord(t(1), p) + " " + ReportAgeText(q.getColumn(2).getInt(), p);
      if (heading != group) s.Group(group = heading);
      if (q.getColumn(0).getInt() != line) {
        line = q.getColumn(0).getInt();
        s.Row({t(3) + " " + t(4)});
      }
      // A line with both limits gives the band; most give only the slower one.
      const std::string fast = t(5), slow = t(6);
      s.lines.back().cells.push_back(fast.empty()   ? slow
                                     : slow.empty() ? fast
                                                    : fast + "-" + slow);
    }
    doc.sections.push_back(std::move(s));
  }
  return doc;
}

}  // namespace

void AddMeetReports(ReportCatalog& catalog) {
  catalog.Add({"meets", "the meets of a date range (--since, --until, --type, --course)",
               FillMeets, LayoutMeets});
  catalog.Add({"meet-results",
               "results by meet and swimmer (--meet, --athlete, --since, --until, --course, "
               "--splits 2|3)",
               FillMeetResults, LayoutMeetResults});
  catalog.Add({"meet-entries", "entries by meet and event (--meet, --athlete, --since, --until)",
               FillMeetEntries, LayoutMeetEntries});
  catalog.Add({"standards", "a time standard (--standard NAME, --course, --sex)", FillStandards,
               LayoutStandards});
}

}  // namespace kvlr
