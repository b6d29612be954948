#include "core/DateText.h"

#include <array>

#include <fmt/format.h>

#include "core/VbRules.h"

namespace kvlr {
namespace {

enum class Field { kNone, kDay, kMonth, kYear };

// The field a strftime conversion letter prints first.
Field FieldOf(char conversion) {
  switch (conversion) {
    case 'd':
    case 'e':
      return Field::kDay;
    case 'm':
    case 'b':
    case 'B':
    case 'h':
    case 'D':  // %m/%d/%y
      return Field::kMonth;
    case 'y':
    case 'Y':
    case 'C':
    case 'G':
    case 'g':
    case 'F':  // %Y-%m-%d
      return Field::kYear;
    default:
      return Field::kNone;
  }
}

bool IsSeparator(char c) {
  return c == '/' || c == '-' || c == '.' || c == ' ';
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string Part(std::string_view text, size_t start, size_t length) {
  if (start >= text.size()) return "";
  return std::string(text.substr(start, length));
}

}  // namespace

int16_t AgeAtDate(const std::optional<Date>& birth, const std::optional<Date>& date) {
  if (!birth || !date || *birth == kNullDate || !birth->Valid() || !date->Valid()) return 0;
  int age = date->year - birth->year - 1;
  if (date->month > birth->month) {
    ++age;
  } else if (date->month == birth->month && date->day >= birth->day) {
    ++age;
  }
  return static_cast<int16_t>(age);
}

int DetectDateOrder(std::string_view d_fmt) {
  for (size_t i = 0; i < d_fmt.size(); ++i) {
    if (d_fmt[i] != '%') continue;
    ++i;
    // glibc flags, a width, and the E/O modifiers may stand between '%' and the letter.
    while (i < d_fmt.size() &&
           (std::string_view("-_0^#").find(d_fmt[i]) != std::string_view::npos ||
            IsDigit(d_fmt[i]) || d_fmt[i] == 'E' || d_fmt[i] == 'O')) {
      ++i;
    }
    if (i >= d_fmt.size()) break;
    switch (FieldOf(d_fmt[i])) {
      case Field::kYear:
        return 2;
      case Field::kDay:
        return 1;
      case Field::kMonth:
        return 0;
      case Field::kNone:
        break;  // "%%", weekday names and the like
    }
  }
  return 0;
}

std::string ToRegionalDate(std::string_view mmddyyyy, int date_order) {
  std::string month = Part(mmddyyyy, 0, 2);
  std::string day = Part(mmddyyyy, 2, 2);
  std::string year = Part(mmddyyyy, 4, 4);
  switch (date_order) {
    case 1:
      return fmt::format("{}/{}/{}", day, month, year);
    case 2:
      return fmt::format("{}/{}/{}", year, month, day);
    default:
      return fmt::format("{}/{}/{}", month, day, year);
  }
}

std::string USDateText(const Date& date) {
  std::string year = fmt::format("{:04}", date.year);
  return fmt::format("{:02}/{:02}/{}", date.month, date.day, year.substr(year.size() - 4));
}

std::optional<Date> RegionalTextToDate(std::string_view text, int date_order) {
  const std::string trimmed = Trim(text);
  std::array<int, 3> numbers{};
  std::array<size_t, 3> widths{};
  size_t count = 0;
  size_t i = 0;
  while (i < trimmed.size()) {
    if (count == numbers.size() || !IsDigit(trimmed[i])) return std::nullopt;
    const size_t start = i;
    int value = 0;
    for (; i < trimmed.size() && IsDigit(trimmed[i]) && i - start < 4; ++i) {
      value = value * 10 + (trimmed[i] - '0');
    }
    numbers[count] = value;
    widths[count++] = i - start;
    if (i == trimmed.size()) break;
    if (!IsSeparator(trimmed[i])) return std::nullopt;
    while (i < trimmed.size() && IsSeparator(trimmed[i])) ++i;
    if (i == trimmed.size()) return std::nullopt;  // a separator must lead to a number
  }
  if (count != numbers.size()) return std::nullopt;

  // Where year, month and day stand in each order.
  constexpr size_t kPlaces[3][3] = {{2, 0, 1}, {2, 1, 0}, {0, 1, 2}};
  const size_t* place = kPlaces[date_order == 1 || date_order == 2 ? date_order : 0];
  int year = numbers[place[0]];
  // Two-digit years fall in 1930-2029, as the desktop's date parser reads them.
  if (widths[place[0]] <= 2) year += year < 30 ? 2000 : 1900;
  return Date::FromParts(year, numbers[place[1]], numbers[place[2]]);
}

std::string ShownDate(const Date& date, int date_order) {
  switch (date_order) {
    case 1:
      return fmt::format("{:02}/{:02}/{:04}", date.day, date.month, date.year);
    case 2:
      // Year-first locales write dashes, and so the form is ISO's.
      return fmt::format("{:04}-{:02}-{:02}", date.year, date.month, date.day);
    default:
      return fmt::format("{:02}/{:02}/{:04}", date.month, date.day, date.year);
  }
}

const char* ShownDatePattern(int date_order) {
  return date_order == 1 ? "dd/MM/yyyy" : date_order == 2 ? "yyyy-MM-dd" : "MM/dd/yyyy";
}

std::string_view ShownDateHint(int date_order) {
  return date_order == 1 ? "DD/MM/YYYY" : date_order == 2 ? "YYYY-MM-DD" : "MM/DD/YYYY";
}

std::optional<Date> TypedDate(std::string_view text, int date_order) {
  const std::string trimmed = Trim(text);
  // A date copied from elsewhere is often ISO, whatever the regional order.
  if (trimmed.size() == 10) {
    if (auto iso = Date::FromIso(trimmed)) return iso;
  }
  return RegionalTextToDate(trimmed, date_order);
}

std::optional<Date> USTextToDate(std::string_view text, int date_order) {
  std::string month = Part(text, 0, 2);
  std::string day = Part(text, 3, 2);
  std::string year(text.substr(text.size() > 4 ? text.size() - 4 : 0));
  switch (date_order) {
    case 1:
      return RegionalTextToDate(fmt::format("{}/{}/{}", day, month, year), date_order);
    case 2:
      return RegionalTextToDate(fmt::format("{}/{}/{}", year, month, day), date_order);
    default:
      return RegionalTextToDate(text, date_order);
  }
}

}  // namespace kvlr
