#include "daily/Calendar.h"

#include <algorithm>
#include <array>
#include <set>

#include <fmt/format.h>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/TimeOfDay.h"
#include "core/VbRules.h"
#include "daily/DailyTexts.h"
#include "reports/ReportFrame.h"

namespace kvlr {

namespace {

using namespace dailytext;

constexpr std::array<std::string_view, 9> kTypeTexts = {
    "Swim", "Dry", "Meet", "Goal", "Meeting", "Note", "Health", "Vacation", "Multiple"};
constexpr std::array<const char*, 8> kBands = {"Swim", "Dry",    "Meet",   "Goal",
                                               "Meeting", "Note", "Health", "Vacation"};
constexpr std::string_view kCrLf = "\r\n";

CalendarEvent EventOf(SQLite::Statement& q) {
  // Columns: ID, Athlete, DATE, Type, StartTime, EndTime, Comment.
  CalendarEvent e;
  e.id = q.getColumn(0).getInt64();
  e.athlete = q.getColumn(1).getInt();
  e.date = DateOf(q.getColumn(2)).value_or(kNullDate);
  e.type = q.getColumn(3).getInt();
  e.start = StoredMinutes(TextOf(q.getColumn(4)));
  e.end = StoredMinutes(TextOf(q.getColumn(5)));
  e.comment = TextOf(q.getColumn(6));
  return e;
}

constexpr const char* kEventColumns = "ID, Athlete, DATE, Type, StartTime, EndTime, Comment";

std::string DayText(const Date& date, const AppState& state) {
  return ShownDate(date, state.gDateOrder);
}

// An event of `type` starting at `start` on `date` among the swimmer's, other than `id`.
std::optional<CalendarEvent> SameStart(AppState& state, int type, const Date& date, int start,
                                       int64_t id) {
  SQLite::Statement q(*state.gDb,
                      fmt::format("SELECT {} FROM tblEvents WHERE substr(DATE, 1, 10) = ? AND "
                                  "Type = ? AND substr(StartTime, -8, 5) = ? AND ID <> ? AND "
                                  "(Athlete = ? OR Type = 2)",
                                  kEventColumns));
  SQLite::bind(q, date.Iso(), type, StoredTime(start).substr(11, 5), id, state.gAthlete);
  if (!q.executeStep()) return std::nullopt;
  return EventOf(q);
}

void WriteTimes(SQLite::Database& db, int64_t id, int start, int end) {
  SQLite::Statement w(db, "UPDATE tblEvents SET StartTime = ?, EndTime = ? WHERE ID = ?");
  SQLite::bind(w, StoredTime(start), StoredTime(end), id);
  w.exec();
}

bool TableExists(SQLite::Database& db, const char* name) {
  SQLite::Statement q(db, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?");
  q.bind(1, name);
  return q.executeStep();
}

}  // namespace

std::string_view EventTypeText(int type) {
  return type >= 0 && type < static_cast<int>(kTypeTexts.size()) ? kTypeTexts[type] : "";
}

const std::vector<SelectorItem>& EventSelector() {
  static const std::vector<SelectorItem> items = {
      {kAllEvents, -1},         {"Meets", kEventMeet},   {"Goals", kEventGoal},
      {"Meetings", kEventMeeting}, {"Notes", kEventNote}, {"Health", kEventHealth},
      {"Vacation", kEventVacation}, {"Multiples", kEventMultiple}};
  return items;
}

std::string ClockText(int minutes, bool clock24) {
  const int h = minutes / 60 % 24, m = minutes % 60;
  if (clock24) return fmt::format("{:02}:{:02}", h, m);
  return fmt::format("{:02}:{:02}{}", h % 12 == 0 ? 12 : h % 12, m, h < 12 ? "AM" : "PM");
}

std::string StoredTime(int minutes) {
  minutes = std::clamp(minutes, 0, 24 * 60 - 1);
  return fmt::format("1899-12-30 {:02}:{:02}:00", minutes / 60, minutes % 60);
}

std::optional<int> StoredMinutes(std::string_view stored) {
  if (const auto space = stored.find(' '); space != std::string_view::npos) {
    stored = stored.substr(space + 1);
  }
  if (stored.size() < 5 || stored[2] != ':') return std::nullopt;
  const std::string_view digits = "0123456789";
  for (size_t i : {0, 1, 3, 4}) {
    if (digits.find(stored[i]) == std::string_view::npos) return std::nullopt;
  }
  const int h = (stored[0] - '0') * 10 + stored[1] - '0';
  const int m = (stored[3] - '0') * 10 + stored[4] - '0';
  if (h > 23 || m > 59) return std::nullopt;
  return h * 60 + m;
}

std::optional<int> TypedMinutes(std::string_view text, std::string* message) {
  const TimeOfDayResult r = ParseTimeOfDay(text);
  if (message) *message = r.message;
  if (r.text.empty()) return std::nullopt;
  const auto colon = r.text.find(':');
  int h = std::stoi(r.text.substr(0, colon));
  const int m = std::stoi(r.text.substr(colon + 1, 2));
  if (r.text.size() > 3 && (r.text.ends_with("AM") || r.text.ends_with("PM"))) {
    h = h % 12 + (r.text.ends_with("PM") ? 12 : 0);
  }
  // "24:00" is the end of the day, kept as its last quarter.
  return std::min(h * 60 + m, 24 * 60 - kQuarter);
}

int SnapToQuarter(int minutes) {
  const int snapped = (minutes + kQuarter / 2) / kQuarter * kQuarter;
  return std::clamp(snapped, kDayFirstMinute, kDayLastMinute);
}

TimeSpan DefaultTimes(SQLite::Database& db, int32_t athlete, int type) {
  TimeSpan span{*TypedMinutes(kDefaultStart), *TypedMinutes(kDefaultEnd)};
  if (type < 0 || type >= static_cast<int>(kBands.size())) return span;
  SQLite::Statement q(db, fmt::format("SELECT Start{0}, End{0} FROM Athlete WHERE Athlete = ?",
                                      kBands[type]));
  q.bind(1, athlete);
  if (q.executeStep()) {
    span.start = StoredMinutes(TextOf(q.getColumn(0))).value_or(span.start);
    span.end = StoredMinutes(TextOf(q.getColumn(1))).value_or(span.end);
  }
  return span;
}

int StartMonth(SQLite::Database& db, int32_t athlete) {
  SQLite::Statement q(db, "SELECT StartMonth FROM Athlete WHERE Athlete = ?");
  q.bind(1, athlete);
  if (!q.executeStep()) return 1;
  const int month = q.getColumn(0).getInt();
  return month >= 1 && month <= 12 ? month : 1;
}

std::map<Date, int> LoadEventMarks(SQLite::Database& db, int32_t athlete, int type,
                                   const Date& from, const Date& to) {
  std::string sql = "SELECT DATE, Type FROM tblEvents WHERE substr(DATE, 1, 10) BETWEEN ? AND ?";
  if (type < 0) {
    sql += " AND (Athlete = ? OR Type = 2)";
  } else {
    sql += " AND Type = ?";
    if (type != kEventMeet) sql += " AND Athlete = ?";
  }
  SQLite::Statement q(db, sql + " ORDER BY DATE");
  SQLite::bind(q, from.Iso(), to.Iso());
  if (type < 0) {
    q.bind(3, athlete);
  } else {
    q.bind(3, type);
    if (type != kEventMeet) q.bind(4, athlete);
  }
  std::map<Date, int> marks;
  while (q.executeStep()) {
    const auto date = DateOf(q.getColumn(0));
    if (!date) continue;
    const int t = q.getColumn(1).getInt();
    auto [it, added] = marks.emplace(*date, t);
    if (!added && it->second != t) it->second = kEventMultiple;
  }
  return marks;
}

std::vector<CalendarEvent> LoadDay(AppState& state, int32_t athlete, const Date& date) {
  SQLite::Database& db = *state.gDb;
  SQLite::Statement q(db, fmt::format("SELECT {} FROM tblEvents WHERE (Athlete = ? OR Type = 2) "
                                      "AND substr(DATE, 1, 10) = ? ORDER BY StartTime",
                                      kEventColumns));
  SQLite::bind(q, athlete, date.Iso());
  std::vector<CalendarEvent> day;
  while (q.executeStep()) day.push_back(EventOf(q));
  for (CalendarEvent& e : day) {
    const TimeSpan defaults = DefaultTimes(db, athlete, e.type);
    if (!e.start) e.start = defaults.start;
    if (!e.end) e.end = defaults.end;
    if (*e.end <= *e.start) {
      state.io->Tell(std::string(kEndNotAfterStart) + std::string(kCrLf) +
                     std::string(kAdjustingHour));
      e.end = std::min(*e.start + 60, 24 * 60 - 1);
      WriteTimes(db, e.id, *e.start, *e.end);
    }
  }
  return day;
}

std::vector<std::pair<Date, std::vector<CalendarEvent>>> EventsByDay(SQLite::Database& db,
                                                                     int32_t athlete,
                                                                     const Date& from,
                                                                     const Date& to) {
  SQLite::Statement q(db, fmt::format("SELECT {} FROM tblEvents WHERE (Athlete = ? OR Type = 2) "
                                      "AND substr(DATE, 1, 10) BETWEEN ? AND ? "
                                      "ORDER BY substr(DATE, 1, 10), StartTime",
                                      kEventColumns));
  SQLite::bind(q, athlete, from.Iso(), to.Iso());
  std::vector<std::pair<Date, std::vector<CalendarEvent>>> days;
  while (q.executeStep()) {
    CalendarEvent e = EventOf(q);
    if (days.empty() || days.back().first != e.date) days.push_back({e.date, {}});
    days.back().second.push_back(std::move(e));
  }
  return days;
}

AddStart StartAdd(AppState& state, int type, const Date& date, std::optional<TimeSpan> chosen) {
  const TimeSpan span = chosen ? *chosen : DefaultTimes(*state.gDb, state.gAthlete, type);
  AddStart add{AddChoice::kNew, {0, type, date, ClockText(span.start), ClockText(span.end), {}}};
  const auto existing = SameStart(state, type, date, span.start, 0);
  if (!existing) return add;
  const std::string t(EventTypeText(type));
  const std::string question =
      std::string(kAlreadyA) + t + std::string(kRecordFor) + DayText(date, state) +
      std::string(kAt) + ClockText(span.start) + std::string(kCrLf) + std::string(kIfYouAdd) + t +
      std::string(kIncremented) + std::string(kCrLf) + std::string(kAdjustThose) +
      std::string(kCrLf) + std::string(kDoYouWish) + t + std::string(kRecordQ) +
      std::string(kCrLf) + std::string(kYesAdd) + t + std::string(kCrLf) + std::string(kNoEdit) +
      std::string(kCrLf) + std::string(kCancelNothing);
  switch (state.io->Message(question, box::kYesNoCancel + box::kQuestion, kAddTitle)) {
    case Answer::kYes:
      add.form.start = ClockText(span.start + kQuarter);
      add.form.end = ClockText(span.end + kQuarter);
      return add;
    case Answer::kNo: {
      const CalendarEvent& e = *existing;
      add.choice = AddChoice::kEditExisting;
      add.form = {e.id, e.type, e.date, e.start ? ClockText(*e.start) : "",
                  e.end ? ClockText(*e.end) : "", e.comment};
      return add;
    }
    default:
      return {AddChoice::kCancelled, add.form};
  }
}

std::optional<int> TypedEventStart(UserIo& io, std::string_view typed) {
  std::string message;
  const auto start = TypedMinutes(Trim(typed).empty() ? kFirstStart : typed, &message);
  if (!start) io.Tell(message.empty() ? kInvalidStart : message);
  return start;
}

std::optional<int> TypedEventEnd(UserIo& io, std::string_view typed, int start) {
  std::string message;
  const auto end = TypedMinutes(Trim(typed).empty() ? kFirstEnd : typed, &message);
  if (!end) {
    io.Tell(message.empty() ? kInvalidEnd : message);
  } else if (*end < start) {
    io.Tell(kEndBeforeStart);
    return std::nullopt;
  }
  return end;
}

EventSaveResult SaveEvent(AppState& state, const CalendarEventForm& form) {
  UserIo& io = *state.io;
  const auto start = TypedEventStart(io, form.start);
  if (!start) return {false, EventFocus::kStart, form.id};
  return RunTrapped(
      state, "frmKVLEVENT.cmdOK_Click",
      [&]() -> EventSaveResult {
        SQLite::Database& db = *state.gDb;
        if (SameStart(state, form.type, form.date, *start, form.id)) {
          io.Tell(kTwoEvents);
          return {false, EventFocus::kStart, form.id};
        }
        const auto end = TypedEventEnd(io, form.end, *start);
        if (!end) return {false, EventFocus::kEnd, form.id};
        SQLite::Transaction transaction(db);
        int64_t id = form.id;
        int32_t owner = state.gAthlete;
        if (id != 0) {
          SQLite::Statement was(db, "SELECT Athlete FROM tblEvents WHERE ID = ?");
          was.bind(1, id);
          if (!was.executeStep()) {
            io.Tell(kNotFound);
            return {false, EventFocus::kNone, id};
          }
          // A meet's row keeps the meet's key, never the swimmer's.
          if (form.type == kEventMeet) owner = was.getColumn(0).getInt();
          SQLite::Statement w(db,
                              "UPDATE tblEvents SET DATE = ?, StartTime = ?, EndTime = ?, "
                              "Comment = ?, Type = ?, Athlete = ? WHERE ID = ?");
          SQLite::bind(w, form.date.Iso(), StoredTime(*start), StoredTime(*end),
                       form.comment.substr(0, 80), form.type, owner, id);
          w.exec();
        } else {
          SQLite::Statement w(db,
                              "INSERT INTO tblEvents (DATE, StartTime, EndTime, Comment, Type, "
                              "Athlete) VALUES (?, ?, ?, ?, ?, ?)");
          SQLite::bind(w, form.date.Iso(), StoredTime(*start), StoredTime(*end),
                       form.comment.substr(0, 80), form.type, owner);
          w.exec();
          id = db.getLastInsertRowid();
        }
        if (form.type == kEventMeet) {
          SQLite::Statement remarks(db, "UPDATE MEET SET Remarks = ? WHERE Meet = ?");
          SQLite::bind(remarks, form.comment.substr(0, 80), owner);
          remarks.exec();
        }
        transaction.commit();
        return {true, EventFocus::kNone, id};
      },
      EventSaveResult{false, EventFocus::kNone, form.id});
}

bool MoveEvent(AppState& state, int64_t id, int start, int end) {
  return RunTrapped(state, "frmCalendar.DayView_Moved", [&] {
    SQLite::Database& db = *state.gDb;
    SQLite::Statement q(db, "SELECT ID FROM tblEvents WHERE ID = ?");
    q.bind(1, id);
    if (!q.executeStep()) {
      state.io->Tell(kNotFound);
      return false;
    }
    start = SnapToQuarter(start);
    end = std::max(SnapToQuarter(end), start + kQuarter);
    WriteTimes(db, id, start, end);
    return true;
  });
}

bool DeleteEvent(AppState& state, const CalendarEvent& event) {
  const std::string question =
      std::string(kEventWord) + std::string(EventTypeText(event.type)) + std::string(kOnWord) +
      DayText(event.date, state) + std::string(kStartingAt) +
      (event.start ? ClockText(*event.start) : "") + std::string(kCrLf) +
      std::string(kCommentWord) + event.comment + std::string(kCrLf) + std::string(kSureRemove);
  if (!state.io->AskYesNo(question, kDeleteEventTitle)) return false;
  if (event.type == kEventMeet &&
      !state.io->AskYesNo(std::string(kRemoveResultsFrom) + std::string(kCrLf) + event.comment +
                              std::string(kCrLf) + std::string(kStillDeleteMeet),
                          kDeleteMeetTitle)) {
    return false;
  }
  return RunTrapped(state, "frmCalendar.DeleteEvent", [&] {
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    auto run = [&db](const char* sql, int64_t key) {
      SQLite::Statement s(db, sql);
      s.bind(1, key);
      s.exec();
    };
    if (event.type == kEventMeet) {
      SQLite::Statement found(db, "SELECT 1 FROM MEET WHERE Meet = ?");
      found.bind(1, event.athlete);
      if (!found.executeStep()) {
        state.io->Tell(kMeetMissing);
      } else {
        for (const char* sql :
             {"DELETE FROM MEET WHERE Meet = ?", "DELETE FROM RESULT WHERE MEET = ?",
              "DELETE FROM ENTRY WHERE Meet = ?", "DELETE FROM MTEVENT WHERE Meet = ?",
              "DELETE FROM MTEVENTE WHERE Meet = ?",
              "DELETE FROM tblEvents WHERE Type = 2 AND Athlete = ?"}) {
          run(sql, event.athlete);
        }
      }
    } else if (event.type == kEventSwim || event.type == kEventDry) {
      // The handheld's workout tables exist only in files that had them.
      for (const char* table : {"tblSwimSet", "tblWOHeader"}) {
        if (TableExists(db, table)) run(fmt::format("DELETE FROM {} WHERE ID = ?", table).c_str(), event.id);
      }
    } else if (event.type == kEventHealth) {
      run("DELETE FROM tblHealth WHERE ID = ?", event.id);
    }
    run("DELETE FROM tblEvents WHERE ID = ?", event.id);
    transaction.commit();
    return true;
  });
}

std::string MonthTitle(int year, int month) {
  static constexpr std::array<const char*, 12> kMonths = {
      "January", "February", "March",     "April",   "May",      "June",
      "July",    "August",   "September", "October", "November", "December"};
  return fmt::format("{} {}", kMonths[(month - 1) % 12], year);
}

void FillCalendarReport(AppState& state, int32_t athlete, int year, int month) {
  const Date first = *Date::FromParts(year, month, 1);
  Date last = first;
  while (last.month == month) last = AddDays(last, 1);
  last = AddDays(last, -1);
  const auto days = EventsByDay(*state.gDb, athlete, first, last);
  SQLite::Database& rdb = *state.gReportDb;
  SQLite::Transaction transaction(rdb);
  rdb.exec("DELETE FROM CALENDAR");
  SQLite::Statement add(rdb,
                        "INSERT INTO CALENDAR (DATE, Type, StartTime, Comment, Start) "
                        "VALUES (?, ?, ?, ?, ?)");
  auto it = days.begin();
  for (Date d = first; d <= last; d = AddDays(d, 1)) {
    add.reset();
    add.clearBindings();
    add.bind(1, d.Iso());
    if (it == days.end() || it->first != d) {
      add.exec();
      continue;
    }
    for (const CalendarEvent& e : it->second) {
      add.reset();
      add.bind(1, d.Iso());
      add.bind(2, std::string(EventTypeText(e.type)));
      if (e.start) {
        add.bind(3, StoredTime(*e.start));
        add.bind(5, ClockText(*e.start));
      } else {
        add.bind(3);
        add.bind(5, "");
      }
      add.bind(4, e.comment.substr(0, 80));
      add.exec();
    }
    ++it;
  }
  transaction.commit();
  SetReportParameters(state, std::string(kCalendarFor) + MonthTitle(year, month), {});
}

}  // namespace kvlr
