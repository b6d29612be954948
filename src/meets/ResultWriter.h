#pragma once
// The writers of one result row (RESULT), as the result screens call them. A row is found
// by the unique key (Meet, Athlete, I_R, MtEvent, F_P) whose Meet is always
// state.gCurrentMeet; a row that is added takes its Meet from the event. Times are
// hundredths of a second; a non-time code (NT above 0) is stored with Score 0.
//
// Failures are reported through ReportError under "basUtil.UpdateResultScore",
// "basUtil.UpdateResultDQ" or "basUtil.UpdateResultPlace" (Retry repeats the write); the
// row is then as it was.

#include <cstdint>
#include <string>
#include <string_view>

#include "core/AppState.h"

namespace kvlr {

// The words of the writers.
inline constexpr std::string_view kCantAddResult = "Can't add result";
inline constexpr std::string_view kEnterResultBeforePlace =
    "You must enter a result before assigning a place.";

// The event of the calling screen: its current MTEVENT row.
struct MtEventRec {
  int32_t meet = 0;
  std::string course;
  int16_t distance = 0;
  int16_t stroke = 0;
  int32_t mt_event = 0;
  std::string i_r;
};

// Writes a time (nt 0) or a non-time code (nt above 0) of the row (current meet, athlete,
// i_r, event, f_p), adding the row when there is none. `typed_course`, when not empty,
// replaces the event's course for this row; a row that exists and is given a non-time keeps
// its course. Place, Age, Stroke and Distance of an existing row stay. Then, unless the
// event's I_R is "G", ranks the group (athlete, event's stroke and distance, course used)
// with AddRankForOne. A new goal row gets Rank and TRank -1. False, with "Can't add result"
// shown, when a row would be added with athlete, current meet or event 0; false on a
// failure.
bool UpdateResultScore(AppState& state, int32_t score, std::string_view typed_course, uint8_t nt,
                       std::string_view ex, std::string_view f_p, const MtEventRec& event,
                       std::string_view i_r, int16_t age, int32_t athlete);

// Sets (NT 5) or clears (NT 0) the disqualification of the row (current meet, athlete, "I",
// event, f_p); Score stays, so a released swim gets its time back. A new row takes the
// event's I_R, the typed course or the event's, and has NT 5 and Score 0 only when `dq`.
// Ranks nothing. False as UpdateResultScore.
bool UpdateResultDQ(AppState& state, std::string_view typed_course, bool dq, std::string_view f_p,
                    const MtEventRec& event, int16_t age, int32_t athlete);

// Writes the place of the row (current meet, athlete, "I", event, f_p); with no row shows
// "You must enter a result before assigning a place." and writes nothing. Ranks nothing.
void UpdateResultPlace(AppState& state, int16_t place, std::string_view f_p,
                       const MtEventRec& event, int32_t athlete);

}  // namespace kvlr
