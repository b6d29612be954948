#pragma once
// Times of day and the birth date as the athlete card shows and takes them.
// Times are kept in Date fields as "1899-12-30 HH:MM:SS": the store's day zero plus the time.

#include <optional>
#include <string>
#include <string_view>

#include "core/Date.h"

namespace kvlr {

// A typed time as the card keeps it: `shown` in the machine's form, or "" with `message`
// ("" too) when refused. Empty text is accepted as no time.
struct CardTime {
  bool accepted = true;
  std::string shown;
  std::string message;
};

// Reads a typed time through ParseTimeOfDay and shows it as ShownTime does.
CardTime TypedCardTime(std::string_view typed, bool twelve_hour);

// A stored time of day shown "hh:mm AM" (12-hour machine) or "hh:mm"; "" for none or
// text that isn't a stored time.
std::string ShownTime(std::string_view stored, bool twelve_hour);

// The stored form of a shown time ("7:00 PM", "07:00 PM", "19:00"); nullopt for "" or text
// that isn't a time of day.
std::optional<std::string> StoredTime(std::string_view shown);

// The visible range of the day view when the swimmer has none.
std::string DefaultRangeStart(bool twelve_hour);
std::string DefaultRangeEnd(bool twelve_hour);

// A typed birth date: `accepted` with the date (nullopt for empty text), or refused with
// `message` ("" when the text simply isn't a date and the field goes back to what it was).
struct BirthEntry {
  bool accepted = true;
  std::optional<Date> date;
  std::string message;
};

// Why a birth date that is typed (into the card, or given to the command-line tool) is
// refused, in the card's words; "" when it is taken. Dates before 1930 can only come from the
// calendar, which ends at `today`.
std::string_view BirthDateProblem(const Date& birth, const Date& today);

// Reads the text as YYYY-MM-DD or in the regional `date_order`, refusing what
// BirthDateProblem refuses; text that is no date is refused with words saying both forms.
BirthEntry TypedBirthDate(std::string_view typed, int date_order, const Date& today);

}  // namespace kvlr
