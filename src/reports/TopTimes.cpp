#include "reports/TopTimes.h"

#include <algorithm>
#include <limits>
#include <map>
#include <set>
#include <tuple>
#include <variant>

#include <fmt/format.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "interchange/ImportReportTexts.h"
#include "meets/Meets.h"
#include "meets/Ranking.h"
#include "reports/ReportFill.h"
#include "reports/ReportKinds.h"
#include "standards/Conversion.h"
#include "standards/Standards.h"

namespace kvlr {
namespace {

// Non-times sort behind every swim of their event.
constexpr int32_t kNtLast = 99999999;

using Bound = std::variant<int64_t, std::string>;

// One swim of the selection with what the later steps need beyond its RMEETI row.
struct TopSwim {
  RMeetRow row;
  int64_t result = 0;
  int32_t score = 0;     // as swum
  int32_t compared = 0;  // in the course the report compares in
  int nt = 0;
  int distance = 0;  // as swum, before any rewrite
  std::string start;
  bool goal = false;
};

// "14-Mar-26", the medium date of the headlines.
std::string MediumDate(const Date& d) {
  static constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  return fmt::format("{:02d}-{}-{:02d}", d.day, kMonths[(d.month + 11) % 12], d.year % 100);
}

bool Converting(const ReportRequest& r) { return r.top.convert_to != 0; }

// Restores the current standard after the report judged against another one.
class StandardSwap {
 public:
  StandardSwap(AppState& state, const std::string& name) : state_(state) {
    if (name.empty() || name == state.gStandardName) return;
    saved_ = state.gStandardName;
    state.gStandardName = name;
    OpenCurrentStandard(state);
  }
  ~StandardSwap() {
    if (!saved_) return;
    state_.gStandardName = *saved_;
    OpenCurrentStandard(state_);
  }
  StandardSwap(const StandardSwap&) = delete;
  StandardSwap& operator=(const StandardSwap&) = delete;

 private:
  AppState& state_;
  std::optional<std::string> saved_;
};

// GetTopTimes: the selection's SQL and its values. Goals keep out of the date, type, meet
// and round filters: they belong to a goal meet of 2000 whose type is "G".
std::pair<std::string, std::vector<Bound>> GetTopTimes(AppState& state, const ReportRequest& r,
                                                       int32_t athlete, bool lead_offs) {
  const TopTimesOptions& o = r.top;
  std::vector<Bound> binds;
  std::string sql =
      "SELECT r.RESULT, r.MEET, r.ATHLETE, r.I_R, r.F_P, r.EX, r.COURSE, r.SCORE, r.NT, r.AGE, "
      "r.DISTANCE, r.STROKE, r.PLACE, r.MISC, e.Lo_Hi, m.MName, m.Start, m.End, m.Type, "
      "m.Course, a.Last, a.First, a.Pref, a.Initial, a.Sex, a.Birth, a.ID_NO, "
      "CASE WHEN ? THEN (SELECT c.Comment FROM tblComments c WHERE c.ResultID = r.RESULT) END "
      "FROM RESULT r JOIN MEET m ON m.Meet = r.MEET JOIN ATHLETE a ON a.Athlete = r.ATHLETE "
      "LEFT JOIN MTEVENT e ON e.MtEvent = r.MTEVENT WHERE (? = 0 OR r.ATHLETE = ?)";
  binds.emplace_back(int64_t{o.comments});
  binds.emplace_back(int64_t{athlete});
  binds.emplace_back(int64_t{athlete});
  sql += lead_offs ? " AND (r.I_R = 'I' OR r.I_R = 'L'" : " AND (r.I_R = 'I'";
  sql += o.goals ? " OR r.I_R = 'G')" : ")";
  if (!Converting(r)) {
    sql += " AND (r.COURSE = ? OR (TRIM(IFNULL(r.COURSE, '')) = '' AND "
           "(IFNULL(r.NT, 0) > 0 OR r.STROKE IN (6, 7))))";
    binds.emplace_back(std::string(1, r.course));
  }
  if (o.stroke != 0) {
    sql += " AND r.STROKE = ?";
    binds.emplace_back(int64_t{o.stroke});
  }
  if (o.distance != 0) {
    sql += " AND r.DISTANCE = ?";
    binds.emplace_back(int64_t{o.distance});
  }
  if (!o.round.empty()) {
    sql += " AND (r.I_R = 'G' OR r.F_P = ?)";
    binds.emplace_back(o.round);
  }
  if (r.meet != 0) {
    sql += " AND (r.I_R = 'G' OR r.MEET = ?)";
    binds.emplace_back(int64_t{r.meet});
  }
  if (r.since) {
    sql += " AND (r.I_R = 'G' OR m.Start >= ?)";
    binds.emplace_back(r.since->Iso());
  }
  if (r.until) {
    sql += " AND (r.I_R = 'G' OR m.Start <= ?)";
    binds.emplace_back(r.until->Iso());
  }
  if (!r.meet_type.empty()) {
    sql += " AND (r.I_R = 'G' OR m.Type = ?)";
    binds.emplace_back(r.meet_type);
  }
  if (!o.include_nt) sql += " AND IFNULL(r.NT, 0) = 0";
  // Converted times are ranked later (RemoveExtraTimes): their order isn't known here.
  if (o.top_n > 0 && !Converting(r)) {
    const bool narrowed = r.since || r.until || !r.meet_type.empty();
    if (narrowed) {
      TRankSelection selection;
      selection.since = r.since.value_or(state.gNullDate);
      selection.until = r.until.value_or(state.gNullDate);
      selection.meet_type = r.meet_type;
      selection.athlete = athlete;
      selection.f_p = o.round;
      AddTRank(state, selection);
    }
    const std::string rank = narrowed ? "r.TRANK" : "r.RANK";
    sql += o.top_n == 1 ? " AND " + rank + " <= 1"
                        : " AND " + rank + " <> 0 AND " + rank + " <= ?";
    if (o.top_n != 1) binds.emplace_back(int64_t{o.top_n});
  }
  sql += " ORDER BY a.Last, a.First, r.STROKE, r.DISTANCE, r.NT";
  sql += o.chronological ? ", m.Start DESC, r.SCORE" : ", r.SCORE";
  return {sql, binds};
}

// The best time of a swimmer's event before the since date, in the compared course.
class BaselineBefore {
 public:
  BaselineBefore(AppState& state, const ReportRequest& r, bool lead_offs)
      : state_(state),
        r_(r),
        q_(*state.gDb,
           "SELECT r.SCORE, r.COURSE FROM RESULT r JOIN MEET m ON m.Meet = r.MEET "
           "WHERE r.ATHLETE = ? AND r.DISTANCE = ? AND r.STROKE = ? AND m.Start < ? "
           "AND (r.I_R = 'I' OR (? AND r.I_R = 'L')) AND r.SCORE > 0 AND IFNULL(r.NT, 0) = 0 "
           "AND (? = '' OR r.COURSE = ?)") {
    lead_offs_ = lead_offs;
  }
  std::optional<int32_t> Best(int32_t athlete, int distance, int stroke) {
    q_.reset();
    const std::string course = Converting(r_) ? "" : std::string(1, r_.course);
    int at = 1;
    for (int64_t v : {int64_t{athlete}, int64_t{distance}, int64_t{stroke}}) q_.bind(at++, v);
    q_.bind(at++, r_.since->Iso());
    q_.bind(at++, int64_t{lead_offs_});
    q_.bind(at++, course);
    q_.bind(at++, course);
    std::optional<int32_t> best;
    while (q_.executeStep()) {
      int32_t time = q_.getColumn(0).getInt();
      const std::string swum = TextOf(q_.getColumn(1));
      if (Converting(r_) && !swum.empty()) {
        time = ConvertTime(state_, static_cast<int16_t>(distance), time,
                           static_cast<int16_t>(stroke), swum[0], r_.top.convert_to);
      }
      if (time > 0 && (!best || time < *best)) best = time;
    }
    return best;
  }

 private:
  AppState& state_;
  const ReportRequest& r_;
  SQLite::Statement q_;
  bool lead_offs_ = false;
};

// Improv of every swim, each swimmer's event taken apart (distance as swum).
void SetImprovements(AppState& state, const ReportRequest& r, bool lead_offs,
                     std::vector<TopSwim>& swims) {
  const TopTimesOptions::Improve mode = r.top.improve;
  if (mode == TopTimesOptions::Improve::kNone) return;
  std::map<std::tuple<int32_t, int, int>, std::vector<TopSwim*>> groups;
  for (TopSwim& s : swims) {
    // Points are not times: a drop would read as a gain.
    if (s.goal || s.nt > 0 || s.compared <= 0 || s.row.int_stroke >= 6) continue;
    groups[{s.row.athlete, s.distance, s.row.int_stroke}].push_back(&s);
  }
  std::optional<BaselineBefore> before;
  if (r.top.baseline_before_since && r.since) before.emplace(state, r, lead_offs);
  for (auto& [key, group] : groups) {
    std::stable_sort(group.begin(), group.end(), [](const TopSwim* a, const TopSwim* b) {
      return std::tie(a->start, a->result) < std::tie(b->start, b->result);
    });
    std::vector<int32_t> times;
    for (const TopSwim* s : group) times.push_back(s->compared);
    const auto [athlete, distance, stroke] = key;
    const std::optional<int32_t> base =
        before ? before->Best(athlete, distance, stroke) : std::nullopt;
    const auto values = Improvements(mode, times, base);
    for (size_t i = 0; i < group.size(); ++i) {
      if (values[i]) group[i]->row.improv = *values[i] / 100.0;
    }
  }
}

// LoadReportTableTopTimes, as far as it reads: one TopSwim for each row of the selection.
// nullopt when the user cancelled.
std::optional<std::vector<TopSwim>> LoadTopSwims(AppState& state, const ReportRequest& r,
                                                 int32_t athlete, bool lead_offs) {
  const auto [sql, binds] = GetTopTimes(state, r, athlete, lead_offs);
  SQLite::Statement q(*state.gDb, sql);
  for (size_t i = 0; i < binds.size(); ++i) {
    const int at = static_cast<int>(i) + 1;
    if (const auto* n = std::get_if<int64_t>(&binds[i])) {
      q.bind(at, *n);
    } else {
      q.bind(at, std::get<std::string>(binds[i]));
    }
  }
  const TopTimesOptions& o = r.top;
  const char target = o.convert_to;
  const bool show_converted = target != 0 && !o.show_actual;
  const Date today = state.clock->Today();
  StandardSwap swap(state, o.standards ? r.standard : std::string());
  std::vector<TopSwim> swims;
  while (q.executeStep()) {
    if (state.io->Cancelled() && state.io->AskYesNo("Cancel this report?", "Cancel Report")) {
      return std::nullopt;
    }
    auto t = [&q](int i) { return TextOf(q.getColumn(i)); };
    auto n = [&q](int i) { return q.getColumn(i).isNull() ? 0 : q.getColumn(i).getInt(); };
    TopSwim s;
    RMeetRow& row = s.row;
    s.result = q.getColumn(0).getInt64();
    s.goal = t(3) == "G";
    s.score = n(7);
    s.nt = n(8);
    s.distance = n(10);
    row.athlete = n(2);
    row.last = t(20);
    row.first = Trim(t(22)).empty() ? t(21) : t(22);
    row.initial = t(23);
    row.name = ReportName(row.last, row.first, row.initial);
    row.sex = t(24);
    const std::optional<Date> birth = DateOf(q.getColumn(25));
    row.i_r = t(3);
    if (s.goal) {
      row.f_p = std::string(tttxt::kGoal);
    } else {
      row.meet_id = n(1);
      row.meet = t(15);
      s.start = row.meet_start = t(16);
      row.meet_end = t(17);
      row.meet_type = t(18);
      row.meet_crs = t(19);
      row.f_p = t(4);
    }
    row.int_stroke = n(11);
    row.stroke = ReportStrokeText(row.int_stroke, "I");
    row.course = t(6);
    row.ex = t(5);
    row.comment = t(27);
    const std::optional<Date> start = s.goal ? std::optional(today) : Date::FromIso(s.start);
    row.age = n(9) != 0 ? n(9) : AgeAtDate(birth, start);
    row.lo_hi = n(14);
    row.place = n(12);
    row.misc = t(13);

    const char swum = row.course.empty() ? 0 : row.course[0];
    // Points of a dive have no equivalent in another course.
    const bool converts = target != 0 && swum != 0 && swum != target && s.score > 0 &&
                          row.int_stroke < 6;
    s.compared = converts ? ConvertTime(state, static_cast<int16_t>(s.distance), s.score,
                                        static_cast<int16_t>(row.int_stroke), swum, target)
                          : s.score;
    // More points rank first, still ahead of the rows without a score.
    row.convt = s.nt > 0 || s.compared <= 0 ? kNtLast
                : row.int_stroke >= 6       ? kNtLast - s.compared
                                            : s.compared;
    row.int_dist = TopTimesDistance(s.distance, row.int_stroke, target);
    row.distance = ReportDistText(row.int_dist);

    const int32_t shown = show_converted ? s.compared : s.score;
    const char letter = show_converted ? target : swum;
    std::string text = Trim(ScoreText(shown, row.int_stroke, std::string(letter ? 1 : 0, letter),
                                      s.nt));
    if (show_converted && converts && shown > 0) text += "'";
    if (UCase(row.ex) == "X" && shown > 0) text += "x";
    row.score = text;

    if (o.standards && s.nt == 0 && shown > 0) {
      const int16_t age = o.current_age ? AgeAtDate(birth, today)
                                        : static_cast<int16_t>(row.age);
      int16_t designator = 0;
      row.misc = Trim(GetStandard(state, designator, shown, row.sex,
                                  static_cast<int16_t>(show_converted ? row.int_dist : s.distance),
                                  static_cast<int16_t>(row.int_stroke), age,
                                  std::string(letter ? 1 : 0, letter), false));
    }
    swims.push_back(std::move(s));
  }
  return swims;
}

bool CheckTopTimesRequest(AppState& state, const ReportRequest& r) {
  if (r.course == 0 && r.top.convert_to == 0) {
    state.io->Tell(tttxt::kSelectCourse);
    state.io->Tell(tttxt::kCourseHint);
    return false;
  }
  return true;
}

std::string SwimmerName(AppState& state, int32_t athlete) {
  SQLite::Statement q(*state.gDb, "SELECT Last, First, Initial FROM ATHLETE WHERE Athlete = ?");
  q.bind(1, athlete);
  if (!q.executeStep()) return "";
  return ReportName(TextOf(q.getColumn(0)), TextOf(q.getColumn(1)), TextOf(q.getColumn(2)));
}

}  // namespace

const std::vector<std::string>& TopTimesCourseOptions() {
  static const std::vector<std::string> options = {
      "YO (Show Yards Only)",       "SO (Show SC Meters Only)",       "LO (Show LC Meters Only)",
      "YY (Convert to Y, Show Y)",  "SS (Convert to SC, Show SC)",    "LL (Convert to LC, Show LC)",
      "YA (Convert to Y, Show Actual)", "SA (Convert to SC, Show Actual)",
      "LA (Convert to LC, Show Actual)"};
  return options;
}

int TopTimesCourseIndex(const ReportRequest& request) {
  const char c = request.top.convert_to ? request.top.convert_to : request.course;
  const size_t at = CourseLetters.find(c);
  if (c == 0 || at == std::string_view::npos) return -1;
  if (!request.top.convert_to) return static_cast<int>(at);
  return static_cast<int>(at) + (request.top.show_actual ? 6 : 3);
}

void SetTopTimesCourse(ReportRequest& request, int index) {
  request.course = 0;
  request.top.convert_to = 0;
  request.top.show_actual = false;
  if (index < 0 || index > 8) return;
  const char letter = CourseLetters[static_cast<size_t>(index % 3)];
  if (index < 3) {
    request.course = letter;
  } else {
    request.top.convert_to = letter;
    request.top.show_actual = index >= 6;
  }
}

int DivingDistance(std::string_view board) {
  const std::string word = UCase(Trim(board));
  const std::vector<std::string> list = DistanceList();
  for (size_t i = 11; i < list.size(); ++i) {
    const std::string entry = UCase(Trim(list[i]));
    if (word == entry || (!word.empty() && word == entry.substr(0, word.size()) &&
                          word.size() == 1)) {
      return static_cast<int>(i) + 9980;
    }
  }
  return 0;
}

int TopTimesDistance(int distance, int stroke, char target) {
  if (target == 'Y') {
    if (distance == 400 && stroke == 1) return 500;
    if (distance == 800) return 1000;
    if (distance == 1500) return 1650;
  } else if (target == 'S' || target == 'L') {
    if (distance == 500) return 400;
    if (distance == 1000) return 800;
    if (distance == 1650) return 1500;
  }
  return distance;
}

std::vector<std::optional<int32_t>> Improvements(TopTimesOptions::Improve mode,
                                                 const std::vector<int32_t>& times,
                                                 std::optional<int32_t> before) {
  using Improve = TopTimesOptions::Improve;
  std::vector<std::optional<int32_t>> out(times.size());
  if (times.empty() || mode == Improve::kNone) return out;
  const int32_t base = before.value_or(times[0]);
  // Without an earlier best the first swim is the baseline and has nothing to show.
  const size_t first = before ? 0 : 1;
  switch (mode) {
    case Improve::kEachMeet:
      for (size_t i = first; i < times.size(); ++i) out[i] = base - times[i];
      break;
    case Improve::kMeetToMeet:
      for (size_t i = first; i < times.size(); ++i) {
        out[i] = (i == 0 ? base : times[i - 1]) - times[i];
      }
      break;
    case Improve::kBest: {
      const size_t best =
          static_cast<size_t>(std::min_element(times.begin(), times.end()) - times.begin());
      if (best >= first) out[best] = base - times[best];
      break;
    }
    case Improve::kNone:
      break;
  }
  return out;
}

std::string ImprovementText(std::optional<double> seconds) {
  if (!seconds) return "";
  const auto hundredths = static_cast<int32_t>(std::lround(*seconds * 100));
  if (hundredths == 0) return "0.00";
  std::string time = FormatTime(std::abs(hundredths), false);
  if (time.size() > 1 && time[0] == '0' && time[1] != '.') time.erase(0, 1);
  return (hundredths > 0 ? "-" : "+") + time;
}

bool PrintTTReport(AppState& state, const ReportRequest& r) {
  if (!CheckTopTimesRequest(state, r)) return false;
  const int32_t athlete = RequestedAthlete(state, r);
  const bool lead_offs = r.top.lead_offs.value_or(state.gUseLeadOff);
  state.io->Progress(tttxt::kBuilding);
  SQLite::Database& rdb = *state.gReportDb;
  rdb.exec("DELETE FROM RMEETI");
  rdb.exec("DELETE FROM RSPLITS");
  std::optional<std::vector<TopSwim>> swims = LoadTopSwims(state, r, athlete, lead_offs);
  if (!swims) return false;
  SetImprovements(state, r, lead_offs, *swims);

  // Goals don't take a place of the top N; neither do non-times, as in RANK.
  const bool cut = Converting(r) && r.top.top_n > 0;
  auto write = [&](bool goals) {
    SQLite::Transaction transaction(rdb);
    MeetRowWriter out(rdb);
    int order = 0;
    for (TopSwim& s : *swims) {
      ++order;
      if (s.goal != goals || (cut && s.nt > 0)) continue;
      if (r.split_mode != 0 &&
          AddSplitsToReport(state, s.result, s.distance,
                            s.row.course.empty() ? 0 : s.row.course[0], r.split_mode)) {
        s.row.split = s.result;
      }
      s.row.sort_order = order;
      out.Add(s.row);
    }
    transaction.commit();
  };
  write(false);
  if (cut) RemoveExtraTimes(state, TopGroup::kSwimmer, r.top.top_n);
  write(true);
  state.io->Progress("");
  const long long rows = rdb.execAndGet("SELECT count(*) FROM RMEETI").getInt64();
  if (rows == 0) {
    state.io->Tell(tttxt::kNoResults);
    return false;
  }

  std::string title = "Top Times";
  if (athlete != 0) title += " for " + SwimmerName(state, athlete);
  std::string meet_line;
  if (r.meet != 0) {
    SQLite::Statement m(*state.gDb, "SELECT MName, Start FROM MEET WHERE Meet = ?");
    m.bind(1, r.meet);
    if (m.executeStep()) {
      meet_line = Trim(TextOf(m.getColumn(0)));
      if (auto d = DateOf(m.getColumn(1))) meet_line += "  -  " + ShownDate(*d, state.gDateOrder);
    }
  }
  std::string date_line;
  if (r.since) date_line = std::string(tttxt::kTimesSince) + MediumDate(*r.since);
  if (r.until) {
    date_line += (date_line.empty() ? "" : "     ") + std::string(tttxt::kTimesUntil) +
                 MediumDate(*r.until);
  }
  const int course_index = TopTimesCourseIndex(r);
  const std::string misc = course_index >= 0 ? TopTimesCourseOptions()[course_index] : "";
  SetReportParameters(state, title, {"", meet_line, misc, date_line},
                      r.top.chronological ? "Date" : "Time");
  return true;
}

ReportDoc LayoutTopTimes(AppState& state, const ReportRequest& r) {
  using Align = ReportColumn::Align;
  ReportDoc doc = StartReportDoc(state, r);
  SQLite::Database& rdb = *state.gReportDb;
  const ReportParameters p = ReadReportParameters(rdb);
  const bool one_meet = r.meet != 0;
  const bool swimmers = rdb.execAndGet("SELECT count(DISTINCT ATHLETE) FROM RMEETI").getInt() > 1;
  const bool sexes = rdb.execAndGet("SELECT count(DISTINCT SEX) FROM RMEETI").getInt() > 1;
  const bool improve = r.top.improve != TopTimesOptions::Improve::kNone;
  ReportSection s;
  s.columns = {{"#", 4, Align::kRight}, {"Time", 11, Align::kRight}, {"Round", 8}};
  if (one_meet) s.columns.push_back({"Place", 5, Align::kRight});
  s.columns.push_back({"Age", 5, Align::kRight});
  if (r.top.standards) s.columns.push_back({"Std", 5});
  if (improve) s.columns.push_back({"Improv", 8, Align::kRight});
  if (!one_meet) {
    s.columns.push_back({"Date", 11});
    s.columns.push_back({"Meet", swimmers ? 30.0 : 34.0});
  }
  if (swimmers) s.columns.push_back({"Swimmer", 24});
  SQLite::Statement q(
      rdb, std::string("SELECT INTSTROKE, INTDIST, SEX, DISTANCE, STROKE, SCORE, F_P, I_R, "
                       "PLACE, AGE, MISC, IMPROV, MEETSTART, MEET, NAME, COMMENT, SPLIT "
                       "FROM RMEETI ORDER BY INTSTROKE, INTDIST, SEX, ") +
               (r.top.chronological ? "(I_R <> 'G'), MEETSTART DESC, CONVT" : "CONVT, MEETSTART") +
               ", SORTORDER");
  std::tuple<int, int> event{-1, -1};
  std::string sex = "?";
  int place = 0;
  while (q.executeStep()) {
    auto t = [&q](int i) { return Trim(TextOf(q.getColumn(i))); };
    const std::tuple<int, int> key{q.getColumn(0).getInt(), q.getColumn(1).getInt()};
    if (key != event) {
      event = key;
      sex = "?";
      s.Group(t(3) + " " + t(4));
    }
    if (t(2) != sex) {
      sex = t(2);
      place = 0;
      if (sexes) s.SubGroup(ReportSexWord(sex, p));
    }
    const bool goal = t(7) == "G";
    std::vector<std::string> cells = {goal ? "" : std::to_string(++place), t(5),
                                      goal ? std::string(tttxt::kGoal) : FinalsWord(t(6))};
    if (one_meet) {
      const int at = q.getColumn(8).getInt();
      cells.push_back(at > 0 ? std::to_string(at) : "");
    }
    cells.push_back(q.getColumn(9).getInt() > 0 ? std::to_string(q.getColumn(9).getInt()) : "");
    if (r.top.standards) cells.push_back(t(10));
    if (improve) {
      cells.push_back(ImprovementText(q.getColumn(11).isNull()
                                          ? std::nullopt
                                          : std::optional(q.getColumn(11).getDouble())));
    }
    if (!one_meet) {
      const auto d = Date::FromIso(t(12));
      cells.push_back(d ? ShownDate(*d, state.gDateOrder) : "");
      cells.push_back(t(13));
    }
    if (swimmers) cells.push_back(t(14));
    s.Row(std::move(cells));
    if (!t(15).empty()) s.Detail(t(15));
    const std::string splits = SplitsText(rdb, q.getColumn(16).getInt64());
    if (!splits.empty()) s.Detail(splits);
  }
  doc.sections.push_back(std::move(s));
  return doc;
}

namespace {

constexpr int kSpreadEvents = 22;  // the Dis, EV and F columns of RSPREAD

// RSPREAD from the top times: a row a swimmer with the best of each event in its column.
bool FillSpread(AppState& state, const ReportRequest& request) {
  ReportRequest r = request;
  r.top.goals = false;
  r.top.include_nt = false;
  if (!PrintTTReport(state, r)) return false;
  SQLite::Database& rdb = *state.gReportDb;
  std::vector<std::pair<int, int>> events;
  std::vector<std::string> dis, ev;
  SQLite::Statement e(rdb,
                      "SELECT DISTINCT INTSTROKE, INTDIST, trim(DISTANCE), trim(STROKE) FROM RMEETI "
                      "WHERE CONVT < ? ORDER BY INTSTROKE, INTDIST LIMIT ?");
  e.bind(1, kNtLast);
  e.bind(2, kSpreadEvents);
  while (e.executeStep()) {
    events.emplace_back(e.getColumn(0).getInt(), e.getColumn(1).getInt());
    dis.push_back(TextOf(e.getColumn(2)));
    ev.push_back(TextOf(e.getColumn(3)));
  }
  std::string sql = "INSERT INTO RSPREAD (AGE, LAST, FIRST, INITIAL, SEX, INACTIVE, LO_HI, NAME";
  for (size_t i = 0; i < events.size(); ++i) sql += fmt::format(", Dis{0}, EV{0}, F{0}", i);
  sql += ") VALUES (?, ?, ?, ?, ?, 0, 0, ?";
  for (size_t i = 0; i < events.size() * 3; ++i) sql += ", ?";
  sql += ")";
  SQLite::Transaction transaction(rdb);
  rdb.exec("DELETE FROM RSPREAD");
  SQLite::Statement add(rdb, sql);
  SQLite::Statement who(rdb,
                        "SELECT ATHLETE, MAX(AGE), LAST, FIRST, INITIAL, SEX, NAME FROM RMEETI "
                        "WHERE CONVT < ? GROUP BY ATHLETE");
  who.bind(1, kNtLast);
  // The score of the smallest CONVT is the row SQLite takes with MIN.
  SQLite::Statement best(rdb,
                         "SELECT trim(SCORE), MIN(CONVT) FROM RMEETI WHERE ATHLETE = ? AND "
                         "INTSTROKE = ? AND INTDIST = ? AND CONVT < ?");
  while (who.executeStep()) {
    add.reset();
    add.clearBindings();
    add.bind(1, who.getColumn(1).getInt());
    for (int i = 2; i <= 6; ++i) add.bind(i, TextOf(who.getColumn(i)));
    for (size_t i = 0; i < events.size(); ++i) {
      best.reset();
      best.bind(1, who.getColumn(0).getInt());
      best.bind(2, events[i].first);
      best.bind(3, events[i].second);
      best.bind(4, kNtLast);
      std::string score;
      if (best.executeStep() && !best.getColumn(1).isNull()) score = TextOf(best.getColumn(0));
      const int at = 7 + static_cast<int>(i) * 3;
      add.bind(at, dis[i]);
      add.bind(at + 1, ev[i]);
      add.bind(at + 2, FitText(score, 21));
    }
    add.exec();
  }
  transaction.commit();
  SetReportParameters(state, "Top Times Spread Sheet",
                      {"", "", ReadReportParameters(rdb).misc_line,
                       ReadReportParameters(rdb).date_line});
  return true;
}

ReportDoc LayoutSpread(AppState& state, const ReportRequest& request) {
  ReportDoc doc = StartReportDoc(state, request);
  doc.landscape = true;
  SQLite::Database& rdb = *state.gReportDb;
  const ReportParameters p = ReadReportParameters(rdb);
  std::string cols = "NAME, AGE, SEX";
  for (int i = 0; i < kSpreadEvents; ++i) cols += fmt::format(", Dis{0}, EV{0}, F{0}", i);
  SQLite::Statement q(rdb, "SELECT " + cols + " FROM RSPREAD ORDER BY SEX, LAST, FIRST");
  ReportSection s;
  std::string sex = "?";
  while (q.executeStep()) {
    auto t = [&q](int i) { return Trim(TextOf(q.getColumn(i))); };
    if (s.columns.empty()) {
      s.columns = {{"Swimmer", 18}, {"Age", 4, ReportColumn::Align::kRight}};
      for (int i = 0; i < kSpreadEvents && !t(3 + i * 3).empty(); ++i) {
        s.columns.push_back({t(3 + i * 3) + " " + t(4 + i * 3), 8, ReportColumn::Align::kRight});
      }
    }
    if (t(2) != sex) s.Group(ReportSexWord(sex = t(2), p));
    std::vector<std::string> cells = {t(0), t(1)};
    for (size_t i = 2; i < s.columns.size(); ++i) cells.push_back(t(5 + static_cast<int>(i - 2) * 3));
    s.Row(std::move(cells));
  }
  doc.sections.push_back(std::move(s));
  return doc;
}

}  // namespace

void AddTopTimesReports(ReportCatalog& catalog) {
  catalog.Add({"top-times",
               "a swimmer's swims by event, fastest first (--athlete, --course or --convert "
               "[--actual], --top N, --improve, --goals, --standards, --splits, ...)",
               PrintTTReport, LayoutTopTimes});
  catalog.Add({"top-times-meet", "top times of one meet (--meet N and the top-times options)",
               [](AppState& state, const ReportRequest& r) {
                 if (r.meet == 0) {
                   state.io->Tell("Please select a meet.");
                   return false;
                 }
                 return PrintTTReport(state, r);
               },
               LayoutTopTimes});
  catalog.Add({"top-times-spread",
               "each swimmer's best of each event in columns, a row a swimmer (the top-times "
               "options)",
               FillSpread, LayoutSpread});
}

}  // namespace kvlr
