#include "interchange/ImportReport.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <fmt/format.h>

#include "core/ErrorHandler.h"
#include "core/VbRules.h"
#include "interchange/ImportReportTable.h"
#include "interchange/ImportReportTexts.h"
#include "interchange/Nv3Records.h"
#include "interchange/SdifChecks.h"
#include "interchange/SdifRecords.h"

namespace kvlr {
namespace {

constexpr std::string_view kTaken = "Y";
constexpr std::string_view kMark = "Y";
constexpr std::string_view kReportTitlePrefix = "Export/Import File Report - ";

std::string_view CodeOf(std::string_view line) {
  return line.substr(0, std::min<size_t>(2, line.size()));
}

bool IsDivingStroke(int stroke) {
  return stroke == 6 || stroke == 7;
}

// What the lines before a row said: its meet and team.
struct Context {
  std::string meet_name, meet_beg, meet_end;
  std::string lsc, team_code, team_name;
};

// The swimmer of an NV3 D1 as its swims are reported.
struct Nv3Swimmer {
  std::string ln, fn, mi, id_no, birth, age, sex;
};

// The relay event of the last E0, for its swimmers' rows.
struct RelayEvent {
  std::string ev_sex, dist, stroke;
  int int_dist = 0, int_stroke = 0, lo_hi = 0;
};

// Writes the rows in file order. A row may be held open for the lines that complete it (a
// D3's new number, the E2 swims of an E1) and is written when the next row starts.
class RowWriter {
 public:
  enum class Kind { kNone, kSwimmer, kSwim, kRelay };

  explicit RowWriter(SQLite::Database& db) : db_(db) {}

  IsdinRow Start(const Context& c) const {
    IsdinRow row;
    row.reason = kTaken;
    row.meet_name = c.meet_name;
    row.meet_beg = c.meet_beg;
    row.meet_end = c.meet_end;
    row.lsc = c.lsc;
    row.team_code = c.team_code;
    row.team_name = c.team_name;
    return row;
  }
  void Add(const IsdinRow& row) {
    Flush();
    AddIsdinRow(db_, row);
  }
  void Hold(IsdinRow row, Kind kind) {
    Flush();
    held_ = std::move(row);
    kind_ = kind;
  }
  IsdinRow* Held(Kind kind) { return kind_ == kind ? &*held_ : nullptr; }
  void Flush() {
    if (held_) AddIsdinRow(db_, *held_);
    held_.reset();
    kind_ = Kind::kNone;
  }

 private:
  SQLite::Database& db_;
  std::optional<IsdinRow> held_;
  Kind kind_ = Kind::kNone;
};

void PutSwimmerName(IsdinRow& row, std::string_view name_field) {
  const SwimmerName name = ParseSwimmerName(name_field);
  if (name.ok) {
    row.ln = Trim(name.last);
    row.fn = Trim(name.first);
    row.mi = Trim(name.initial);
  } else {
    row.ln = Trim(UCase(name_field));
  }
}

// One swim of an E2/F2 into the row: prelims into P_TIME, any other phase into F_TIME; a
// second swim of the same phase takes the other pair when that is free.
void PutNv3Swim(IsdinRow& row, const Nv3Swim& swim, int stroke) {
  const std::string time = ReportScoreText(swim.score, stroke, swim.nt);
  if (time.empty()) return;
  std::string* own_time = &row.f_time;
  std::string* own_course = &row.f_cors;
  std::string* other_time = &row.p_time;
  std::string* other_course = &row.p_cors;
  if (swim.f_p == "P") {
    std::swap(own_time, other_time);
    std::swap(own_course, other_course);
  }
  if (!own_time->empty()) {
    if (!other_time->empty()) return;
    own_time = other_time;
    own_course = other_course;
  }
  *own_time = time;
  *own_course = swim.course;
}

}  // namespace

void PutSdifSwim(IsdinRow& row, const SdifD0& d0, std::string_view line, int date_order) {
  PutSwimmerName(row, d0.swimmer_name);
  row.id_no = Trim(d0.swimmer_number);
  row.birth = ReportDateText(SdifText(line, 56, 63), date_order);
  row.age = Trim(d0.age_text);
  row.sex = Trim(d0.sex);
  row.ev_sex = Trim(d0.event_sex);
  row.int_dist = d0.distance;
  row.dist = ReportDistText(d0.distance);
  row.int_stroke = static_cast<int>(Val(d0.stroke));
  row.stroke = ReportStrokeText(row.int_stroke, "I");
  row.lo_hi = d0.event_age;
  row.p_time = Trim(d0.prelim_time.text);
  row.p_cors = SdifCourseLetter(d0.prelim_course);
  row.f_time = Trim(d0.finals_time.text);
  row.f_cors = SdifCourseLetter(d0.finals_course);
  if (IsDivingStroke(row.int_stroke)) row.diving = kMark;
}

void PutNv3Event(IsdinRow& row, const Nv3EventKey& key, std::string_view i_r) {
  row.ev_sex = key.event_sex;
  row.int_dist = key.distance;
  row.dist = ReportDistText(key.distance);
  row.int_stroke = key.stroke;
  row.stroke = ReportStrokeText(key.stroke, i_r);
  row.lo_hi = key.lo_hi;
  if (IsDivingStroke(key.stroke)) row.diving = kMark;
}

namespace {

class Reporter {
 public:
  Reporter(AppState& state, ImportMonitor& monitor, const ImportFile& file)
      : state_(state), monitor_(monitor), file_(file), rows_(*state.gReportDb) {}

  // Walks every line; false when the user stopped the walk.
  bool Walk(bool nv3) {
    const size_t count = file_.lines.size();
    for (size_t i = 0; i < count; ++i) {
      if (monitor_.Cancelled()) {
        rows_.Flush();
        return false;
      }
      monitor_.Percent(static_cast<int>(i * 100 / count));
      if (nv3)
        Nv3Line(file_.lines[i]);
      else
        SdifLine(file_.lines[i]);
    }
    rows_.Flush();
    return true;
  }

  const ImportCounts& Counts() const { return counts_; }

 private:
  int Order() const { return state_.gDateOrder; }
  void Count(ImportRow row) {
    ++counts_.Processed(row);
    monitor_.Counts(counts_);
  }

  // `SDIFReport`'s walk.
  void SdifLine(std::string_view line) {
    const std::string_view code = CodeOf(line);
    if (code == "A0") {
      context_ = {};
    } else if (code == "B1") {
      SdifB1 b1;
      LoadB1Rec(line, Order(), b1);
      context_ = {};
      context_.meet_name = Trim(b1.meet_name);
      context_.meet_beg = ReportDateText(SdifText(line, 122, 129), Order());
      context_.meet_end = ReportDateText(SdifText(line, 130, 137), Order());
      rows_.Add(rows_.Start(context_));
      Count(ImportRow::kMeets);
    } else if (code == "C1") {
      SdifC1 c1;
      LoadC1Rec(line, c1);
      context_.lsc = c1.lsc;
      context_.team_code = c1.team_code;
      context_.team_name = Trim(c1.team_name);
      rows_.Add(rows_.Start(context_));
      Count(ImportRow::kTeams);
    } else if (code == "D0") {
      SdifD0 d0;
      LoadD0Rec(line, Order(), d0);
      IsdinRow row = rows_.Start(context_);
      PutSdifSwim(row, d0, line, Order());
      rows_.Hold(std::move(row), RowWriter::Kind::kSwimmer);
      Count(ImportRow::kIndividual);
    } else if (code == "D1") {
      SdifD1 d1;
      LoadD1Rec(line, Order(), d1);
      IsdinRow row = rows_.Start(context_);
      row.lsc = Trim(d1.lsc);
      row.team_code = d1.team_code;
      PutSwimmerName(row, d1.swimmer_name);
      row.id_no = Trim(d1.swimmer_number);
      row.birth = ReportDateText(SdifText(line, 64, 71), Order());
      row.age = Trim(d1.age);
      row.sex = Trim(d1.sex);
      row.only = kMark;
      rows_.Hold(std::move(row), RowWriter::Kind::kSwimmer);
    } else if (code == "D3") {
      // A version 3 file gives the swimmer's new number behind the swimmer's line.
      SdifD3 d3;
      LoadD3Rec(line, d3);
      if (IsdinRow* row = rows_.Held(RowWriter::Kind::kSwimmer);
          row && !d3.new_swimmer_number.empty()) {
        row->id_no = d3.new_swimmer_number;
      }
    } else if (code == "E0") {
      SdifE0 e0;
      LoadE0Rec(line, Order(), e0);
      IsdinRow row = rows_.Start(context_);
      row.lsc = Trim(e0.lsc);
      row.team_code = Trim(e0.team_code);
      row.mi = Trim(e0.team_letter);
      row.age = Trim(e0.total_age);
      row.ev_sex = Trim(e0.event_sex);
      row.int_dist = e0.distance;
      row.dist = ReportDistText(e0.distance);
      row.int_stroke = static_cast<int>(Val(e0.relay_stroke));
      row.stroke = ReportStrokeText(row.int_stroke, "R");
      row.lo_hi = e0.event_age;
      row.p_time = Trim(e0.prelim_time.text);
      row.p_cors = SdifCourseLetter(e0.prelim_course);
      row.f_time = Trim(e0.finals_time.text);
      row.f_cors = SdifCourseLetter(e0.finals_course);
      row.relay = kMark;
      relay_ = {row.ev_sex, row.dist, row.stroke, row.int_dist, row.int_stroke, row.lo_hi};
      rows_.Add(row);
      Count(ImportRow::kRelay);
    } else if (code == "F0") {
      SdifF0 f0;
      LoadF0Rec(line, Order(), f0);
      IsdinRow row = rows_.Start(context_);
      row.lsc = Trim(f0.lsc);
      row.team_code = Trim(f0.team_code);
      PutSwimmerName(row, f0.swimmer_name);
      row.id_no = Trim(f0.new_swimmer_number);
      if (row.id_no.empty()) row.id_no = Trim(f0.swimmer_number);
      row.birth = ReportDateText(SdifText(line, 66, 73), Order());
      row.age = Trim(f0.age);
      row.sex = Trim(f0.sex);
      PutRelayEvent(row);
      row.f_time = Trim(f0.leg_time.text);
      row.f_cors = SdifCourseLetter(f0.leg_course);
      row.relay = kMark;
      rows_.Add(row);
    }
  }

  void PutRelayEvent(IsdinRow& row) const {
    row.ev_sex = relay_.ev_sex;
    row.dist = relay_.dist;
    row.stroke = relay_.stroke;
    row.int_dist = relay_.int_dist;
    row.int_stroke = relay_.int_stroke;
    row.lo_hi = relay_.lo_hi;
  }

  // `NV3Report`'s walk. The swims of a swimmer stand behind its D lines and name it by
  // the writer's number; the database is asked for the swimmer once per D1.
  void Nv3Line(std::string_view line) {
    const std::string_view code = CodeOf(line);
    if (code == "A1") {
      context_ = {};
    } else if (code == "B1") {
      const Nv3Meet b1 = LoadNV3B1Rec(line, Order());
      context_ = {};
      context_.meet_name = b1.name;
      context_.meet_beg = ReportDateText(b1.start_text, Order());
      context_.meet_end = ReportDateText(b1.end_text, Order());
      rows_.Add(rows_.Start(context_));
      Count(ImportRow::kMeets);
    } else if (code == "C1") {
      const Nv3Team c1 = LoadNv3C1Rec(line);
      context_.lsc = c1.lsc;
      context_.team_code = c1.code;
      context_.team_name = c1.name;
      rows_.Add(rows_.Start(context_));
      Count(ImportRow::kTeams);
    } else if (code == "D1") {
      const Nv3Athlete d1 = LoadNV3AthleteRec(line, Order());
      Nv3Swimmer swimmer{
          d1.last, d1.first, d1.initial, d1.id_no, ReportDateText(d1.birth_text, Order()),
          d1.age,  d1.sex};
      const bool real_birth = d1.birth && *d1.birth != kNv3BlankDate;
      const int32_t athlete = GetCurrentAth(state_, d1.id_no, d1.last, d1.first, d1.initial,
                                            real_birth ? d1.birth->Iso() : std::string());
      if (athlete > 0) FillFromDatabase(athlete, swimmer);
      swimmers_[d1.athlete] = swimmer;
      swimmer_ = swimmer;
      IsdinRow row = rows_.Start(context_);
      PutSwimmer(row, swimmer);
      row.only = kMark;
      rows_.Add(row);
    } else if (code == "E1") {
      const Nv3Entry e1 = LoadNV3EventRec(line);
      const auto known = swimmers_.find(e1.athlete);
      const Nv3Swimmer& swimmer = known != swimmers_.end() ? known->second : swimmer_;
      IsdinRow row = rows_.Start(context_);
      PutSwimmer(row, swimmer);
      if (!e1.sex.empty()) row.sex = e1.sex;
      if (e1.age > 0) row.age = std::to_string(e1.age);
      PutNv3Event(row, e1.key, e1.lead_off == "L" ? "L" : "I");
      rows_.Hold(std::move(row), RowWriter::Kind::kSwim);
      Count(ImportRow::kIndividual);
    } else if (code == "E2" || code == "F2") {
      const auto kind = code == "E2" ? RowWriter::Kind::kSwim : RowWriter::Kind::kRelay;
      if (IsdinRow* row = rows_.Held(kind)) {
        const Nv3Result result = LoadNV3ResultRec(line);
        PutNv3Swim(*row, result.first, row->int_stroke);
        PutNv3Swim(*row, result.second, row->int_stroke);
      }
    } else if (code == "F1") {
      const Nv3Relay f1 = LoadNV3RelayRec(line);
      IsdinRow row = rows_.Start(context_);
      row.team_code = f1.team;
      if (f1.team != context_.team_code) row.team_name.clear();
      row.mi = f1.relay_letter;
      PutNv3Event(row, f1.key, "R");
      row.relay = kMark;
      rows_.Hold(std::move(row), RowWriter::Kind::kRelay);
      Count(ImportRow::kRelay);
    }
  }

  static void PutSwimmer(IsdinRow& row, const Nv3Swimmer& s) {
    row.ln = s.ln;
    row.fn = s.fn;
    row.mi = s.mi;
    row.id_no = s.id_no;
    row.birth = s.birth;
    row.age = s.age;
    row.sex = s.sex;
  }

  // A swimmer the database knows gets the number and birth date it keeps there when the
  // file leaves them out.
  void FillFromDatabase(int32_t athlete, Nv3Swimmer& s) const {
    if (!s.id_no.empty() && !s.birth.empty()) return;
    SQLite::Statement q(*state_.gDb,
                        "SELECT IFNULL(ID_NO, ''), IFNULL(Birth, '') FROM Athlete "
                        "WHERE Athlete = ?");
    q.bind(1, athlete);
    if (!q.executeStep()) return;
    if (s.id_no.empty()) s.id_no = Trim(q.getColumn(0).getString());
    if (s.birth.empty()) {
      if (const auto birth = Date::FromIso(q.getColumn(1).getString())) {
        const std::string mmddyyyy =
            fmt::format("{:02}{:02}{:04}", birth->month, birth->day, birth->year);
        s.birth = ReportDateText(mmddyyyy, Order());
      }
    }
  }

  AppState& state_;
  ImportMonitor& monitor_;
  const ImportFile& file_;
  RowWriter rows_;
  ImportCounts counts_;
  Context context_;
  RelayEvent relay_;
  std::map<int32_t, Nv3Swimmer> swimmers_;
  Nv3Swimmer swimmer_;
};

ImportOutcome Failed(AppState& state, ImportMonitor& monitor) {
  ImportOutcome outcome;
  outcome.status = kErrorCreatingReport;
  monitor.Percent(-1);
  monitor.Status(outcome.status);
  state.io->Tell(kErrorCreatingReport);
  return outcome;
}

}  // namespace

ImportOutcome RunFileReport(AppState& state, ImportMonitor& monitor, const ImportFile& file) {
  const bool sdif = file.extension == ".CL2" || file.extension == ".SD3";
  const bool nv3 = file.extension == ".NV3" || file.extension == ".TXT";
  const char* source = nv3 ? "basImpCL.NV3Report" : "basImpCL.SDIFReport";
  if (!state.gReportDb || (!sdif && !nv3)) return Failed(state, monitor);
  try {
    SQLite::Transaction transaction(*state.gReportDb);
    ClearIsdin(*state.gReportDb);
    Reporter reporter(state, monitor, file);
    const bool finished = reporter.Walk(nv3);
    // A stopped report keeps the rows it wrote, as a stopped import keeps its results.
    transaction.commit();
    ImportOutcome outcome;
    outcome.counts = reporter.Counts();
    outcome.ok = finished;
    outcome.cancelled = !finished;
    outcome.status = finished ? kReportBuildSuccessful : kReportAborted;
    monitor.Percent(-1);
    monitor.Status(outcome.status);
    return outcome;
  } catch (const std::exception& e) {
    ReportError(state, source, e, false);
    return Failed(state, monitor);
  }
}

std::string ReportTitle(const ImportFile& file) {
  return std::string(kReportTitlePrefix) + file.panel.file_type;
}

int32_t GetCurrentAth(AppState& state, std::string_view id_no, std::string_view last,
                      std::string_view first, std::string_view initial,
                      std::string_view birth_iso) {
  if (!state.gDb) return 0;
  SQLite::Database& db = *state.gDb;
  const std::string last_upper = UCase(Trim(last));
  const std::string first_upper = UCase(Trim(first));
  const std::string id = Trim(id_no);
  if (!id.empty()) {
    SQLite::Statement q(db,
                        "SELECT Athlete FROM Athlete WHERE ID_NO = ? AND UPPER(TRIM(Last)) = ? "
                        "AND UPPER(TRIM(First)) = ? ORDER BY Athlete LIMIT 1");
    q.bind(1, id);
    q.bind(2, last_upper);
    q.bind(3, first_upper);
    if (q.executeStep()) return q.getColumn(0).getInt();
  }

  // The LastName index: the same last and first name, then the initial.
  struct Candidate {
    int32_t athlete;
    std::string initial, birth;
  };
  std::vector<Candidate> same_name;
  SQLite::Statement q(db,
                      "SELECT Athlete, UPPER(TRIM(IFNULL(Initial, ''))), IFNULL(Birth, '') "
                      "FROM Athlete WHERE UPPER(TRIM(Last)) = ? AND UPPER(TRIM(First)) = ? "
                      "ORDER BY UPPER(TRIM(IFNULL(Initial, ''))), Athlete");
  q.bind(1, last_upper);
  q.bind(2, first_upper);
  while (q.executeStep()) {
    same_name.push_back({q.getColumn(0).getInt(), q.getColumn(1).getString(),
                         q.getColumn(2).getString().substr(0, 10)});
  }
  const std::string wanted = UCase(Trim(initial));
  std::vector<const Candidate*> equals;
  for (const Candidate& c : same_name) {
    if (wanted.empty() || c.initial == wanted) equals.push_back(&c);
  }
  // No row with that initial: one that has none stands for the swimmer.
  if (equals.empty()) {
    for (const Candidate& c : same_name) {
      if (c.initial.empty()) equals.push_back(&c);
    }
  }
  if (equals.empty()) return 0;
  const std::string birth = Trim(birth_iso);
  if (!birth.empty()) {
    for (const Candidate* c : equals) {
      if (c->birth == birth) return c->athlete;
    }
  }
  return equals.front()->athlete;
}

}  // namespace kvlr
