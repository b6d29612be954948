#pragma once
// Removing a swimmer with what belongs to it, and merging one swimmer into another.

#include <cstdint>

#include "core/AppState.h"

namespace kvlr {

// `DeleteOneAthlete`: asks "Remove Athlete" with the swimmer's name; on Yes removes the
// swimmer's records. When the swimmer was current the state has no current swimmer after.
// True if the swimmer is gone; false when the user said No, the swimmer doesn't exist (told
// "Athlete not found") or the removal failed (reported).
bool DeleteOneAthlete(AppState& state, int32_t athlete);

// `RemoveOneAthletesRecords`: in one transaction, the swimmer's individual results and relay
// lead-offs (other relay rows stay), individual and E entries, recruiting row, AthInfo row,
// workouts (headers whose group is the key, with their lines) and the Athlete row. False,
// nothing removed, on a store failure (reported as basUtil.RemoveOneAthletesRecords).
bool RemoveOneAthletesRecords(AppState& state, int32_t athlete);

// `MergeAthlete`: in one transaction, moves the results (I and L) and entries (I and E) of
// `from` to `to`, removes the recruiting, AthInfo and Athlete rows of `from`; then `to` is
// current. On any failure everything is rolled back, the error reported as
// basUtil.MergeAthlete, and false comes back. Ranks are left for the next re-rank.
bool MergeAthlete(AppState& state, int32_t from, int32_t to);

enum class MergeOutcome {
  kMerged,
  kRefused,   // not the same sex, or a swimmer missing (words told)
  kDeclined,  // the user said No to the warning
  kFailed,    // "Merge Failed." told
};

// The merge command of the list (`frmMerge`'s OK): same sex required, the warning question,
// then MergeAthlete.
MergeOutcome MergeAthletes(AppState& state, int32_t from, int32_t to);

}  // namespace kvlr
