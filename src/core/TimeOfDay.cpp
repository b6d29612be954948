#include "core/TimeOfDay.h"

#include <utility>

#include <fmt/format.h>

#include "core/VbRules.h"

namespace kvlr {
namespace {

// Whole-number text of at most nine digits (so it fits an int); -1 otherwise.
int DigitsValue(std::string_view text) {
  if (text.empty() || text.size() > 9) return -1;
  int value = 0;
  for (char c : text) {
    if (c < '0' || c > '9') return -1;
    value = value * 10 + (c - '0');
  }
  return value;
}

TimeOfDayResult Refused(std::string message) {
  return {"", std::move(message)};
}

TimeOfDayResult FormatError() {
  return Refused(std::string(kInvalidTimeFormat));
}

TimeOfDayResult InvalidNumber(int value) {
  return Refused(fmt::format("{}{}", kInvalidTimeNumber, value));
}

// `word` is "AM", "PM" or "" for the 24-hour form.
std::string Clock(int hours, int minutes, std::string_view word) {
  if (word.empty()) return fmt::format("{}:{:02}", hours, minutes);
  return fmt::format("{}:{:02} {}", hours, minutes, word);
}

// hhmm as one number. Minutes of 60 or more pass the quarter-hour rule (60, 75, 90) but
// name no time, so they are refused with the number.
TimeOfDayResult FromHhmm(int value, std::string_view word) {
  int hours = value / 100;
  int minutes = value % 100;
  if (minutes % 15 != 0) return Refused(std::string(kQuarterHoursOnly));
  if (minutes >= 60) return InvalidNumber(value);
  return {Clock(hours, minutes, word), ""};
}

}  // namespace

TimeOfDayResult ParseTimeOfDay(std::string_view text) {
  const std::string typed = Trim(text);
  if (typed.empty()) return {};

  std::string word;
  std::string body = typed;
  if (typed.size() >= 2) {
    std::string last_two = UCase(typed.substr(typed.size() - 2));
    if (last_two == "AM" || last_two == "PM") {
      word = last_two;
      body = Trim(typed.substr(0, typed.size() - 2));
    }
  }

  const size_t colon = body.find(':');
  if (colon != std::string::npos) {
    if (colon == 0 || colon > 2 || colon + 3 != body.size()) return FormatError();
    int hours = DigitsValue(body.substr(0, colon));
    int minutes = DigitsValue(body.substr(colon + 1));
    if (hours < 0 || minutes < 0) return FormatError();
    if (word.empty()) {
      if (hours * 100 + minutes > 2400) return {};
    } else if (typed.size() > kAmPmTextLimit || hours >= 14) {
      return FormatError();
    }
    if (minutes % 15 != 0) return Refused(std::string(kQuarterHoursOnly));
    if (minutes >= 60) return FormatError();
    return {Clock(hours, minutes, word), ""};
  }

  const int value = DigitsValue(body);
  if (value < 0) return FormatError();
  if (word.empty()) {
    // Hour 0 keeps its digit: "0:00", never a bare ":00".
    if (value < 25) return {Clock(value, 0, word), ""};
    if (value >= 100 && value <= 2400) return FromHhmm(value, word);
    return {};
  }
  if ((value >= 14 && value <= 99) || value >= 1301) return InvalidNumber(value);
  if (value < 13) return {Clock(value, 0, word), ""};
  return FromHhmm(value, word);
}

}  // namespace kvlr
