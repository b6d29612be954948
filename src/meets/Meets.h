#pragma once
// Meets (MEET rows): the list of frmMeets with its filters and sorts, the card's checks and
// save with the calendar rows of the meet, removal, merging, the meet choice lists, and the
// checks before the entries or results of a meet open.
//
// Dates are calendar dates (ISO in the store); a meet's Course is one of Y, YO, S, SO, L, LO
// and only its first letter is compared. Store failures are reported through ReportError
// under the names given below; the routine then comes back as failed (false, empty list).

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

struct Meet {
  int32_t meet = 0;
  std::string mname;
  std::optional<Date> start;
  std::optional<Date> end;
  std::optional<Date> age_up;
  std::optional<Date> since;
  std::string course;
  std::string location;
  std::string remarks;
  std::string type;
};

// The first letter of a course ('Y', 'S', 'L'), upper-cased; 0 for an empty course.
char CourseLetter(std::string_view course);
// "Yards", "SC Meters", "LC Meters" for the first letter; "" otherwise.
std::string CourseWord(std::string_view course);
// "MMM DD, YYYY" ("Nov 02, 2026").
std::string MeetLongDate(const Date& date);
// ShownDate, "" for no date.
std::string MeetShortDate(const std::optional<Date>& date, int date_order);

enum class MeetSort { kName, kCourseNewest, kStartNewest, kStartOldest };

struct MeetFilter {
  char course = 0;            // 'Y', 'S', 'L'; 0 for every course
  std::optional<Date> since;  // only meets starting on or after
  std::string type;           // meet type; "" for every type
  MeetSort sort = MeetSort::kStartNewest;
};

// The filter frmMeets starts with: the default favourite's type and course.
MeetFilter FavoriteMeetFilter(const AppState& state);
// The caption of a sort: "Meet Name", "Course (newest first)", "Start Date (newest first)"...
std::string SortCaption(MeetSort sort);

// The meets of frmMeets: key not 0, no goal meets (Type "G"), no pseudo-meets (start
// 01/01/1990), then the filter's terms, in the filter's sort. Store failures throw.
std::vector<Meet> ListMeets(SQLite::Database& db, const MeetFilter& filter);
// One meet by key; nullopt when there is no such row. Store failures throw.
std::optional<Meet> LoadMeet(SQLite::Database& db, int32_t meet);

// The row a typed letter jumps to: the first of `rows` whose name is not below the letter
// (case ignored); -1 when none.
int FirstMeetFrom(const std::vector<Meet>& rows, char letter);

// The card as typed: dates in the regional order of state.gDateOrder, "" when left empty.
struct MeetForm {
  int32_t meet = 0;  // 0 for a new meet
  std::string mname;
  std::string course;  // value of the course list ("Y", "YO", ...), "" when none chosen
  std::string start;
  std::string end;
  std::string age_up;
  std::string since;
  std::string location;
  std::string remarks;
  std::string type;
};

// The card's checks in their order: the words to show, "" when the form passes. Dates
// other than Start and Since that aren't dates are taken as empty.
std::string CheckMeetForm(const MeetForm& form, int date_order);

// The start values of a new meet's card: AgeUp from the options MtAgeup (1: the start)
// and MtDate; an empty card otherwise.
MeetForm NewMeetForm(AppState& state);
// The card of a stored meet.
MeetForm MeetFormOf(const Meet& meet, int date_order);

enum class MeetSaveStatus { kSaved, kRefused, kDeclined, kMissing, kFailed };
struct MeetSaveOutcome {
  MeetSaveStatus status = MeetSaveStatus::kFailed;
  int32_t meet = 0;  // the key of the saved meet
};

// Saves the card: the checks (told to the user, kRefused); a name and start that another
// meet has (told, kRefused); on an edit that changes the course's first letter the
// question (No: kDeclined) and then every RESULT row of the meet gets the new letter; an
// edit whose row has gone is told "Error trying to find Meet record." (kMissing). The meet
// row and its calendar rows are written in one transaction ("frmMeetMaint.SaveMeet").
MeetSaveOutcome SaveMeet(AppState& state, const MeetForm& form);

// The calendar rows of a meet (tblEvents Type 2, Athlete = the meet's key): the old rows
// of the meet go, then one row per day from Start to End with the current swimmer's
// meet times (StartMeet, EndMeet; 05:00 and 21:00 when not set) and the meet's Remarks as
// the comment. Store failures throw.
void WriteMeetCalendar(AppState& state, const Meet& meet);

// `DeleteOneMeet`: asks (title "Remove Meet"), then removes the meet's results, entries,
// both event lists, calendar rows and the meet row in one transaction. Nothing is re-ranked.
// True when removed.
bool DeleteOneMeet(AppState& state, const Meet& meet);

// The words that refuse merging `from` into `to`, "" when allowed: other course letter, or
// starts more than one day apart.
std::string CheckMerge(const Meet& from, const Meet& to);
// The question before a merge.
std::string MergeQuestion(const Meet& from, const Meet& to, int date_order);
// `MergeMeet`: moves individual results and entries, both event lists to `to` and removes
// the `from` row, all in one transaction; relay rows stay on the old key. On a failure
// nothing changes, "Merge Failed." is told and false comes back ("basUtil.MergeMeet").
bool MergeMeet(AppState& state, int32_t from, int32_t to);
// The merge as the grid's drop starts it: the checks (told), the question, MergeMeet.
bool MergeMeetsAsked(AppState& state, const Meet& from, const Meet& to);

// `LoadMeetArray`: the meet choice list. course_index 0 is all courses (no goal meets), 1
// to 3 the course letters in CourseLetters order; newest first. The first entry is "All
// Meets" (key 0), then "dd-Mmm-yy  name"; with no meets the one entry "No Meets Available"
// (key 0). A failure is reported ("basUtil.LoadMeetArray") and gives the empty-list form.
struct MeetArrayItem {
  int32_t meet = 0;
  std::string text;
};
std::vector<MeetArrayItem> LoadMeetArray(AppState& state, int course_index);

// What opening a side of a meet needs first.
enum class MeetOpen { kOpen, kRefused, kOpenEvents };
// Entries: refused (and told) when the meet has no entry events.
MeetOpen CheckOpenEntries(AppState& state, int32_t meet);
// Results: with no result events but entry events, asks to copy them (Yes copies those with
// stroke and distance, kOpen; No gives kOpenEvents); with neither, told and refused.
MeetOpen CheckOpenResults(AppState& state, int32_t meet);

}  // namespace kvlr
