#pragma once
// The writers of entries (ENTRY) of the current meet. An entry is found by the key
// (state.gCurrentMeet, MtEvent, Athlete, I_R). Times are hundredths of a second; an entry
// with no time has Misc "N" and Score 0. Failures are reported through ReportError under
// "basUtil.AddNewEntry" or "basUtil.UpdateEntryScore" (Retry repeats the write); the stored
// row is then as it was.

#include <cstdint>
#include <string_view>

#include "core/AppState.h"

namespace kvlr {

// The words of entries. "Could not add Entry." and "Invalid Entry" belong to the entry
// screen.
inline constexpr std::string_view kCantAddEntry = "Can't add Entry";
inline constexpr std::string_view kCouldNotAddEntry = "Could not add Entry";
inline constexpr std::string_view kCouldNotAddEntryDot = "Could not add Entry.";
inline constexpr std::string_view kInvalidEntry = "Invalid Entry";

// Adds the entry of the current meet. With `no_time` Misc is "N" and Score 0, else Score
// is `score` and Misc `misc`. True if added; false on a failure (a second row of the same
// key is one).
bool AddNewEntry(AppState& state, int32_t score, std::string_view course, int32_t mt_event,
                 std::string_view i_r, bool no_time, std::string_view misc, std::string_view ex,
                 int32_t athlete);

// Edits the entry of the key, or adds it through AddNewEntry. On an edit Score and Misc
// follow `no_time` (Misc "" for a time; `misc` is only used when adding), Course is written,
// and Ex only when `ex` is "X". With no row: "Can't add Entry" when athlete, current meet or
// event is 0, "Could not add Entry" when the add fails. True if stored.
bool UpdateEntryScore(AppState& state, int32_t score, std::string_view course, int32_t mt_event,
                      std::string_view i_r, bool no_time, std::string_view misc,
                      std::string_view ex, int32_t athlete);

}  // namespace kvlr
