#pragma once
// frmResNa's logic: the results of one meet entered by swimmer, one grid row per individual
// event and, per round, a time, a DQ tick and (Final, Prelim, Semi) a place.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "core/Date.h"
#include "meets/ResultWriter.h"

namespace kvlr {

// A swimmer of the left grid.
struct ResNaSwimmer {
  int32_t athlete = 0;
  std::string last;
  std::string first;
  std::string sex;
  std::optional<Date> birth;  // nullopt when none is known
  int16_t age = 0;            // the stored age
};

// The active swimmers, by last and first name.
std::vector<ResNaSwimmer> ActiveSwimmers(SQLite::Database& db);

// An individual event of the right grid.
struct ResNaEvent {
  int32_t meet = 0;
  int32_t mt_event = 0;
  std::string mt_ev;  // number and letter
  int lo_hi = 0;
  std::string sex;
  int16_t distance = 0;
  int16_t stroke = 0;
  std::string course;
  MtEventRec Rec() const { return {meet, course, distance, stroke, mt_event, "I"}; }
};

// The meet's individual events for swimmers of `sex` (and mixed ones), by event number.
std::vector<ResNaEvent> IndividualEvents(SQLite::Database& db, int32_t meet, std::string_view sex);

// A round of the grid: its heading, F_P and whether it has a place column.
struct ResultRound {
  std::string_view heading;
  std::string_view f_p;
  bool has_place;
};
inline constexpr std::array<ResultRound, 5> kResultRounds = {{{"Final", "F", true},
                                                              {"Prelim", "P", true},
                                                              {"Semi", "I", true},
                                                              {"Swim Off", "S", false},
                                                              {"Time Trial", "T", false}}};

// The result of one event and round, as a cell shows it.
struct ResNaCell {
  bool exists = false;
  int64_t result = 0;
  int32_t score = 0;
  int nt = 0;
  std::string ex;
  std::string course;
  int16_t place = 0;
  int32_t split = 0;
};

// The row (meet, athlete, "I", event, f_p); exists false when there is none.
ResNaCell FetchResNaCell(SQLite::Database& db, int32_t meet, int32_t athlete, int32_t mt_event,
                         std::string_view f_p);

// Ex + ScoreText when the row has a score or a non-time; "" otherwise.
std::string TimeCellText(const ResNaCell& cell, int stroke);

// The meet's AgeUp date, nullopt when it isn't a date.
std::optional<Date> MeetAgeUp(SQLite::Database& db, int32_t meet);
// OPTIONS.SysAgeUp, nullopt when it isn't a date.
std::optional<Date> SystemAgeUp(SQLite::Database& db);

// The swimmer's age for the results of a meet: at the meet's age-up date (else the system's)
// when the birth date is known; else the stored age when above 0; else 0.
int16_t ResultAge(const std::optional<Date>& birth, int16_t stored_age,
                  const std::optional<Date>& meet_age_up, const std::optional<Date>& system_age_up);

// True when the meet has a relay event for swimmers of `sex` (or mixed).
bool HasRelayEvents(SQLite::Database& db, int32_t meet, std::string_view sex);

// What a typed time cell became.
struct TimeCellEdit {
  bool accepted = false;
  std::string text;  // the checked text the cell takes; the old text when refused
};

// A time typed into the cell of `event`, round `f_p`: blank over a time is refused ("Please
// use the Results Browser to Delete a Meet Result."), then CheckResultText with the event's
// stroke (its message shown), then UpdateResultScore as an individual swim. Blank over a
// blank is accepted and writes nothing.
TimeCellEdit EnterResultTime(AppState& state, const ResNaEvent& event, std::string_view f_p,
                             int32_t athlete, int16_t age, std::string_view old_text,
                             std::string_view new_text);

}  // namespace kvlr
