#include "athletes/CardTimes.h"

#include <fmt/format.h>

#include "athletes/AthleteTexts.h"
#include "core/DateText.h"
#include "core/TimeOfDay.h"
#include "core/VbRules.h"

namespace kvlr {
namespace {

constexpr Date kTypedBirthFloor{1930, 1, 1};

// "h:mm" or "hh:mm" with minutes below 60.
bool ReadClock(std::string_view text, int& hours, int& minutes) {
  const size_t colon = text.find(':');
  if (colon == std::string_view::npos || colon == 0 || colon > 2 || colon + 3 != text.size()) {
    return false;
  }
  auto digits = [](std::string_view part, int& value) {
    value = 0;
    for (char c : part) {
      if (c < '0' || c > '9') return false;
      value = value * 10 + (c - '0');
    }
    return true;
  };
  return digits(text.substr(0, colon), hours) && digits(text.substr(colon + 1), minutes) &&
         minutes < 60;
}

}  // namespace

std::optional<std::string> StoredTime(std::string_view shown) {
  std::string text = Trim(shown);
  std::string word;
  if (text.size() >= 2) {
    const std::string tail = UCase(text.substr(text.size() - 2));
    if (tail == "AM" || tail == "PM") {
      word = tail;
      text = Trim(text.substr(0, text.size() - 2));
    }
  }
  int hours = 0;
  int minutes = 0;
  if (!ReadClock(text, hours, minutes)) return std::nullopt;
  if (!word.empty()) {
    if (hours == 0 || hours > 13) return std::nullopt;
    if (word == "AM" && hours == 12) hours = 0;
    if (word == "PM" && hours < 12) hours += 12;
  }
  if (hours > 24 || (hours == 24 && minutes > 0)) return std::nullopt;
  // Midnight at the end of the day is the next day's first moment, as the store counts it.
  if (hours == 24) return std::string("1899-12-31 00:00:00");
  return fmt::format("1899-12-30 {:02}:{:02}:00", hours, minutes);
}

std::string ShownTime(std::string_view stored, bool twelve_hour) {
  const auto moment = DateTime::FromIso(stored);
  if (!moment || stored.size() < 16) return "";
  if (!twelve_hour) return fmt::format("{:02}:{:02}", moment->hour, moment->minute);
  const int hours = moment->hour % 12 == 0 ? 12 : moment->hour % 12;
  return fmt::format("{:02}:{:02} {}", hours, moment->minute, moment->hour < 12 ? "AM" : "PM");
}

CardTime TypedCardTime(std::string_view typed, bool twelve_hour) {
  if (Trim(typed).empty()) return {};
  const TimeOfDayResult read = ParseTimeOfDay(typed);
  const auto stored = read.text.empty() ? std::nullopt : StoredTime(read.text);
  if (!stored) return {false, "", read.message};
  return {true, ShownTime(*stored, twelve_hour), ""};
}

std::string DefaultRangeStart(bool twelve_hour) {
  return twelve_hour ? "7:00 AM" : "7:00";
}
std::string DefaultRangeEnd(bool twelve_hour) {
  return twelve_hour ? "8:00 PM" : "20:00";
}

std::string_view BirthDateProblem(const Date& birth, const Date& today) {
  if (birth < kTypedBirthFloor) return athlete_text::kBirthBefore1930;
  if (birth > today) return athlete_text::kBirthAfterToday;
  return {};
}

BirthEntry TypedBirthDate(std::string_view typed, int date_order, const Date& today) {
  const std::string text = Trim(typed);
  if (text.empty()) return {};
  const auto date = TypedDate(text, date_order);
  if (!date) {
    const std::string_view form = ShownDateHint(date_order);
    return {false, std::nullopt,
            fmt::format("\"{}\" is not a date. Type the birth date as {}{}.", text, form,
                        date_order == 2 ? "" : " or YYYY-MM-DD")};
  }
  if (const auto problem = BirthDateProblem(*date, today); !problem.empty()) {
    return {false, std::nullopt, std::string(problem)};
  }
  return {true, date, ""};
}

}  // namespace kvlr
