#pragma once
// Times of day as typed on the calendar and health screens: "930", "21:30", "9pm",
// "9:30 PM". Only quarter hours are accepted.

#include <cstddef>
#include <string>
#include <string_view>

namespace kvlr {

inline constexpr std::string_view kQuarterHoursOnly = "Time must be in 15 minute intervals.";
// Followed by the number typed.
inline constexpr std::string_view kInvalidTimeNumber = "Invalid time ";
inline constexpr std::string_view kInvalidTimeFormat = "Invalid Time format";

// Longest text, "AM"/"PM" included, accepted in the "h:mm AM" form.
inline constexpr size_t kAmPmTextLimit = 8;

struct TimeOfDayResult {
  std::string text;     // the time to keep ("21:30", "9:30 PM"), or "" when refused
  std::string message;  // what the caller must show, "" if nothing
};

// Reads a time of day. A text ending in "AM" or "PM" (any case) gives the 12-hour form
// "h:mm AM", anything else the 24-hour form "h:mm". "h:mm" as typed has one or two
// hour digits.
// Without AM/PM: a number from 0 to 24 is whole hours, 100 to 2400 is hhmm, "h:mm" is
// read as written up to 24:00; other values give "" with no message.
// With AM/PM: "h:mm" needs hours below 14 and at most kAmPmTextLimit characters; a number
// below 13 is whole hours, 13 and 100 to 1300 are hhmm, 14 to 99 and above 1300 are
// refused with kInvalidTimeNumber + the number.
// Minutes must be a multiple of 15 (else kQuarterHoursOnly) and below 60 (else
// kInvalidTimeNumber + the number, or kInvalidTimeFormat for "h:mm"). Empty text gives ""
// and no message; text of any other shape gives kInvalidTimeFormat.
TimeOfDayResult ParseTimeOfDay(std::string_view text);

}  // namespace kvlr
