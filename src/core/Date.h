#pragma once
// Calendar dates and moments as the store keeps them: ISO text "YYYY-MM-DD" and
// "YYYY-MM-DD HH:MM:SS". A Date is a plain value; validity is checked on parse.

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace kvlr {

struct Date {
  int year = 1900;
  int month = 1;
  int day = 1;

  auto operator<=>(const Date&) const = default;

  // True when the three parts name a real calendar day (years 100 to 9999).
  bool Valid() const;
  // "YYYY-MM-DD".
  std::string Iso() const;
  // Reads "YYYY-MM-DD" (also the date part of "YYYY-MM-DD HH:MM:SS"); nullopt if not a real day.
  static std::optional<Date> FromIso(std::string_view text);
  static std::optional<Date> FromParts(int year, int month, int day);
};

// 01/01/1900: the value for "no date".
inline constexpr Date kNullDate{1900, 1, 1};
// 01/01/1990: the start date that marks a pseudo-meet.
inline constexpr Date kPseudoMeetStart{1990, 1, 1};

struct DateTime {
  Date date;
  int hour = 0;
  int minute = 0;
  int second = 0;

  auto operator<=>(const DateTime&) const = default;

  // "YYYY-MM-DD HH:MM:SS".
  std::string Iso() const;
  // Reads "YYYY-MM-DD HH:MM:SS" or a bare date (midnight); nullopt otherwise.
  static std::optional<DateTime> FromIso(std::string_view text);
};

// Whole days from `from` to `to` (negative when `to` is earlier).
long DaysBetween(const Date& from, const Date& to);
Date AddDays(const Date& date, long days);
// 0 = Sunday ... 6 = Saturday.
int Weekday(const Date& date);

}  // namespace kvlr
