#include "reports/Memorized.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

#include "core/Columns.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "reports/ReportFill.h"
#include "reports/TopTimes.h"

namespace kvlr {
namespace {

constexpr const char* kFields =
    "Name, Type, SortBy, Sex, Prelim, Splits, Stroke, Distance, chkIncRelayLO, chkStandards, "
    "chkSince, SinceDate, chkImprove, chkUntil, UntilDate, Grouping, MeetType, TopN, Course, "
    "chkChronological, Orientation, chkActual, chkNoTimes, chkBest, StdName, chkComments, "
    "chkGoals";

// chkImprove holds the "Show Improvement" choice and, from 4 up, the baseline tick.
constexpr int kBaselineFlag = 4;

int IndexOf(const std::vector<std::string>& list, std::string_view value) {
  for (size_t i = 0; i < list.size(); ++i) {
    if (list[i] == value) return static_cast<int>(i);
  }
  return 0;
}

// The distance list's entry of a distance (0 for none); the boards are stored as 9991 on.
int DistanceIndexOf(int distance) {
  const std::vector<std::string> list = DistanceList();
  if (distance >= 9991 && distance - 9980 < static_cast<int>(list.size())) return distance - 9980;
  for (size_t i = 1; i < list.size() && i < 11; ++i) {
    if (Val(list[i]) == distance) return static_cast<int>(i);
  }
  return 0;
}

int DistanceAt(int index) {
  const std::vector<std::string> list = DistanceList();
  if (index <= 0 || index >= static_cast<int>(list.size())) return 0;
  return index < 11 ? static_cast<int>(Val(list[static_cast<size_t>(index)])) : index + 9980;
}

void BindRow(SQLite::Statement& q, const MemorizedReport& m) {
  const ReportRequest& r = m.request;
  const TopTimesOptions& o = r.top;
  const int splits = r.split_mode == 2 ? 1 : r.split_mode == 3 ? 2 : 0;
  const int course = m.type == MemorizedType::kTopTimes || m.type == MemorizedType::kTopTimesSpread
                         ? TopTimesCourseIndex(r)
                         : r.course ? static_cast<int>(CourseLetters.find(r.course)) + 1 : 0;
  int at = 1;
  auto date = [&](const std::optional<Date>& d) {
    if (d) {
      q.bind(at++, d->Iso());
    } else {
      q.bind(at++);
    }
  };
  q.bind(at++, FitText(Trim(m.name), 30));
  q.bind(at++, static_cast<int>(m.type));
  q.bind(at++, o.current_age ? 1 : 0);
  q.bind(at++, IndexOf({"", "F", "M"}, r.sex));
  q.bind(at++, IndexOf({"", "F", "P"}, o.round));
  q.bind(at++, splits);
  q.bind(at++, o.stroke);
  q.bind(at++, DistanceIndexOf(o.distance));
  if (o.lead_offs) {
    q.bind(at++, *o.lead_offs ? 1 : 0);
  } else {
    q.bind(at++);
  }
  q.bind(at++, o.standards ? 1 : 0);
  q.bind(at++, r.since ? 1 : 0);
  date(r.since);
  q.bind(at++, static_cast<int>(o.improve) + (o.baseline_before_since ? kBaselineFlag : 0));
  q.bind(at++, r.until ? 1 : 0);
  date(r.until);
  q.bind(at++, 0);
  q.bind(at++, FitText(r.meet_type, 3));
  q.bind(at++, o.top_n);
  q.bind(at++, course);
  q.bind(at++, o.chronological ? 1 : 0);
  q.bind(at++, r.landscape ? 1 : 0);
  q.bind(at++, o.show_actual ? 1 : 0);
  q.bind(at++, o.include_nt ? 1 : 0);
  q.bind(at++, o.top_n == 1 ? 1 : 0);
  q.bind(at++, FitText(r.standard, 8));
  q.bind(at++, o.comments ? 1 : 0);
  q.bind(at++, o.goals ? 1 : 0);
}

MemorizedReport ReadRow(SQLite::Statement& q) {
  auto n = [&q](int i) { return q.getColumn(i).isNull() ? 0 : q.getColumn(i).getInt(); };
  MemorizedReport m;
  m.name = TextOf(q.getColumn(0));
  m.type = static_cast<MemorizedType>(n(1));
  ReportRequest& r = m.request;
  TopTimesOptions& o = r.top;
  o.current_age = n(2) == 1;
  static const char* kSex[] = {"", "F", "M"};
  static const char* kRound[] = {"", "F", "P"};
  r.sex = kSex[n(3) >= 0 && n(3) < 3 ? n(3) : 0];
  o.round = kRound[n(4) >= 0 && n(4) < 3 ? n(4) : 0];
  static const int kSplits[] = {0, 2, 3, 3};
  r.split_mode = kSplits[n(5) >= 0 && n(5) < 4 ? n(5) : 0];
  o.stroke = n(6);
  o.distance = DistanceAt(n(7));
  if (!q.getColumn(8).isNull()) o.lead_offs = n(8) != 0;
  o.standards = n(9) != 0;
  if (n(10) != 0) r.since = DateOf(q.getColumn(11));
  const int improve = n(12);
  o.improve = static_cast<TopTimesOptions::Improve>(improve % kBaselineFlag);
  o.baseline_before_since = improve >= kBaselineFlag;
  if (n(13) != 0) r.until = DateOf(q.getColumn(14));
  r.meet_type = Trim(TextOf(q.getColumn(16)));
  o.top_n = n(17);
  if (m.type == MemorizedType::kTopTimes || m.type == MemorizedType::kTopTimesSpread) {
    SetTopTimesCourse(r, n(18));
  } else if (n(18) >= 1 && n(18) <= 3) {
    r.course = CourseLetters[static_cast<size_t>(n(18) - 1)];
  }
  o.chronological = n(19) != 0;
  r.landscape = n(20) != 0;
  o.include_nt = n(22) != 0;
  r.standard = Trim(TextOf(q.getColumn(24)));
  o.comments = n(25) != 0;
  o.goals = n(26) != 0;
  return m;
}

bool NameTaken(SQLite::Database& db, MemorizedType type, std::string_view name) {
  SQLite::Statement q(db, "SELECT 1 FROM CUSTOMRPTS WHERE Name = ? AND Type = ?");
  q.bind(1, std::string(name));
  q.bind(2, static_cast<int>(type));
  return q.executeStep();
}

}  // namespace

std::string MemorizedTypeWord(MemorizedType type) {
  switch (type) {
    case MemorizedType::kTopTimes:
      return "Top Times";
    case MemorizedType::kTopTimesSpread:
      return "Top Times Spread Sheet";
    case MemorizedType::kMeetResults:
      return "Meet Results";
    case MemorizedType::kMeetEntries:
      return "Meet Entry";
  }
  return "";
}

std::string MemorizedKind(MemorizedType type) {
  switch (type) {
    case MemorizedType::kTopTimes:
      return "top-times";
    case MemorizedType::kMeetResults:
      return "meet-results";
    case MemorizedType::kMeetEntries:
      return "meet-entries";
    case MemorizedType::kTopTimesSpread:
      return "top-times-spread";
  }
  return "";
}

std::vector<MemorizedReport> ListMemorized(SQLite::Database& db,
                                           std::optional<MemorizedType> type, bool by_type) {
  SQLite::Statement q(db, std::string("SELECT ") + kFields +
                              " FROM CUSTOMRPTS WHERE (? < 0 OR Type = ?) ORDER BY " +
                              (by_type ? "Type DESC, Name" : "Name, Type"));
  const int t = type ? static_cast<int>(*type) : -1;
  q.bind(1, t);
  q.bind(2, t);
  std::vector<MemorizedReport> rows;
  while (q.executeStep()) rows.push_back(ReadRow(q));
  return rows;
}

std::optional<MemorizedReport> FindMemorized(SQLite::Database& db, std::string_view name,
                                             std::optional<MemorizedType> type) {
  SQLite::Statement q(db, std::string("SELECT ") + kFields +
                              " FROM CUSTOMRPTS WHERE Name = ? AND (? < 0 OR Type = ?) "
                              "ORDER BY Type LIMIT 1");
  const int t = type ? static_cast<int>(*type) : -1;
  q.bind(1, std::string(name));
  q.bind(2, t);
  q.bind(3, t);
  if (!q.executeStep()) return std::nullopt;
  return ReadRow(q);
}

bool SaveMemorized(AppState& state, const MemorizedReport& report) {
  const std::string name = FitText(Trim(report.name), 30);
  if (name.empty()) {
    state.io->Tell(memtxt::kNameRequired);
    return false;
  }
  SQLite::Database& db = *state.gDb;
  const bool exists = NameTaken(db, report.type, name);
  if (exists && !state.io->AskYesNo(memtxt::kOverwrite)) return false;
  SQLite::Transaction transaction(db);
  if (exists) {
    SQLite::Statement del(db, "DELETE FROM CUSTOMRPTS WHERE Name = ? AND Type = ?");
    del.bind(1, name);
    del.bind(2, static_cast<int>(report.type));
    del.exec();
  }
  SQLite::Statement add(db, std::string("INSERT INTO CUSTOMRPTS (") + kFields +
                                ") VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
  BindRow(add, report);
  add.exec();
  transaction.commit();
  return true;
}

bool RenameMemorized(AppState& state, MemorizedType type, std::string_view name,
                     std::string_view new_name, bool from_grid) {
  const std::string to = FitText(Trim(new_name), 30);
  if (to.empty()) {
    state.io->Tell(memtxt::kNameRequired);
    return false;
  }
  SQLite::Database& db = *state.gDb;
  if (to != name && NameTaken(db, type, to)) {
    if (from_grid) {
      state.io->Tell(memtxt::kGridNameTaken);
    } else {
      state.io->Tell(std::string(memtxt::kNameTaken) + "\n" + std::string(memtxt::kChooseAnother));
    }
    return false;
  }
  SQLite::Statement q(db, "UPDATE CUSTOMRPTS SET Name = ? WHERE Name = ? AND Type = ?");
  q.bind(1, to);
  q.bind(2, std::string(name));
  q.bind(3, static_cast<int>(type));
  return q.exec() > 0;
}

bool RemoveMemorized(AppState& state, MemorizedType type, std::string_view name) {
  if (!state.io->AskYesNo(std::string(memtxt::kRemove) + std::string(name))) return false;
  SQLite::Statement q(*state.gDb, "DELETE FROM CUSTOMRPTS WHERE Name = ? AND Type = ?");
  q.bind(1, std::string(name));
  q.bind(2, static_cast<int>(type));
  return q.exec() > 0;
}

}  // namespace kvlr
