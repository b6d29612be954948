#include "meets/Meets.h"

#include <array>
#include <cctype>
#include <cstdlib>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "meets/MeetTexts.h"

namespace kvlr {
namespace {

using namespace meettxt;

constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

constexpr const char* kMeetColumns =
    "Meet, MName, Start, End, AgeUp, Since, Course, Location, Remarks, Type";

Meet ReadMeet(SQLite::Statement& q) {
  Meet m;
  m.meet = q.getColumn(0).getInt();
  m.mname = TextOf(q.getColumn(1));
  m.start = DateOf(q.getColumn(2));
  m.end = DateOf(q.getColumn(3));
  m.age_up = DateOf(q.getColumn(4));
  m.since = DateOf(q.getColumn(5));
  m.course = TextOf(q.getColumn(6));
  m.location = TextOf(q.getColumn(7));
  m.remarks = TextOf(q.getColumn(8));
  m.type = TextOf(q.getColumn(9));
  return m;
}

void BindDate(SQLite::Statement& s, int index, const std::optional<Date>& date) {
  if (date)
    s.bind(index, date->Iso());
  else
    s.bind(index);
}

const char* OrderBy(MeetSort sort) {
  switch (sort) {
    case MeetSort::kName:
      return "MName, Meet";
    case MeetSort::kCourseNewest:
      return "Course, Start DESC, Meet";
    case MeetSort::kStartOldest:
      return "Start, Meet";
    case MeetSort::kStartNewest:
      break;
  }
  return "Start DESC, Meet";
}

std::optional<Date> FormDate(const std::string& text, int date_order) {
  const std::string t = Trim(text);
  if (t.empty()) return std::nullopt;
  return TypedDate(t, date_order);
}

// A time of the current swimmer's meet band as the calendar keeps it, or the fallback.
std::string SwimmerMeetTime(AppState& state, const char* column, const char* fallback) {
  if (state.gAthlete != 0) {
    SQLite::Statement q(*state.gDb,
                        fmt::format("SELECT {} FROM Athlete WHERE Athlete = ?", column));
    q.bind(1, state.gAthlete);
    if (q.executeStep() && !q.getColumn(0).isNull()) {
      const std::string stored = q.getColumn(0).getString();
      if (!Trim(stored).empty()) return stored;
    }
  }
  return fallback;
}

bool HasRow(SQLite::Database& db, const char* sql, int32_t meet) {
  SQLite::Statement q(db, sql);
  q.bind(1, meet);
  return q.executeStep();
}

}  // namespace

char CourseLetter(std::string_view course) {
  if (course.empty()) return 0;
  return static_cast<char>(std::toupper(static_cast<unsigned char>(course.front())));
}

std::string CourseWord(std::string_view course) {
  switch (CourseLetter(course)) {
    case 'Y':
      return "Yards";
    case 'S':
      return "SC Meters";
    case 'L':
      return "LC Meters";
    default:
      return "";
  }
}

std::string MeetLongDate(const Date& date) {
  return fmt::format("{} {:02}, {:04}", kMonths.at(static_cast<size_t>(date.month - 1)), date.day,
                     date.year);
}

std::string MeetShortDate(const std::optional<Date>& date, int date_order) {
  if (!date) return "";
  return ShownDate(*date, date_order);
}

MeetFilter FavoriteMeetFilter(const AppState& state) {
  MeetFilter filter;
  filter.type = Trim(state.gFavoriteMeetType);
  const char letter = CourseLetter(Trim(state.gFavoriteCourse));
  if (CourseLetters.find(letter) != std::string_view::npos && letter != 0) filter.course = letter;
  return filter;
}

std::string SortCaption(MeetSort sort) {
  switch (sort) {
    case MeetSort::kName:
      return std::string(kSortName);
    case MeetSort::kCourseNewest:
      return std::string(kSortCourse);
    case MeetSort::kStartNewest:
      return std::string(kSortStart) + std::string(kNewestFirst);
    case MeetSort::kStartOldest:
      return std::string(kSortStart) + std::string(kOldestFirst);
  }
  return "";
}

std::vector<Meet> ListMeets(SQLite::Database& db, const MeetFilter& filter) {
  std::string sql =
      fmt::format("SELECT {} FROM MEET WHERE Meet <> 0 AND IFNULL(Type, '') <> 'G' AND Start <> ?",
                  kMeetColumns);
  if (filter.course != 0) sql += " AND substr(Course, 1, 1) = ? COLLATE NOCASE";
  if (filter.since) sql += " AND Start >= ?";
  if (!filter.type.empty()) sql += " AND Type = ?";
  sql += " ORDER BY ";
  sql += OrderBy(filter.sort);
  SQLite::Statement q(db, sql);
  int i = 1;
  q.bind(i++, kPseudoMeetStart.Iso());
  if (filter.course != 0) q.bind(i++, std::string(1, filter.course));
  if (filter.since) q.bind(i++, filter.since->Iso());
  if (!filter.type.empty()) q.bind(i++, filter.type);
  std::vector<Meet> rows;
  while (q.executeStep()) rows.push_back(ReadMeet(q));
  return rows;
}

std::optional<Meet> LoadMeet(SQLite::Database& db, int32_t meet) {
  SQLite::Statement q(db, fmt::format("SELECT {} FROM MEET WHERE Meet = ?", kMeetColumns));
  q.bind(1, meet);
  if (!q.executeStep()) return std::nullopt;
  return ReadMeet(q);
}

int FirstMeetFrom(const std::vector<Meet>& rows, char letter) {
  const std::string key = UCase(std::string(1, letter));
  for (size_t i = 0; i < rows.size(); ++i) {
    if (UCase(rows[i].mname) >= key) return static_cast<int>(i);
  }
  return -1;
}

std::string CheckMeetForm(const MeetForm& form, int date_order) {
  if (Trim(form.mname).empty()) return std::string(kMeetNameRequired);
  if (CourseLetters.find(CourseLetter(Trim(form.course))) == std::string_view::npos ||
      Trim(form.course).empty())
    return std::string(kSelectCourse);
  if (!FormDate(form.start, date_order)) return std::string(kStartRequired);
  if (!Trim(form.since).empty() && !FormDate(form.since, date_order))
    return std::string(kInvalidSince);
  return "";
}

MeetForm NewMeetForm(AppState& state) {
  MeetForm form;
  SQLite::Statement q(*state.gDb, "SELECT MtAgeUp, MtDate FROM OPTIONS LIMIT 1");
  if (q.executeStep() && q.getColumn(0).getInt() != 1) {
    const auto date = DateOf(q.getColumn(1));
    if (date && *date != state.gNullDate) form.age_up = MeetShortDate(date, state.gDateOrder);
  }
  return form;
}

MeetForm MeetFormOf(const Meet& meet, int date_order) {
  MeetForm form;
  form.meet = meet.meet;
  form.mname = meet.mname;
  form.course = meet.course;
  form.start = MeetShortDate(meet.start, date_order);
  form.end = MeetShortDate(meet.end, date_order);
  form.age_up = MeetShortDate(meet.age_up, date_order);
  form.since = MeetShortDate(meet.since, date_order);
  form.location = meet.location;
  form.remarks = meet.remarks;
  form.type = meet.type;
  return form;
}

void WriteMeetCalendar(AppState& state, const Meet& meet) {
  SQLite::Database& db = *state.gDb;
  SQLite::Statement drop(db, "DELETE FROM tblEvents WHERE Type = 2 AND Athlete = ?");
  drop.bind(1, meet.meet);
  drop.exec();
  if (!meet.start) return;
  const std::string start_time = SwimmerMeetTime(state, "StartMeet", "1899-12-30 05:00:00");
  const std::string end_time = SwimmerMeetTime(state, "EndMeet", "1899-12-30 21:00:00");
  const std::string& comment = meet.remarks;
  const long days = meet.end && *meet.end > *meet.start ? DaysBetween(*meet.start, *meet.end) : 0;
  SQLite::Statement add(db,
                        "INSERT INTO tblEvents (Athlete, DATE, Type, StartTime, EndTime, Comment) "
                        "VALUES (?, ?, 2, ?, ?, ?)");
  for (long d = 0; d <= days; ++d) {
    SQLite::bind(add, meet.meet, AddDays(*meet.start, d).Iso(), start_time, end_time, comment);
    add.exec();
    add.reset();
  }
}

MeetSaveOutcome SaveMeet(AppState& state, const MeetForm& form) {
  UserIo& io = *state.io;
  if (const std::string problem = CheckMeetForm(form, state.gDateOrder); !problem.empty()) {
    io.Tell(problem);
    return {MeetSaveStatus::kRefused, form.meet};
  }
  Meet meet;
  meet.meet = form.meet;
  meet.mname = Trim(form.mname);
  meet.course = UCase(Trim(form.course));
  meet.start = FormDate(form.start, state.gDateOrder);
  meet.end = FormDate(form.end, state.gDateOrder);
  if (!meet.end) meet.end = meet.start;
  meet.age_up = FormDate(form.age_up, state.gDateOrder);
  meet.since = FormDate(form.since, state.gDateOrder);
  meet.location = Trim(form.location);
  meet.remarks = Trim(form.remarks);
  meet.type = Trim(form.type);
  try {
    SQLite::Database& db = *state.gDb;
    if (!meet.age_up) {
      SQLite::Statement q(db, "SELECT MtAgeUp FROM OPTIONS LIMIT 1");
      if (q.executeStep() && q.getColumn(0).getInt() == 1) meet.age_up = meet.start;
    }
    SQLite::Statement same(db, "SELECT Meet FROM MEET WHERE MName = ? AND Start = ? AND Meet <> ?");
    SQLite::bind(same, meet.mname, meet.start->Iso(), meet.meet);
    if (same.executeStep()) {
      io.Tell(std::string(kDuplicateMeet) + meet.mname + "'" + std::string(kDuplicateStart) +
              MeetLongDate(*meet.start) + std::string(kCrLf) + std::string(kNoDuplicates));
      return {MeetSaveStatus::kRefused, meet.meet};
    }
    bool course_changed = false;
    if (meet.meet != 0) {
      const auto on_file = LoadMeet(db, meet.meet);
      if (!on_file) {
        io.Tell(kMeetRecordMissing);
        return {MeetSaveStatus::kMissing, meet.meet};
      }
      course_changed = CourseLetter(on_file->course) != CourseLetter(meet.course);
      if (course_changed &&
          !io.AskYesNo(std::string(kCourseChanged) + std::string(kCrLf) +
                       std::string(kCourseChangedDistances) + std::string(kCourseChangedExample) +
                       std::string(kCrLf) + std::string(kCourseChangedQuestion))) {
        return {MeetSaveStatus::kDeclined, meet.meet};
      }
    }
    SQLite::Transaction transaction(db);
    SQLite::Statement write(
        db, meet.meet == 0
                ? "INSERT INTO MEET (MName, Start, End, AgeUp, Since, Course, Location, Remarks, "
                  "Type) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"
                : "UPDATE MEET SET MName = ?, Start = ?, End = ?, AgeUp = ?, Since = ?, "
                  "Course = ?, Location = ?, Remarks = ?, Type = ? WHERE Meet = ?");
    write.bind(1, meet.mname);
    BindDate(write, 2, meet.start);
    BindDate(write, 3, meet.end);
    BindDate(write, 4, meet.age_up);
    BindDate(write, 5, meet.since);
    write.bind(6, meet.course);
    write.bind(7, meet.location);
    write.bind(8, meet.remarks);
    write.bind(9, meet.type);
    if (meet.meet != 0) write.bind(10, meet.meet);
    write.exec();
    if (meet.meet == 0) meet.meet = static_cast<int32_t>(db.getLastInsertRowid());
    if (course_changed) {
      SQLite::Statement results(db, "UPDATE RESULT SET COURSE = ? WHERE MEET = ?");
      SQLite::bind(results, std::string(1, CourseLetter(meet.course)), meet.meet);
      results.exec();
    }
    WriteMeetCalendar(state, meet);
    transaction.commit();
    return {MeetSaveStatus::kSaved, meet.meet};
  } catch (const std::exception& e) {
    ReportError(state, "frmMeetMaint.SaveMeet", e);
    return {MeetSaveStatus::kFailed, form.meet};
  }
}

bool DeleteOneMeet(AppState& state, const Meet& meet) {
  const std::string question = std::string(kRemoveMeetWarning) + std::string(kRemoveMeetAll) +
                               std::string(kCrLf) + std::string(kCrLf) +
                               std::string(kRemoveMeetQuestion) + meet.mname + " on " +
                               MeetShortDate(meet.start, state.gDateOrder) + "?";
  if (!state.io->AskYesNo(question, kRemoveMeetTitle)) return false;
  return RunTrapped(state, ".DeleteOneMeet", [&] {
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    for (const char* sql :
         {"DELETE FROM RESULT WHERE MEET = ?", "DELETE FROM ENTRY WHERE Meet = ?",
          "DELETE FROM MTEVENT WHERE Meet = ?", "DELETE FROM MTEVENTE WHERE Meet = ?",
          "DELETE FROM tblEvents WHERE Type = 2 AND Athlete = ?",
          "DELETE FROM MEET WHERE Meet = ?"}) {
      SQLite::Statement s(db, sql);
      s.bind(1, meet.meet);
      s.exec();
    }
    transaction.commit();
    return true;
  });
}

std::string CheckMerge(const Meet& from, const Meet& to) {
  if (CourseLetter(from.course) != CourseLetter(to.course))
    return std::string(kMergeDifferentCourses);
  if (!from.start || !to.start || std::labs(DaysBetween(*from.start, *to.start)) > 1)
    return std::string(kMergeTooFarApart);
  return "";
}

std::string MergeQuestion(const Meet& from, const Meet& to, int date_order) {
  return std::string(kMergeNotReversible) + std::string(kCrLf) + std::string(kCrLf) +
         std::string(kMergeQuestion) + from.mname + " " + MeetShortDate(from.start, date_order) +
         std::string(kCrLf) + std::string(kMergeInto) + to.mname + " " +
         MeetShortDate(to.start, date_order);
}

bool MergeMeet(AppState& state, int32_t from, int32_t to) {
  try {
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    for (const char* sql : {"UPDATE RESULT SET MEET = ? WHERE MEET = ? AND I_R = 'I'",
                            "UPDATE ENTRY SET Meet = ? WHERE Meet = ? AND I_R = 'I'",
                            "UPDATE MTEVENT SET Meet = ? WHERE Meet = ?",
                            "UPDATE MTEVENTE SET Meet = ? WHERE Meet = ?"}) {
      SQLite::Statement s(db, sql);
      SQLite::bind(s, to, from);
      s.exec();
    }
    SQLite::Statement drop(db, "DELETE FROM MEET WHERE Meet = ?");
    drop.bind(1, from);
    drop.exec();
    transaction.commit();
    return true;
  } catch (const std::exception& e) {
    // The transaction has rolled back; the log keeps why.
    ReportError(state, "basUtil.MergeMeet", e, false);
    state.io->Tell(kMergeFailed);
    return false;
  }
}

bool MergeMeetsAsked(AppState& state, const Meet& from, const Meet& to) {
  if (from.meet == to.meet) return false;
  if (const std::string refusal = CheckMerge(from, to); !refusal.empty()) {
    state.io->Tell(refusal);
    return false;
  }
  if (!state.io->AskYesNo(MergeQuestion(from, to, state.gDateOrder))) return false;
  return MergeMeet(state, from.meet, to.meet);
}

std::vector<MeetArrayItem> LoadMeetArray(AppState& state, int course_index) {
  std::vector<MeetArrayItem> list;
  try {
    SQLite::Database& db = *state.gDb;
    const bool all = course_index < 1 || course_index > 3;
    SQLite::Statement q(
        db, all ? "SELECT Meet, MName, Start FROM MEET WHERE IFNULL(Type, '') <> 'G' AND "
                  "Start <> ? ORDER BY Start DESC"
                : "SELECT Meet, MName, Start FROM MEET WHERE substr(Course, 1, 1) = ? COLLATE "
                  "NOCASE AND Start <> ? ORDER BY Start DESC");
    int i = 1;
    if (!all) q.bind(i++, std::string(1, CourseLetters[static_cast<size_t>(course_index - 1)]));
    q.bind(i, kPseudoMeetStart.Iso());
    list.push_back({0, std::string(kAllMeets)});
    while (q.executeStep()) {
      const auto start = DateOf(q.getColumn(2));
      list.push_back(
          {q.getColumn(0).getInt(), (start ? ShownDate(*start, state.gDateOrder) : std::string()) +
                                        "  " + TextOf(q.getColumn(1))});
    }
  } catch (const std::exception& e) {
    ReportError(state, "basUtil.LoadMeetArray", e);
    list.clear();
  }
  if (list.size() <= 1) return {{0, std::string(kNoMeetsAvailable)}};
  return list;
}

MeetOpen CheckOpenEntries(AppState& state, int32_t meet) {
  return RunTrapped(
      state, "frmMeets.OpenEntries",
      [&] {
        if (HasRow(*state.gDb, "SELECT 1 FROM MTEVENTE WHERE Meet = ?", meet))
          return MeetOpen::kOpen;
        state.io->Tell(std::string(kNoEventsForMeet) + std::string(kCrLf) +
                       std::string(kNeedEventForEntries) + std::string(kCrLf) +
                       std::string(kSelectEventsFromMenu));
        return MeetOpen::kRefused;
      },
      MeetOpen::kRefused);
}

MeetOpen CheckOpenResults(AppState& state, int32_t meet) {
  return RunTrapped(
      state, "frmMeets.OpenResults",
      [&] {
        SQLite::Database& db = *state.gDb;
        if (HasRow(db, "SELECT 1 FROM MTEVENT WHERE Meet = ?", meet)) return MeetOpen::kOpen;
        if (HasRow(db, "SELECT 1 FROM MTEVENTE WHERE Meet = ?", meet)) {
          if (!state.io->AskYesNo(std::string(kNoResultEvents) + std::string(kCrLf) +
                                  std::string(kCopyEntryEventsOver) + std::string(kCrLf) +
                                  std::string(kNoSendsToEvents)))
            return MeetOpen::kOpenEvents;
          SQLite::Transaction transaction(db);
          SQLite::Statement copy(
              db,
              "INSERT INTO MTEVENT (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, Stroke, Sex, I_R) "
              "SELECT Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, Stroke, Sex, I_R FROM MTEVENTE "
              "WHERE Meet = ? AND Stroke > 0 AND Distance > 0 ORDER BY MtEvent");
          copy.bind(1, meet);
          copy.exec();
          transaction.commit();
          return MeetOpen::kOpen;
        }
        state.io->Tell(std::string(kNoEventsForMeet) + std::string(kCrLf) +
                       std::string(kNeedEventForResults) + std::string(kCrLf) +
                       std::string(kSelectEventsFromMenu));
        return MeetOpen::kRefused;
      },
      MeetOpen::kRefused);
}

}  // namespace kvlr
