#include "core/TimeOfDay.h"

#include <gtest/gtest.h>

namespace kvlr {
namespace {

TEST(ParseTimeOfDayTest, Forms) {
  const std::string quarter(kQuarterHoursOnly);
  const std::string format(kInvalidTimeFormat);
  // clang-format off
  // {typed, text, message}
  const std::vector<std::tuple<const char*, std::string, std::string>> cases = {
      {"", "", ""},
      // 24-hour numbers and h:mm
      {"9", "9:00", ""}, {"0", "0:00", ""}, {"24", "24:00", ""}, {"25", "", ""},
      {"930", "9:30", ""}, {"2400", "24:00", ""}, {"2415", "", ""}, {"1310", "", quarter},
      {"975", "", "Invalid time 975"},
      {"21:30", "21:30", ""}, {"0:15", "0:15", ""}, {"9:10", "", quarter}, {"25:00", "", ""},
      {"9:3", "", format}, {"123:00", "", format}, {"abc", "", format},
      // AM/PM numbers
      {"9pm", "9:00 PM", ""}, {"9 am", "9:00 AM", ""}, {"1130 PM", "11:30 PM", ""},
      {"1110pm", "", quarter}, {"45 pm", "", "Invalid time 45"},
      {"1301pm", "", "Invalid time 1301"}, {"PM", "", format},
      // AM/PM with h:mm, at most eight characters
      {"9:30 pm", "9:30 PM", ""}, {"12:45 AM", "12:45 AM", ""}, {"10:30  PM", "", format},
      {"14:00 PM", "", format}, {"9:20 am", "", quarter}, {"9:75 am", "", format}};
  // clang-format on
  for (const auto& [typed, text, message] : cases) {
    TimeOfDayResult result = ParseTimeOfDay(typed);
    EXPECT_EQ(result.text, text) << '"' << typed << '"';
    EXPECT_EQ(result.message, message) << '"' << typed << '"';
  }
}

}  // namespace
}  // namespace kvlr
