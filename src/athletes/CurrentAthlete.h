#pragma once
// Who the current swimmer is: the display name and the gAthlete... values of the state.

#include <cstdint>
#include <string>
#include <string_view>

#include "core/AppState.h"

namespace kvlr {

// `pref` if it isn't blank, else `first`; then " " + `initial` when that isn't blank; then
// " " + `last`. Each part is used trimmed.
std::string AthleteDisplayName(std::string_view pref, std::string_view first,
                               std::string_view initial, std::string_view last);

// Reads swimmer `athlete` from state.gDb and makes it current: gAthlete, gAthleteName,
// gAthleteFirst/Last/Pref (trimmed, upper-cased), gAthleteBirth (gNullDate when none),
// gAthleteSex, gAthleteAge (on today by state.clock), gMeetBandStart/End (StartMeet,
// EndMeet; gNullDate when none). False, and the state untouched, when there is no such row.
// Store failures throw SQLite::Exception.
bool SetCurrentAthlete(AppState& state, int32_t athlete);

}  // namespace kvlr
