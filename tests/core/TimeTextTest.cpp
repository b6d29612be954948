#include "core/TimeText.h"

#include <gtest/gtest.h>
#include "core/TimeOfDay.h"

namespace kvlr {
namespace {

TEST(TimeTextTest, ReadsDigitsFromTheRightIntoHundredths) {
  // clang-format off
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"5123", "00:51.23"}, {"12345", "01:23.45"}, {"50", "00:00.50"}, {"7", "00:00.07"},
      {"51.", "00:51.00"}, {"51.2", "00:51.20"}, {"12.345", "01:23.45"}, {"0052.10", "00:52.10"},
      {"1:23", "00:01.23"}, {"1:", "01:00.00"}, {"1:05.3", "01:05.30"},
      {"0", ""}, {"", ""}, {"a5b1c23", "00:51.23"},
      {"1234567", "23:45.67"}, {"0001234567", "23:45.67"}, {"99:99.99", "99:99.99"}};
  // clang-format on
  for (const auto& [typed, expected] : cases) {
    EXPECT_EQ(NormalizeTimeText(typed), expected) << '"' << typed << '"';
  }
  // clang-format off
  const std::vector<std::tuple<std::string, std::string, int32_t>> scores = {
      {"1:05.3", "01:05.30", 6530}, {"99:99.99", "99:99.99", 603999}, {"0", "", 0},
      {"1234567", "23:45.67", 142567}, {"1:75.00", "01:75.00", 13500}, {"8", "00:00.08", 8}};
  // clang-format on
  for (const auto& [typed, canonical, score] : scores) {
    std::string text = typed;
    EXPECT_EQ(TimeTextToScore(text), score) << typed;
    EXPECT_EQ(text, canonical) << typed;
  }
}

TEST(FormatTimeTest, MinutesOnlyWhenThereAreAnyAndScoreTextInOrder) {
  // clang-format off
  const std::vector<std::tuple<int32_t, bool, std::string>> cases = {
      {500, false, "05.00"}, {6000, false, "1:00.00"}, {60000, false, "10:00.00"},
      {0, false, "00.00"}, {5123, false, "51.23"}, {603999, false, "100:39.99"},
      {6000, true, " 1:00.00"}, {500, true, "   05.00"}, {60000, true, "10:00.00"},
      {-12050, false, "120.50"}, {-12050, true, "120.50"}, {-5, false, ".05"}};
  // clang-format on
  for (const auto& [score, pad, expected] : cases) {
    EXPECT_EQ(FormatTime(score, pad), expected) << score;
  }
  // clang-format off
  const std::vector<std::tuple<int32_t, int, const char*, int, std::string>> texts = {
      {0, 1, "", 5, "DQ"}, {0, 6, "", 3, "DNF"}, {5123, 6, "", 2, "51.23"}, {0, 1, "", 0, ""},
      {12000, 6, "", 0, "120.00"}, {-12000, 7, "", 0, "120.00"},
      {799, 1, "", 0, "Error"}, {1, 1, "", 0, "Error"},
      {800, 1, "Y", 0, "   08.00Y"}, {6000, 1, "S", 0, " 1:00.00S"}};
  // clang-format on
  for (const auto& [score, stroke, suffix, nt, expected] : texts) {
    EXPECT_EQ(ScoreText(score, stroke, suffix, nt), expected) << score;
  }
  EXPECT_EQ(NtText(1) + NtText(2) + NtText(4) + NtText(6), "SCRNSNT");
}

struct CheckCase {
  std::string text;
  int stroke;
  TimeInput in;
  TimeInput out;
  bool accepted;
  std::string_view message;
};

void ExpectCheck(bool (*check)(std::string_view, TimeInput&, int, std::string*),
                 const CheckCase& c) {
  SCOPED_TRACE('"' + c.text + '"');
  TimeInput io = c.in;
  std::string message = "stale";
  EXPECT_EQ(check(c.text, io, c.stroke, &message), c.accepted);
  EXPECT_EQ(io.score, c.out.score);
  EXPECT_EQ(io.exhibition, c.out.exhibition);
  EXPECT_EQ(io.course, c.out.course);
  EXPECT_EQ(io.nt, c.out.nt);
  EXPECT_EQ(message, c.message);
  io = c.in;
  EXPECT_EQ(check(c.text, io, c.stroke, nullptr), c.accepted);
}

TEST(CheckEntryTextTest, Paths) {
  // clang-format off
  const std::vector<CheckCase> cases = {
      {"", 1, {1234, "", "", 0}, {0, "", "", 0}, true, ""},
      {"  52.10y ", 1, {}, {5210, "", "Y", 0}, true, ""},
      {"x52.10", 1, {}, {5210, "X", "", 0}, true, ""},
      {"X", 1, {1234, "", "", 0}, {0, "X", "", 0}, true, ""},
      {"52.10L", 1, {0, "", "Y", 0}, {5210, "", "L", 0}, true, ""},
      {"52.10", 1, {0, "", "S", 0}, {5210, "", "S", 0}, true, ""},
      // An NT code, typed or already there, accepts without touching the score.
      {"nt", 1, {777, "", "", 0}, {777, "", "", 4}, true, ""},
      {"XNTS", 1, {}, {0, "X", "S", 4}, true, ""},
      {"52.10", 1, {4321, "", "", 2}, {4321, "", "", 2}, true, ""},
      // Refusals: bad characters (the caller has the message), too low.
      {"5:2a", 1, {4321, "", "", 0}, {0, "", "", 0}, false, ""},
      {"7.99", 1, {4321, "", "", 0}, {0, "", "", 0}, false, "Time entered is too low."},
      {"8.00", 1, {}, {800, "", "", 0}, true, ""},
      // Diving: Val * 100, halves to even.
      {"0.125", 6, {}, {12, "", "", 0}, true, ""},
      {"0.375", 7, {}, {38, "", "", 0}, true, ""},
      {"99999999999", 6, {}, {0, "", "", 0}, false, ""}};
  // clang-format on
  for (const CheckCase& c : cases) ExpectCheck(&CheckEntryText, c);
}

TEST(CheckResultTextTest, Paths) {
  // clang-format off
  const std::vector<CheckCase> cases = {
      {"  ", 1, {5000, "X", "Y", 3}, {5000, "X", "Y", 3}, false, ""},
      {"X", 1, {5000, "", "L", 0}, {0, "X", "", 0}, false, ""},
      // Non-time words by containment; the last in SCR, NS, DNF, NT, DQ order wins.
      {"XDQ", 1, {5000, "", "Y", 0}, {0, "X", "", 5}, true, ""},
      {"dns", 1, {}, {0, "", "", 2}, true, ""},
      {"SCR", 1, {}, {0, "", "", 1}, true, ""},
      {"DNF", 1, {}, {0, "", "", 3}, true, ""},
      {"SCR DQ", 1, {}, {0, "", "", 5}, true, ""},
      {"52.10", 1, {0, "", "", 4}, {0, "", "", 4}, true, ""},
      // Times: score and course are cleared first.
      {"52.10", 1, {5000, "", "S", 0}, {5210, "", "", 0}, true, ""},
      {"x1:05.30L", 2, {}, {6530, "X", "L", 0}, true, ""},
      {"350.25", 6, {}, {23025, "", "", 0}, true, ""},
      // Fewer than three characters (swims) or below 8.00.
      {"52", 1, {}, {0, "", "", 0}, false, "Invalid Time"},
      {"7.99", 1, {}, {799, "", "", 0}, false, "Invalid Time"},
      {"52", 6, {}, {52, "", "", 0}, false, "Invalid Time"}};
  // clang-format on
  for (const CheckCase& c : cases) ExpectCheck(&CheckResultText, c);
}

TEST(ParseTimeOfDayTest, Forms) {
  const std::string quarter = "Time must be in 15 minute intervals.";
  const std::string format = "Invalid Time format";
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
