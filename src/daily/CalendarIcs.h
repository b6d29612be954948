#pragma once
// The swimmer's calendar as an iCalendar file for a phone's calendar: every meet, workout
// (Swim, Dry) and other event of tblEvents the calendar shows for the swimmer, one VEVENT a
// row, in floating local time (no time zone, as the program keeps its times).

#include <cstdint>
#include <filesystem>
#include <string>

#include "core/AppState.h"
#include "core/OutputFile.h"

namespace kvlr {

inline constexpr OutputKind kIcsOutput{".ics", "an iCalendar file"};

// The text of the calendar (libical's writing). Store failures throw.
std::string CalendarIcs(AppState& state, int32_t athlete);
// Writes it to `file` through a temporary name; the number of events. Failures throw.
int WriteCalendarIcs(AppState& state, int32_t athlete, const std::filesystem::path& file);

}  // namespace kvlr
