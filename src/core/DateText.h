#pragma once
// Ages and the date texts that pass between the user's regional order, interchange files
// ("MMDDYYYY") and the US form "MM/DD/YYYY". The regional order is a plain number the
// app works out once from the locale and hands in:
//   0 month first (MM/DD/YYYY), 1 day first (DD/MM/YYYY), 2 year first (YYYY/MM/DD).

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/Date.h"

namespace kvlr {

// Age in whole years on `date`; a birthday on `date` counts, a 29 February birthday is
// reached on 1 March in other years. 0 when either is missing or not a real day, or
// `birth` is kNullDate. Negative when `date` is more than a year before `birth`.
int16_t AgeAtDate(const std::optional<Date>& birth, const std::optional<Date>& date);

// The regional order of a strftime date pattern as nl_langinfo(D_FMT) gives it
// ("%m/%d/%y" -> 0, "%d.%m.%Y" -> 1, "%Y-%m-%d" -> 2); %D and %F count as their
// expansions, %e as the day, %y like %Y. Whichever of year and day comes before the
// others decides; a pattern with neither first is month first.
int DetectDateOrder(std::string_view d_fmt);

// Eight digits "MMDDYYYY" joined with '/' in `date_order`. The parts are taken by
// position, so a shorter text gives shorter (or empty) parts.
std::string ToRegionalDate(std::string_view mmddyyyy, int date_order);

// "MM/DD/YYYY" whatever the regional order; the year is its last four digits.
std::string USDateText(const Date& date);

// Reads three numbers (split by '/', '-', '.' or blanks) in `date_order`. A year of one
// or two digits is 2000 + year below 30, else 1900 + year. nullopt unless the text is
// exactly that and names a real day.
std::optional<Date> RegionalTextToDate(std::string_view text, int date_order);

// A date as every screen and grid shows it, with four digits of year: "MM/DD/YYYY",
// "DD/MM/YYYY" or "YYYY-MM-DD" by `date_order`.
std::string ShownDate(const Date& date, int date_order);

// ShownDate's form in Qt's date-format letters, for date editors.
const char* ShownDatePattern(int date_order);

// ShownDate's form as words for messages: "MM/DD/YYYY", "DD/MM/YYYY" or "YYYY-MM-DD".
std::string_view ShownDateHint(int date_order);

// A date typed into a date field: ISO "YYYY-MM-DD" or what RegionalTextToDate reads in
// `date_order`. nullopt for anything else.
std::optional<Date> TypedDate(std::string_view text, int date_order);

// Reads "MM/DD/YYYY": month from characters 1-2, day from 4-5, year from the last four,
// rebuilt in `date_order` (order 0 takes the text as it is) and read back by
// RegionalTextToDate. nullopt when that isn't a real day.
std::optional<Date> USTextToDate(std::string_view text, int date_order);

}  // namespace kvlr
