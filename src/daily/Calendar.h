#pragma once
// The calendar (tblEvents): marks of the month and year views, the day's time blocks, adding,
// editing, moving and deleting events. Times of day are minutes after midnight; the store
// keeps them as "1899-12-30 HH:MM:SS". Dates of events are compared on their day part.
// Questions and messages go through state.io; store failures are reported through
// ReportError and the routine comes back as failed, unless a contract says they throw.

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

enum EventType : int {
  kEventSwim = 0,
  kEventDry = 1,
  kEventMeet = 2,
  kEventGoal = 3,
  kEventMeeting = 4,
  kEventNote = 5,
  kEventHealth = 6,
  kEventVacation = 7,
  kEventMultiple = 8,  // a mark only, never stored
};

// "Swim" ... "Multiple"; "" outside 0 to 8.
std::string_view EventTypeText(int type);
// The selector's items: "All Events" then the plurals, and the type each one shows (-1 all).
struct SelectorItem {
  std::string_view text;
  int type;
};
const std::vector<SelectorItem>& EventSelector();

inline constexpr int kQuarter = 15;
inline constexpr int kDayFirstMinute = 5 * 60;   // the day view's first line
inline constexpr int kDayLastMinute = 22 * 60;   // and its last

// "08:00AM", or "08:00" on a 24-hour clock.
std::string ClockText(int minutes, bool clock24 = false);
// "1899-12-30 HH:MM:00".
std::string StoredTime(int minutes);
// Minutes of a stored time (a bare "HH:MM[:SS]" too); nullopt for "" or another shape.
std::optional<int> StoredMinutes(std::string_view stored);
// A typed time through ParseTimeOfDay; nullopt when refused, with the normaliser's own
// message (if any) in *message.
std::optional<int> TypedMinutes(std::string_view text, std::string* message = nullptr);
// The typed start of an event dialog (blank: the first slot's start), or nullopt after
// telling the user why it isn't a time.
std::optional<int> TypedEventStart(UserIo& io, std::string_view typed);
// The typed end (blank: the first slot's end), or nullopt after telling the user it isn't a
// time or lies before `start`.
std::optional<int> TypedEventEnd(UserIo& io, std::string_view typed, int start);
// `minutes` moved to the nearest quarter hour and kept within the day view.
int SnapToQuarter(int minutes);

struct CalendarEvent {
  int64_t id = 0;
  int32_t athlete = 0;  // for a Meet, the meet's key
  Date date;
  int type = kEventNote;
  std::optional<int> start;  // nullopt when the row has none
  std::optional<int> end;
  std::string comment;
};

// The swimmer's default times of a type (Athlete StartX/EndX); 5:00 AM and 9:00 PM when not
// set. Store failures throw.
struct TimeSpan {
  int start = 0;
  int end = 0;
};
TimeSpan DefaultTimes(SQLite::Database& db, int32_t athlete, int type);
// The month the year view starts with (Athlete StartMonth), 1 when not set or out of range.
int StartMonth(SQLite::Database& db, int32_t athlete);

// The mark of each day with events: its type, or kEventMultiple when it has more than one
// type. `type` -1 is "All Events" (the swimmer's own events and every meet); a type shows
// only that type (a meet of any swimmer, others the swimmer's own). Store failures throw.
std::map<Date, int> LoadEventMarks(SQLite::Database& db, int32_t athlete, int type,
                                   const Date& from, const Date& to);

// The events of one day (the swimmer's and every meet) by start time, as the day view shows
// them: missing times take the type's defaults; an end not after the start is told, set to
// an hour after the start and written back. Store failures throw.
std::vector<CalendarEvent> LoadDay(AppState& state, int32_t athlete, const Date& date);

// Days from `from` to `to` with at least one event, each with its events by start time
// (no repair, missing times as stored). Store failures throw.
std::vector<std::pair<Date, std::vector<CalendarEvent>>> EventsByDay(SQLite::Database& db,
                                                                     int32_t athlete,
                                                                     const Date& from,
                                                                     const Date& to);

// What the dialog opens with when adding.
struct CalendarEventForm {
  int64_t id = 0;  // 0 for a new event
  int type = kEventNote;
  Date date;
  std::string start;  // as typed
  std::string end;
  std::string comment;
};
enum class AddChoice { kNew, kEditExisting, kCancelled };
struct AddStart {
  AddChoice choice = AddChoice::kCancelled;
  CalendarEventForm form;
};
// The first step of adding a type other than Meet: the chosen times, else the swimmer's
// defaults; an event of that type already starting then asks (Yes: both times a quarter
// later, No: that event's form, Cancel). Store failures throw.
AddStart StartAdd(AppState& state, int type, const Date& date, std::optional<TimeSpan> chosen);

// frmKVLEVENT's OK. Which box the user must correct when refused.
enum class EventFocus { kNone, kStart, kEnd };
struct EventSaveResult {
  bool saved = false;
  EventFocus focus = EventFocus::kNone;
  int64_t id = 0;
};
// The checks in their order (told), then the row is written for the current swimmer; a Meet
// also gets its MEET Remarks from the comment.
EventSaveResult SaveEvent(AppState& state, const CalendarEventForm& form);

// A block moved or resized in the day view: times snapped to the quarter, end kept at least
// a quarter after the start, written back. False when the row has gone (told).
bool MoveEvent(AppState& state, int64_t id, int start, int end);

// Asks, then removes the event and what hangs on it: a meet with its results, entries and
// event lists (asked once more), a workout's set rows, a health row. True when removed.
bool DeleteEvent(AppState& state, const CalendarEvent& event);

// The CALENDAR report rows of a month (one row per day, more for days with more events)
// and the title "Calendar for <Month YYYY>" in RPTWINCS. Store failures throw.
void FillCalendarReport(AppState& state, int32_t athlete, int year, int month);
// "May 2024".
std::string MonthTitle(int year, int month);

}  // namespace kvlr
