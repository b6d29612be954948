#pragma once
// RESULT.RANK and RESULT.TRANK: the place of a swim among the same swimmer's swims of one
// distance, stroke and course, fastest first (ties share a place and skip the next, a
// non-time is 999). RANK covers all swims; TRANK the swims of the last selection and is
// Null elsewhere. Numbering rules: meets/RankPass.h.
//
// All routines work on state.gDb with state.gUseLeadOff as it stands. Each runs in one
// transaction (a savepoint, so it nests in a caller's): a failure the user doesn't skip
// leaves the old values. A failure is reported through ReportError under the routine's
// name ("basUtil.AddRank", ...): Retry repeats the failed step, Ignore skips it and goes
// on, Abort shows the routine's message and keeps the rows done so far. A whole ranking
// also stops, keeping the rows done, when state.io->Cancelled() turns true between rows.
// Only rows whose stored value differs are written. Each returns true when every row was
// ranked; false after a failure or a stop.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

// The words of the rankings.
inline constexpr std::string_view kUpdatingRankings = " Updating Result Rankings... ";
inline constexpr std::string_view kAdjustingForSinceDate = "Adjusting for Since Date";
inline constexpr std::string_view kRankingTopTimes =
    "Ranking Top Times for Selected Dates/Meet Type.  Please Wait......";
inline constexpr std::string_view kRankAbortMessage =
    "You fastest times may not be correct.  Run Repair.";
inline constexpr std::string_view kRankForOneAbortMessage =
    "Your fastest times may not be correct.  Run Repair.";
inline constexpr std::string_view kTRankAbortMessage =
    "Your Fastest Relays may not be ordered correctly.  Run repair.";

// The selection of AddTRank. A date equal to state.gNullDate sets no bound; both bounds
// are included (meet start dates).
struct TRankSelection {
  Date since = kNullDate;
  Date until = kNullDate;
  std::string meet_type{};  // blank: every type
  int32_t athlete = 0;      // 0: every swimmer
  std::string f_p{};        // empty: every round
};

// What a whole ranking went through.
struct RankCount {
  int64_t rows = 0;     // rows of the query
  int64_t changed = 0;  // rows whose stored value was written
};

// Progress lines: "<caption> <percent>%" (no blank added when the caption ends in one).
std::string RankProgressLine(std::string_view caption, int percent);
// The percent at the end of such a line; nullopt when the line has none.
std::optional<int> RankProgressPercent(std::string_view line);

// RANK of one group of 'I' and 'L' rows; nothing happens when the group has no rows.
bool AddRankForOne(AppState& state, int32_t athlete, int16_t stroke, int16_t distance,
                   std::string_view course);
// RANK of one group of 'N' rows: 1, 2, 3 by NT, score.
bool AddRankForOneRelayLeg(AppState& state, int32_t athlete, int16_t stroke, int16_t distance,
                           std::string_view course);

// RANK of every 'I' and 'L' row. Progress lines under `caption` from 0%, now and then;
// an empty line at the end clears them.
bool AddRank(AppState& state, std::string_view caption = kUpdatingRankings,
             RankCount* count = nullptr);
// RANK of every 'N' row. Progress as AddRank, but the last line stays.
bool AddRankIndividualRelayLeg(AppState& state, std::string_view caption = kUpdatingRankings,
                               RankCount* count = nullptr);

// TRANK: Null on every 'I' and 'L' row, then numbered over the selected swims with a time
// whose result has its meet and swimmer. Progress lines under "Adjusting for Since Date".
bool AddTRank(AppState& state, const TRankSelection& selection, RankCount* count = nullptr);

}  // namespace kvlr
