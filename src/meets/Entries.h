#pragma once
// Entries by name: which events of a meet a swimmer is offered, the rows of the entry grid
// (best time, stored entry, exhibition mark) and the changes made on them.
//
// Times are hundredths of a second; an entry with no time has Misc "N" and Score 0.
// Entry events are MTEVENTE rows, never MTEVENT. Every write goes to the database at once
// through AddNewEntry/UpdateEntryScore (meets/EntryWriter.h) with state.gCurrentMeet set to
// the sheet's meet for the call and put back afterwards.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include "core/AppState.h"
#include "core/Date.h"
#include "meets/BestTimes.h"

namespace kvlr {

// The fields of MEET the entry screen reads.
struct EntryMeet {
  int32_t meet = 0;
  std::string name;
  std::optional<Date> start;
  std::optional<Date> age_up;
  std::optional<Date> since;
  std::string course;  // as stored: "Y", "YO", "S", ...

  // The course of its times: the first letter upper-cased, 'Y' when none is stored.
  char CourseLetter() const;
  // True when the course ends in "O": best times come from that course only.
  bool OneCourseOnly() const;
};

// The meet row; nullopt when there is none. Store failures throw.
std::optional<EntryMeet> ReadEntryMeet(SQLite::Database& db, int32_t meet);

struct EntrySwimmer {
  int32_t athlete = 0;
  std::string last;
  std::string first;
  std::string sex;
  std::optional<Date> birth;
  int16_t age = 0;  // the Age field
};

// Every swimmer, by "Last,First". Store failures throw.
std::vector<EntrySwimmer> LoadEntrySwimmers(SQLite::Database& db);

// The age that chooses the events: at the meet's AgeUp date when that is a date and the
// birth date gives an age above 0, else the swimmer's Age field.
int16_t EntryAge(const EntrySwimmer& swimmer, const EntryMeet& meet, const Date& null_date);

// True when the meet has at least one entry event (MTEVENTE). Store failures throw.
bool HasEntryEvents(SQLite::Database& db, int32_t meet);

struct OfferedEvent {
  int32_t mt_event = 0;
  int16_t mt_ev = 0;
  std::string mt_evx;
  int16_t lo_hi = 0;
  int16_t distance = 0;
  int16_t stroke = 0;
  std::string sex;
};

// The individual entry events of the meet whose age range (Lo_Hi: low * 100 + high) holds
// `age` and whose sex is `sex` or "X", by event number and letter. Store failures throw.
std::vector<OfferedEvent> EventsOffered(SQLite::Database& db, int32_t meet, int age,
                                        std::string_view sex);

// "  12A Mixed 11-12 100 Free": event number, sex word, age range, distance and stroke.
std::string EntryEventText(const OfferedEvent& event);

// One row of the entry grid.
struct EntryRow {
  OfferedEvent event;
  std::string best_text;   // "NT", or the time and its course letter, "'" when converted
  int32_t best_score = 0;  // the best time in the meet's course; 0 when none
  bool entered = false;    // a stored entry exists
  bool no_time = false;    // the entry has Misc "N"
  int32_t score = 0;       // the entry's Score
  bool exhib = false;      // the entry has Ex "X"

  // "Custom Time": "" with no entry, "NT" for a no-time entry, else the time.
  std::string CustomText() const;
};

// The entry grid of one meet, for one swimmer at a time. Keeps one best-time finder and
// its prepared statements for the whole grid: destroy the sheet before the database
// closes.
class EntrySheet {
 public:
  EntrySheet(AppState& state, EntryMeet meet);
  ~EntrySheet();
  EntrySheet(const EntrySheet&) = delete;
  EntrySheet& operator=(const EntrySheet&) = delete;

  const EntryMeet& Meet() const { return meet_; }
  const EntrySwimmer& Swimmer() const { return swimmer_; }
  const std::vector<EntryRow>& Rows() const { return rows_; }

  // Fills the rows for `swimmer`. False, with the failure reported under
  // "frmEntNa.LoadEntries", when the store fails; the rows are then empty.
  bool Load(const EntrySwimmer& swimmer);

  // "Entered": on adds the entry with the best time (no-time when there is none) and shows
  // "Could not add Entry." when that fails; off removes it. True if stored.
  bool SetEntered(size_t row, bool on);

  // "Exhib": marks the entry (adding it as SetEntered does when there is none) or clears
  // the mark. True if stored.
  bool SetExhib(size_t row, bool on);

  // A typed "Custom Time", checked by CheckEntryText: a refused text shows what the check
  // says, then "Invalid Entry", and false comes back with nothing written. Empty, "NT" or a
  // bare "X" store a no-time entry; a leading "X" marks the entry; the time is stored in
  // the meet's course. True if stored.
  bool TypeTime(size_t row, std::string_view text);

 private:
  // Re-reads the stored entry of the row.
  void ReadEntry(EntryRow& row);
  bool Add(EntryRow& row, std::string_view ex);

  AppState& state_;
  EntryMeet meet_;
  EntrySwimmer swimmer_;
  std::vector<EntryRow> rows_;
  BestTimeFinder finder_;
  std::unique_ptr<SQLite::Statement> entry_;
};

}  // namespace kvlr
