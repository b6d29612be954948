#include "meets/MeetEvents.h"

#include <cctype>

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <SQLiteCpp/VariadicBind.h>
#include <fmt/format.h>

#include "core/Columns.h"
#include "core/ErrorHandler.h"
#include "core/SwimCodes.h"
#include "core/VbRules.h"
#include "meets/MeetTexts.h"

namespace kvlr {
namespace {

using namespace meettxt;

constexpr const char* kEventColumns =
    "Meet, MtEv, MtEvX, Lo_Hi, Course, MtEvent, Distance, Stroke, Sex, I_R";

MeetEvent ReadEvent(SQLite::Statement& q) {
  MeetEvent e;
  e.meet = q.getColumn(0).getInt();
  e.mtev = static_cast<int16_t>(q.getColumn(1).getInt());
  e.mtevx = Trim(TextOf(q.getColumn(2)));
  e.lo_hi = static_cast<int16_t>(q.getColumn(3).getInt());
  e.course = TextOf(q.getColumn(4));
  e.mt_event = q.getColumn(5).getInt();
  e.distance = static_cast<int16_t>(q.getColumn(6).getInt());
  e.stroke = static_cast<int16_t>(q.getColumn(7).getInt());
  e.sex = TextOf(q.getColumn(8));
  e.i_r = TextOf(q.getColumn(9));
  return e;
}

const char* OrderBy(EventSort sort) {
  switch (sort) {
    case EventSort::kSexMenFirst:
      return "Sex DESC, MtEv, MtEvX";
    case EventSort::kSexWomenLast:
      return "Sex, MtEv, MtEvX";
    case EventSort::kDistance:
      return "Distance, Stroke, MtEv, MtEvX";
    case EventSort::kStroke:
      return "Stroke, Distance, MtEv, MtEvX";
    case EventSort::kAge:
      return "Lo_Hi, MtEv, MtEvX";
    case EventSort::kNumber:
      break;
  }
  return "MtEv, MtEvX";
}

bool Exists(SQLite::Database& db, const std::string& sql, int32_t key) {
  SQLite::Statement q(db, sql);
  q.bind(1, key);
  return q.executeStep();
}

std::string MeetCourseLetter(SQLite::Database& db, int32_t meet) {
  const auto m = LoadMeet(db, meet);
  const char letter = m ? CourseLetter(m->course) : 0;
  return letter == 0 ? std::string() : std::string(1, letter);
}

// The events of the other number that race the same (age, sex, stroke, distance, kind).
std::optional<MeetEvent> SameRace(SQLite::Database& db, EventList list, int32_t meet,
                                  const MeetEvent& e) {
  SQLite::Statement q(db, fmt::format("SELECT {} FROM {} WHERE Meet = ? AND Lo_Hi = ? AND Sex = ? "
                                      "AND Stroke = ? AND Distance = ? AND I_R = ? "
                                      "AND MtEvent <> ? ORDER BY MtEv, MtEvX",
                                      kEventColumns, EventTable(list)));
  SQLite::bind(q, meet, e.lo_hi, e.sex, e.stroke, e.distance, e.i_r, e.mt_event);
  if (!q.executeStep()) return std::nullopt;
  return ReadEvent(q);
}

std::optional<MeetEvent> NumberInUse(SQLite::Database& db, EventList list, int32_t meet,
                                     int16_t number, const std::string& letter, int32_t except) {
  SQLite::Statement q(
      db, fmt::format("SELECT {} FROM {} WHERE Meet = ? AND MtEv = ? AND {} AND MtEvent <> ?",
                      kEventColumns, EventTable(list),
                      letter.empty() ? "(MtEvX IS NULL OR MtEvX = '' OR MtEvX = ?)" : "MtEvX = ?"));
  SQLite::bind(q, meet, number, letter, except);
  if (!q.executeStep()) return std::nullopt;
  return ReadEvent(q);
}

bool SameRaceFields(const MeetEvent& a, const MeetEvent& b) {
  return a.lo_hi == b.lo_hi && UCase(a.sex) == UCase(b.sex) && a.stroke == b.stroke &&
         a.distance == b.distance && UCase(a.i_r) == UCase(b.i_r);
}

bool IsDiveCount(int distance) {
  return distance == 6 || distance == 11;
}

void InsertEvent(SQLite::Database& db, EventList list, const MeetEvent& e) {
  SQLite::Statement add(
      db, fmt::format("INSERT INTO {} (Meet, MtEv, MtEvX, Lo_Hi, Course, Distance, Stroke, Sex, "
                      "I_R) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)",
                      EventTable(list)));
  SQLite::bind(add, e.meet, e.mtev, e.mtevx, e.lo_hi, e.course, e.distance, e.stroke, e.sex, e.i_r);
  add.exec();
}

}  // namespace

const char* EventTable(EventList list) {
  return list == EventList::kResults ? "MTEVENT" : "MTEVENTE";
}

std::string EventNumberOf(const MeetEvent& event) {
  return std::to_string(event.mtev) + Trim(event.mtevx);
}

std::string AgeGroupWord(int lo_hi) {
  const int lo = lo_hi / 100;
  const int hi = lo_hi % 100;
  if (lo == 0 && hi == 99) return "Open";
  if (lo == 0) return std::to_string(hi) + " & Under";
  if (hi == 99) return std::to_string(lo) + " & Over";
  return std::to_string(lo) + " - " + std::to_string(hi);
}

bool IsDiving(int stroke) {
  return stroke == 6 || stroke == 7;
}

std::string DescribeEvent(const MeetEvent& event) {
  std::string text = SexWord(UCase(event.sex));
  text += (text.empty() ? "" : " ") + AgeGroupWord(event.lo_hi);
  text += " " + std::to_string(event.distance) + " " + StrokeText(event.stroke, UCase(event.i_r));
  return Trim(text);
}

std::string EventSortCaption(EventSort sort) {
  if (sort == EventSort::kSexMenFirst) return std::string(kMenFirst);
  if (sort == EventSort::kSexWomenLast) return std::string(kWomenLast);
  return "";
}

std::vector<MeetEvent> ListEvents(SQLite::Database& db, EventList list, int32_t meet,
                                  const EventFilter& filter) {
  std::string sql =
      fmt::format("SELECT {} FROM {} WHERE Meet = ?", kEventColumns, EventTable(list));
  if (list == EventList::kEntries) sql += " AND MtEv > 0";
  if (!filter.sex.empty()) sql += " AND Sex = ?";
  if (filter.lo_hi) sql += " AND Lo_Hi = ?";
  if (filter.stroke != 0) sql += " AND Stroke = ?";
  if (filter.distance != 0) sql += " AND Distance = ?";
  sql += " ORDER BY ";
  sql += OrderBy(filter.sort);
  SQLite::Statement q(db, sql);
  int i = 1;
  q.bind(i++, meet);
  if (!filter.sex.empty()) q.bind(i++, filter.sex);
  if (filter.lo_hi) q.bind(i++, *filter.lo_hi);
  if (filter.stroke != 0) q.bind(i++, filter.stroke);
  if (filter.distance != 0) q.bind(i++, filter.distance);
  std::vector<MeetEvent> rows;
  while (q.executeStep()) rows.push_back(ReadEvent(q));
  return rows;
}

std::optional<MeetEvent> LoadEvent(SQLite::Database& db, EventList list, int32_t mt_event) {
  SQLite::Statement q(
      db, fmt::format("SELECT {} FROM {} WHERE MtEvent = ?", kEventColumns, EventTable(list)));
  q.bind(1, mt_event);
  if (!q.executeStep()) return std::nullopt;
  return ReadEvent(q);
}

std::vector<int> LoadAgeGroups(SQLite::Database& db, int32_t meet) {
  SQLite::Statement q(db, "SELECT DISTINCT Lo_Hi FROM MTEVENTE WHERE Meet = ? ORDER BY Lo_Hi");
  q.bind(1, meet);
  std::vector<int> groups;
  while (q.executeStep()) groups.push_back(q.getColumn(0).getInt());
  return groups;
}

std::string EventListTitle(const Meet& meet, EventList list, int date_order) {
  return meet.mname + "  - " + MeetShortDate(meet.start, date_order) + " " +
         CourseWord(meet.course) +
         std::string(list == EventList::kResults ? kResultsTitle : kEntriesTitle);
}

EventNumberCheck ParseEventNumber(std::string_view text) {
  EventNumberCheck check;
  const std::string t = UCase(Trim(text));
  if (t.empty()) {
    check.message = kEventNumberRequired;
    return check;
  }
  std::string digits;
  for (char c : t) {
    const bool digit = kEventNumberDigits.find(c) != std::string_view::npos;
    const bool letter = kEventNumberLetters.find(c) != std::string_view::npos;
    if (!digit && !letter) {
      check.message = kInvalidEventNumber;
      return check;
    }
    if (digit && !check.letter.empty()) {  // a digit after the letter
      check.message = kEventNumberShape;
      return check;
    }
    if (letter && !check.letter.empty()) {
      check.message = kEventNumberShape;
      return check;
    }
    if (digit)
      digits += c;
    else
      check.letter = std::string(1, c);
  }
  if (digits.empty()) {
    check.letter.clear();
    check.message = kBadEventNumber;
    return check;
  }
  if (digits.size() > 3) {
    check.letter.clear();
    check.message = kEventNumberShape;
    return check;
  }
  const int number = std::stoi(digits);
  if (number < 1 || number > 999) {
    check.letter.clear();
    check.message = kEventNumberRange;
    return check;
  }
  check.number = static_cast<int16_t>(number);
  return check;
}

std::string CheckEventForm(const EventForm& form) {
  if (Val(form.number) <= 0) return std::string(kEventNumberPositive);
  if (form.lo == 0 && form.hi == 0) return std::string(kSetAgeRange);
  if (form.distance <= 0) return std::string(kSelectDistance);
  if (form.stroke <= 0) return std::string(kSelectStroke);
  if (Trim(form.sex).empty()) return std::string(kSelectSex);
  if (form.hi <= form.lo) return std::string(kHighAboveLow);
  return "";
}

EventSaveOutcome SaveEvent(AppState& state, EventList list, int32_t meet, const EventForm& form) {
  UserIo& io = *state.io;
  const auto refuse = [&](std::string_view words) {
    io.Tell(words);
    return EventSaveOutcome{EventSaveStatus::kRefused, form.mt_event, ""};
  };
  if (const std::string problem = CheckEventForm(form); !problem.empty()) return refuse(problem);
  const EventNumberCheck number = ParseEventNumber(form.number);
  if (!number.message.empty()) return refuse(number.message);

  EventSaveOutcome failed{EventSaveStatus::kFailed, form.mt_event, ""};
  return RunTrapped(
      state, ".SaveEvent",
      [&]() -> EventSaveOutcome {
        SQLite::Database& db = *state.gDb;
        MeetEvent event;
        event.meet = meet;
        event.mt_event = form.mt_event;
        event.mtev = number.number;
        event.mtevx = number.letter;
        event.lo_hi = static_cast<int16_t>(form.lo * 100 + form.hi);
        event.course = MeetCourseLetter(db, meet);
        event.distance = static_cast<int16_t>(form.distance);
        event.stroke = static_cast<int16_t>(form.stroke);
        event.sex = UCase(Trim(form.sex));
        event.i_r = UCase(Trim(form.i_r)).empty() ? "I" : UCase(Trim(form.i_r));

        if (const auto other =
                NumberInUse(db, list, meet, number.number, number.letter, form.mt_event)) {
          return refuse("Event Number: " + EventNumberOf(event) +
                        " already exists for:" + std::string(kCrLf) + DescribeEvent(*other));
        }
        std::optional<MeetEvent> on_file;
        if (form.mt_event != 0) {
          on_file = LoadEvent(db, list, form.mt_event);
          if (!on_file) return failed;
        }
        bool dive_change = false;
        if (on_file && list == EventList::kResults &&
            Exists(db, "SELECT 1 FROM RESULT WHERE MTEVENT = ?", form.mt_event)) {
          MeetEvent same_dives = event;
          same_dives.distance = on_file->distance;
          const bool only_dives = IsDiving(on_file->stroke) && IsDiveCount(on_file->distance) &&
                                  IsDiveCount(event.distance) &&
                                  SameRaceFields(same_dives, *on_file) &&
                                  event.mtev == on_file->mtev && event.mtevx == on_file->mtevx;
          if (!only_dives) return refuse(IsDiving(on_file->stroke) ? kDivingOnly : kEventHasResult);
          dive_change = true;
        }
        if (const auto twin = SameRace(db, list, meet, event)) {
          if (!io.AskYesNo("That event already exists as event number " + EventNumberOf(*twin) +
                           " ." + "Do you still want to add this event?"))
            return {EventSaveStatus::kDeclined, form.mt_event, ""};
        }
        bool drop_entries = false;
        if (on_file && list == EventList::kEntries && !SameRaceFields(*on_file, event) &&
            Exists(db, "SELECT DISTINCT MtEvent FROM ENTRY WHERE MtEvent = ?", form.mt_event)) {
          if (!io.AskYesNo(kRemoveEntriesQuestion))
            return {EventSaveStatus::kDeclined, form.mt_event, ""};
          drop_entries = true;
        }

        SQLite::Transaction transaction(db);
        if (drop_entries) {
          SQLite::Statement drop(db, "DELETE FROM ENTRY WHERE MtEvent = ?");
          drop.bind(1, form.mt_event);
          drop.exec();
        }
        if (!on_file) {
          InsertEvent(db, list, event);
          event.mt_event = static_cast<int32_t>(db.getLastInsertRowid());
        } else {
          SQLite::Statement edit(
              db, fmt::format("UPDATE {} SET MtEv = ?, MtEvX = ?, Lo_Hi = ?, Course = ?, "
                              "Distance = ?, Stroke = ?, Sex = ?, I_R = ? WHERE MtEvent = ?",
                              EventTable(list)));
          SQLite::bind(edit, event.mtev, event.mtevx, event.lo_hi, event.course, event.distance,
                       event.stroke, event.sex, event.i_r, event.mt_event);
          edit.exec();
        }
        if (dive_change) {
          SQLite::Statement results(db, "UPDATE RESULT SET STROKE = ? WHERE MTEVENT = ?");
          SQLite::bind(results, event.stroke, event.mt_event);
          results.exec();
        }
        transaction.commit();
        return {on_file ? EventSaveStatus::kUpdated : EventSaveStatus::kAdded, event.mt_event,
                std::string(on_file ? kEventUpdated : kNewEventAdded)};
      },
      failed);
}

std::string RemoveEventQuestion(const MeetEvent& event) {
  const std::string crlf(kCrLf);
  return "Remove Event for:" + crlf + "Event Number: " + EventNumberOf(event) + crlf +
         "Sex: " + SexWord(UCase(event.sex)) + crlf + "Age Group: " + AgeGroupWord(event.lo_hi) +
         crlf + "Event: " + std::to_string(event.distance) + " " +
         StrokeText(event.stroke, UCase(event.i_r));
}

bool DeleteOneEvent(AppState& state, EventList list, const MeetEvent& event) {
  return RunTrapped(state, ".DeleteOneEvent", [&] {
    SQLite::Database& db = *state.gDb;
    const bool results = list == EventList::kResults;
    if (Exists(db,
               results ? "SELECT 1 FROM RESULT WHERE MTEVENT = ?"
                       : "SELECT 1 FROM ENTRY WHERE MtEvent = ?",
               event.mt_event)) {
      state.io->Tell(std::string("That event has at least one ") + (results ? "Result" : "Entry") +
                     " linked to it.  Can't delete.");
      return false;
    }
    if (!state.io->AskYesNo(RemoveEventQuestion(event), kRemoveEventTitle)) return false;
    SQLite::Statement drop(db, fmt::format("DELETE FROM {} WHERE MtEvent = ?", EventTable(list)));
    drop.bind(1, event.mt_event);
    drop.exec();
    return true;
  });
}

bool CopyEntryEventsToResults(AppState& state, int32_t meet) {
  try {
    SQLite::Database& db = *state.gDb;
    SQLite::Transaction transaction(db);
    SQLite::Statement walk(db, fmt::format("SELECT {} FROM MTEVENTE WHERE MtEv > 0 AND Meet = ? "
                                           "ORDER BY MtEv, MtEvent",
                                           kEventColumns));
    walk.bind(1, meet);
    while (walk.executeStep()) InsertEvent(db, EventList::kResults, ReadEvent(walk));
    transaction.commit();
    return true;
  } catch (const std::exception& e) {
    ReportError(state, "basUtil.CopyEntryEventsToResults", e);
    return false;
  }
}

bool OfferEntryEventsForResults(AppState& state, int32_t meet) {
  const auto count = [&](const char* sql) {
    return RunTrapped(
        state, ".GetEvents", [&] { return Exists(*state.gDb, sql, meet); }, false);
  };
  if (count("SELECT 1 FROM MTEVENT WHERE Meet = ?")) return true;
  if (!count("SELECT 1 FROM MTEVENTE WHERE Meet = ? AND MtEv > 0")) return false;
  if (!state.io->AskYesNo(std::string(kNoResultEventsDefined) + std::string(kCrLf) +
                          std::string(kCopyEntryEventsQuestion)))
    return false;
  return CopyEntryEventsToResults(state, meet);
}

bool CopyEventsFromMeet(AppState& state, EventList list, int32_t target, int32_t source,
                        CopyWhich which) {
  UserIo& io = *state.io;
  if (target == source) {
    io.Tell(kCopyToItself);
    return false;
  }
  return RunTrapped(state, "frmCopyEvents.CopyEvents", [&] {
    SQLite::Database& db = *state.gDb;
    const bool entries = list == EventList::kEntries;
    if (Exists(
            db,
            entries ? "SELECT 1 FROM ENTRY WHERE Meet = ?" : "SELECT 1 FROM RESULT WHERE MEET = ?",
            target)) {
      io.Tell(entries ? kMeetHasEntries : kMeetHasResults);
      return false;
    }
    SQLite::Transaction transaction(db);
    if (Exists(db, fmt::format("SELECT 1 FROM {} WHERE Meet = ?", EventTable(list)), target)) {
      const std::string question =
          entries ? std::string("There are already Entry Events for this Meet.") +
                        std::string(kCrLf) + "Do you want to overwrite the existing events?"
                  : std::string("There are already Result Events for this Meet.") +
                        std::string(kCrLf) + "Do you want to overwrite the existing Result events?";
      if (!io.AskYesNo(question, entries ? kOverwriteEntryEventsTitle : kOverwriteEventsTitle))
        return false;
      SQLite::Statement drop(db, fmt::format("DELETE FROM {} WHERE Meet = ?", EventTable(list)));
      drop.bind(1, target);
      drop.exec();
    }
    const auto read_source = [&](EventList from) {
      std::string sql =
          fmt::format("SELECT {} FROM {} WHERE Meet = ?", kEventColumns, EventTable(from));
      if (which != CopyWhich::kAll) sql += " AND I_R = ?";
      sql += " ORDER BY MtEv, MtEvX, MtEvent";
      SQLite::Statement q(db, sql);
      q.bind(1, source);
      if (which != CopyWhich::kAll) q.bind(2, which == CopyWhich::kRelay ? "R" : "I");
      std::vector<MeetEvent> rows;
      while (q.executeStep()) rows.push_back(ReadEvent(q));
      return rows;
    };
    std::vector<MeetEvent> rows = read_source(EventList::kEntries);
    if (rows.empty()) {
      io.Tell(kNoEntryEventsFound);
      rows = read_source(EventList::kResults);
    }
    if (rows.empty()) {
      io.Tell(kSourceHasNoEvents);
      return false;  // the transaction rolls back: the target keeps its events
    }
    const std::string course = MeetCourseLetter(db, target);
    for (MeetEvent e : rows) {
      e.meet = target;
      if (!course.empty()) e.course = course;
      InsertEvent(db, list, e);
    }
    transaction.commit();
    return true;
  });
}

}  // namespace kvlr
