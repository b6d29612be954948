#include "workouts/WorkoutConvert.h"

#include <cstdlib>

#include <fmt/format.h>

#include "core/VbRules.h"

namespace kvlr {

std::string gSecondsToMMSS(long seconds) {
  if (seconds >= 3600) return "59:59";
  if (seconds < 0) seconds = 0;
  return fmt::format("{}:{:02}", seconds / 60, seconds % 60);
}

std::string gSecondsToWords(long seconds) {
  if (seconds >= 3600) return "1 hour+";
  if (seconds < 60) return fmt::format("{} seconds", seconds);
  const long m = seconds / 60;
  const long s = seconds % 60;
  std::string text = fmt::format("{}{}", m, m > 1 ? " minutes " : " minute ");
  if (s > 1) text += fmt::format("{} seconds", s);
  if (s == 1) text += " 1 second";
  return text;
}

long gMMSSToSeconds(std::string_view text) {
  std::string padded(text);
  if (padded.size() < 5) padded.insert(0, 5 - padded.size(), '0');
  const long minutes = static_cast<long>(Val(padded.substr(0, 2)));
  const long seconds = static_cast<long>(Val(padded.substr(3, 2)));
  return minutes * 60 + seconds;
}

std::string gMinutesToClock(long minutes) {
  minutes %= 1440;
  if (minutes < 0) minutes += 1440;
  std::string ending = " AM ";
  if (minutes >= 720) {
    ending = " PM ";
    minutes -= 720;
  }
  long hours = minutes / 60;
  // Only the afternoon's first hour reads 12; past midnight stays 00 as users know it.
  if (hours == 0 && ending == " PM ") hours = 12;
  return fmt::format("{:02}:{:02}{}", hours, minutes % 60, ending);
}

long gClockToMinutes(std::string_view clock) {
  std::string text(clock);
  text.resize(std::max<size_t>(text.size(), 7), ' ');
  const long hours = static_cast<long>(Val(text.substr(0, 2)));
  long minutes = hours * 60;
  if (text[6] == 'P' && hours < 12) minutes += 720;
  return minutes + static_cast<long>(Val(text.substr(3, 2)));
}

bool gValidClock(std::string_view clock) {
  std::string text(clock);
  text.resize(std::max<size_t>(text.size(), 7), ' ');
  return Val(text.substr(0, 2)) <= 12 && Val(text.substr(3, 2)) <= 59 &&
         (text[6] == 'A' || text[6] == 'P');
}

namespace {

// Digits and blanks only, at least one digit.
bool ReadPart(std::string_view part, int& value) {
  bool digit = false;
  value = 0;
  for (char ch : part) {
    if (ch == ' ') continue;
    if (ch < '0' || ch > '9') return false;
    digit = true;
    value = value * 10 + (ch - '0');
    if (value > 99) return false;
  }
  return digit;
}

}  // namespace

bool gValidRest(std::string& text) {
  const auto colon = text.find(':');
  if (colon == std::string::npos) return false;
  int minutes = 0;
  int seconds = 0;
  if (!ReadPart(std::string_view(text).substr(0, colon), minutes) ||
      !ReadPart(std::string_view(text).substr(colon + 1), seconds) || minutes >= 60 ||
      seconds >= 60) {
    return false;
  }
  text = fmt::format("{:02}:{:02}", minutes, seconds);
  return true;
}

std::string gFormatThousands(long value) {
  const std::string digits = std::to_string(std::labs(value));
  if (digits.size() < 4 || digits.size() > 9) return std::to_string(value);
  std::string out;
  for (size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) out += ',';
    out += digits[i];
  }
  return value < 0 ? "-" + out : out;
}

}  // namespace kvlr
