#pragma once
// The two event lists of a meet: MTEVENT (results) and MTEVENTE (entries), with the same
// fields and unrelated keys. Listing with filters and sorts, the event card's checks and
// save, removal, and the copies between lists and meets.
//
// An event number is 1 to 999 with an optional letter (MtEvX): 5 and 5A are different
// events. Lo_Hi is low age * 100 + high age (99 open). Store failures are reported through
// ReportError under the names given below and the routine comes back as failed.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "meets/Meets.h"

namespace kvlr {

enum class EventList { kResults, kEntries };

// "MTEVENT" or "MTEVENTE".
const char* EventTable(EventList list);

struct MeetEvent {
  int32_t meet = 0;
  int16_t mtev = 0;
  std::string mtevx;
  int16_t lo_hi = 0;
  std::string course;
  int32_t mt_event = 0;
  int16_t distance = 0;
  int16_t stroke = 0;
  std::string sex;
  std::string i_r = "I";
};

// "5", "5A".
std::string EventNumberOf(const MeetEvent& event);
// The age filter's words: "Open", "10 & Under", "15 & Over", "11 - 12".
std::string AgeGroupWord(int lo_hi);
// "Female 11 - 12 100 Free": how one event is named in messages.
std::string DescribeEvent(const MeetEvent& event);
// Diving events have stroke 6 or 7 and count dives in Distance.
bool IsDiving(int stroke);

enum class EventSort { kNumber, kSexMenFirst, kSexWomenLast, kDistance, kStroke, kAge };
// "(Men First)" and "(Women Last)" for the sex sorts; "" for others.
std::string EventSortCaption(EventSort sort);

struct EventFilter {
  std::string sex;           // "M", "F", "X"; "" for all
  std::optional<int> lo_hi;  // one age group
  int stroke = 0;            // 0 for all
  int distance = 0;          // 0 for all
  EventSort sort = EventSort::kNumber;
};

// `GetEvents`: the events of a meet by the filter; the entry list leaves out events with no
// number. Store failures throw.
std::vector<MeetEvent> ListEvents(SQLite::Database& db, EventList list, int32_t meet,
                                  const EventFilter& filter);
// One event by key; nullopt when gone. Store failures throw.
std::optional<MeetEvent> LoadEvent(SQLite::Database& db, EventList list, int32_t mt_event);
// `LoadAgeGroups`: the distinct Lo_Hi of the meet's entry events, in order. Throws.
std::vector<int> LoadAgeGroups(SQLite::Database& db, int32_t meet);

// The title of frmEvent: name, "  - ", start, course word and " [Results]"/" [Entries]".
std::string EventListTitle(const Meet& meet, EventList list, int date_order);

// The number box: a number and letter, or the words that refuse the text.
struct EventNumberCheck {
  int16_t number = 0;
  std::string letter;   // "" or one upper-case letter
  std::string message;  // "" when accepted
};
EventNumberCheck ParseEventNumber(std::string_view text);

// The event card as typed.
struct EventForm {
  int32_t mt_event = 0;  // 0 for a new event
  std::string number;    // "5", "12A"
  int lo = 0;            // 0 for no low age
  int hi = 0;            // 99 for no high age
  int distance = 0;
  int stroke = 0;
  std::string sex;
  std::string i_r = "I";
};

// The save checks in their order; "" when the card passes.
std::string CheckEventForm(const EventForm& form);

enum class EventSaveStatus { kAdded, kUpdated, kRefused, kDeclined, kFailed };
struct EventSaveOutcome {
  EventSaveStatus status = EventSaveStatus::kFailed;
  int32_t mt_event = 0;
  std::string status_text;  // "New Event Added" or "Event Updated" when saved
};

// `SaveEvent` of frmEvntAdd on the list of `meet` (its course letter is the event's): the
// checks, the number box's rules and a number in use (told, kRefused); an edited result
// event with results changes only between 6 and 11 dives of a diving event (told otherwise,
// kRefused; the results then get the event's stroke); the same race under another number
// and, on the entry list, an edit of a race that has entries ask (No: kDeclined; Yes to the
// second removes those entries). Failures are reported (".SaveEvent").
EventSaveOutcome SaveEvent(AppState& state, EventList list, int32_t meet, const EventForm& form);

// The question before removing an event.
std::string RemoveEventQuestion(const MeetEvent& event);
// `DeleteOneEvent`: refused (told) while a result (or, on the entry list, an entry) uses the
// event; asks, then removes. True when removed (".DeleteOneEvent").
bool DeleteOneEvent(AppState& state, EventList list, const MeetEvent& event);

// `CopyEntryEventsToResults`: each numbered entry event of the meet, by number, gets a new
// result event with the same fields, in one transaction. True when done; a failure leaves
// the result list as it was ("basUtil.CopyEntryEventsToResults").
bool CopyEntryEventsToResults(AppState& state, int32_t meet);
// The question of frmEvent when the result list of a meet is empty and the entry list is
// not: Yes runs CopyEntryEventsToResults. True when result events exist afterwards.
bool OfferEntryEventsForResults(AppState& state, int32_t meet);

// Which events frmCopyEvents takes.
enum class CopyWhich { kAll, kIndividual, kRelay };
// frmCopyEvents: copies the events of `source` onto the `list` of `target` (the target's
// course letter). Refused (told) for the same meet and for a target with entries (entry
// list) or results (result list); existing events ask to be overwritten (No: nothing
// happens). The source's entry events are taken, else (told) its result events; with
// neither the user is told and the target keeps its events. One transaction.
bool CopyEventsFromMeet(AppState& state, EventList list, int32_t target, int32_t source,
                        CopyWhich which);

}  // namespace kvlr
