#include "core/ErrorLog.h"

#include <array>

#include <fmt/format.h>

#include "core/FileOps.h"

namespace kvlr {

std::string LongDateText(const Date& date) {
  static constexpr std::array<std::string_view, 7> kDays = {
      "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
  static constexpr std::array<std::string_view, 12> kMonths = {
      "January", "February", "March",     "April",   "May",      "June",
      "July",    "August",   "September", "October", "November", "December"};
  return fmt::format("{}, {} {}, {}", kDays[Weekday(date)], kMonths[date.month - 1], date.day,
                     date.year);
}

std::string LongTimeText(const DateTime& when) {
  int hour12 = when.hour % 12 == 0 ? 12 : when.hour % 12;
  return fmt::format("{}:{:02}:{:02} {}", hour12, when.minute, when.second,
                     when.hour < 12 ? "AM" : "PM");
}

std::string FormatLogEntry(const ErrorLogEntry& e) {
  return fmt::format(
      "{}  {}\n"
      "Error Description: {}\n"
      "Error Source: {}\n"
      "Error Number: {}\n"
      "Current Database: {}\n"
      "Current Athlete: {}\n"
      "Current Meet: {}\n"
      "===========================\n",
      LongDateText(e.when.date), LongTimeText(e.when), e.description, e.source, e.number,
      e.database, e.athlete, e.meet);
}

bool AppendErrorLog(const std::filesystem::path& log_file, const ErrorLogEntry& entry) {
  return AppendToFile(log_file, FormatLogEntry(entry));
}

}  // namespace kvlr
