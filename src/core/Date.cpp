#include "core/Date.h"

#include <charconv>
#include <chrono>

#include <fmt/format.h>

namespace kvlr {
namespace {

namespace chr = std::chrono;

chr::sys_days ToDays(const Date& d) {
  return chr::sys_days{chr::year{d.year} / chr::month{static_cast<unsigned>(d.month)} /
                       chr::day{static_cast<unsigned>(d.day)}};
}

// Reads exactly `len` digits at `pos`; -1 if any is not a digit.
int Digits(std::string_view text, size_t pos, size_t len) {
  if (pos + len > text.size()) return -1;
  int value = 0;
  auto [ptr, ec] = std::from_chars(text.data() + pos, text.data() + pos + len, value);
  if (ec != std::errc() || ptr != text.data() + pos + len) return -1;
  return value;
}

}  // namespace

bool Date::Valid() const {
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1) return false;
  return chr::year_month_day{chr::year{year}, chr::month{static_cast<unsigned>(month)},
                             chr::day{static_cast<unsigned>(day)}}
      .ok();
}

std::string Date::Iso() const {
  return fmt::format("{:04}-{:02}-{:02}", year, month, day);
}

std::optional<Date> Date::FromParts(int year, int month, int day) {
  Date d{year, month, day};
  if (!d.Valid()) return std::nullopt;
  return d;
}

std::optional<Date> Date::FromIso(std::string_view text) {
  if (text.size() < 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  if (text.size() > 10 && text[10] != ' ' && text[10] != 'T') return std::nullopt;
  return FromParts(Digits(text, 0, 4), Digits(text, 5, 2), Digits(text, 8, 2));
}

std::string DateTime::Iso() const {
  return fmt::format("{} {:02}:{:02}:{:02}", date.Iso(), hour, minute, second);
}

std::optional<DateTime> DateTime::FromIso(std::string_view text) {
  auto date = Date::FromIso(text);
  if (!date) return std::nullopt;
  if (text.size() == 10) return DateTime{*date, 0, 0, 0};
  if (text.size() != 19 || text[13] != ':' || text[16] != ':') return std::nullopt;
  int h = Digits(text, 11, 2), m = Digits(text, 14, 2), s = Digits(text, 17, 2);
  if (h < 0 || h > 23 || m < 0 || m > 59 || s < 0 || s > 59) return std::nullopt;
  return DateTime{*date, h, m, s};
}

long DaysBetween(const Date& from, const Date& to) {
  return static_cast<long>((ToDays(to) - ToDays(from)).count());
}

Date AddDays(const Date& date, long days) {
  chr::year_month_day ymd{ToDays(date) + chr::days{days}};
  return Date{static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
              static_cast<int>(static_cast<unsigned>(ymd.day()))};
}

int Weekday(const Date& date) {
  return static_cast<int>(chr::weekday{ToDays(date)}.c_encoding());
}

}  // namespace kvlr
