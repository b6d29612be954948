#pragma once
// frmRelayLegs' logic: a swimmer's leg of a relay of a meet, saved as a RESULT row of the
// swimmer ("L" lead-off or "N" non-lead leg) and ranked.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"

namespace kvlr {

// A relay event of the list.
struct RelayChoice {
  int32_t mt_event = 0;
  int16_t distance = 0;  // the whole relay's
  std::string text;      // "Female 11-12 200 Free Relay"
};

// The relay events of `meet` for swimmers of `sex` (and mixed ones), by event number.
std::vector<RelayChoice> RelayEvents(SQLite::Database& db, int32_t meet, std::string_view sex);

// The stroke a relay's name names (1 Free, 2 Back, 3 Breast, 4 Fly; the last word found
// wins); 0 for a medley, where the swimmer chooses.
int16_t StrokeOfRelayName(std::string_view name);

// The distance of one leg: the relay's / 4, rounded half to even.
int16_t LegDistance(int16_t relay_distance);

// Only digits, ':' and '.' may be typed into the time box.
bool TimeCharactersValid(std::string_view text);

// What the user chose on the screen. Empty texts and 0 are "not chosen".
struct RelayLegInput {
  int32_t athlete = 0;
  int32_t meet = 0;
  RelayChoice relay;
  std::string i_r;  // "L" or "N"
  std::string f_p;  // "F" or "P"
  int16_t stroke = 0;
  std::string time;
};

enum class RelayLegOutcome {
  kSaved,
  kRefused,  // a check failed; the user was told
  kKept,     // an existing leg was not overwritten
  kFailed,   // the write failed ("Error trying to save result.")
};

// The checks and the save, in the screen's order: lead-off choice, round, stroke (a warning
// only: the save goes on with stroke 0), time, then the overwrite question when the swimmer
// has a row of that event and round (whatever its I_R). The row gets the event, stroke,
// round, I_R, swimmer, meet, score, the leg distance and the first letter of the meet's
// course, and its group is ranked (AddRankForOneRelayLeg for "N", else AddRankForOne).
RelayLegOutcome SaveRelayLeg(AppState& state, const RelayLegInput& input);

}  // namespace kvlr
