#include "interchange/MeetText.h"
#include "interchange/SdifFields.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace kvlr {
namespace {

TEST(SdifFieldsTest, TextIsPaddedAndShortLinesReadBlank) {
  EXPECT_EQ(SdifText("A0 V3", 4, 11), "V3      ");
  EXPECT_EQ(SdifText("D0", 150, 151), "  ");
  EXPECT_EQ(SdifTrimmed("C1         XY TM ", 12, 17), "XY TM");
}

TEST(SdifFieldsTest, TextValuesComeOutAsUtf8) {
  const std::pair<std::string, std::string> cases[] = {
      {"DOE, ZO\xCB", "DOE, ZO\xC3\x8B"},                            // Latin-1
      {"Zo\xC3\xAB", "Zo\xC3\xAB"},                                  // already UTF-8
      {"\x80 \x93x\x94", "\xE2\x82\xAC \xE2\x80\x9Cx\xE2\x80\x9D"},  // Windows-1252
      {"\x81", "\xC2\x81"},                                          // a gap of the code page
      {"Jos\xC3", "Jos\xC3\x83"},                                    // a sequence cut short
      {"\xC0\xAF", "\xC3\x80\xC2\xAF"},  // an overlong form is no sequence
  };
  for (const auto& [raw, utf8] : cases) EXPECT_EQ(MeetText(raw), utf8) << raw;
  // Columns are bytes: the value is cut before it is converted.
  EXPECT_EQ(SdifText("ab\xEB"
                     "cd",
                     3, 4),
            "\xC3\xAB"
            "c");
}

TEST(SdifFieldsTest, IntIsForgivingAndHeldToSixteenBits) {
  const std::vector<std::tuple<std::string, int16_t>> cases = {
      {"0100", 100},    {"  50", 50},       {"12AB", 12}, {"AB12", 0}, {"    ", 0},
      {"99999", 32767}, {"-99999", -32768}, {"2.5 ", 2},  {"3.5 ", 4}};
  for (const auto& [cols, value] : cases) {
    EXPECT_EQ(SdifInt(cols, 1, static_cast<int>(cols.size())), value) << cols;
  }
}

TEST(SdifFieldsTest, DatesInEachOrderBlankAndBad) {
  for (int order = 0; order < 3; ++order) {
    const FileDate good = ParseFileDate("03152004", order);
    EXPECT_FALSE(good.bad) << order;
    EXPECT_EQ(good.date, (Date{2004, 3, 15})) << order;
  }
  const FileDate blank = ParseFileDate("        ", 0);
  EXPECT_TRUE(blank.IsBlank());
  EXPECT_EQ(blank.date, (Date{1800, 1, 1}));

  for (const char* bad : {"13312004", "0231200 ", "ABCDEFGH", "0101    "}) {
    const FileDate d = ParseFileDate(bad, 1);
    EXPECT_TRUE(d.bad) << bad;
    EXPECT_FALSE(d.IsBlank()) << bad;
    EXPECT_FALSE(d == d) << "the bad date equals nothing";
  }
}

TEST(SdifFieldsTest, TimesKeepTextAndScore) {
  const std::vector<std::tuple<std::string, int32_t>> cases = {
      {" 1:02.34", 6234}, {"   59.99", 5999}, {"DQ      ", 0},
      {"NT      ", 0},    {"        ", 0},    {"10:00.00", 60000}};
  for (const auto& [text, score] : cases) {
    const FileTime t = ParseFileTime(text);
    EXPECT_EQ(t.text, text);
    EXPECT_EQ(t.score, score) << text;
  }
}

TEST(SdifFieldsTest, AgeRanges) {
  const std::vector<std::tuple<std::string, int>> cases = {
      {"0810", 810}, {"UN10", 10}, {"11OV", 1199}, {"UNOV", 99},  {"15OV", 1599},
      {"  10", 0},   {"1 10", 0},  {"0010", 0},    {"1000", 0},   {"OVUN", 0},
      {"AB10", 0},   {"1", 0},     {"", 0},        {"1314", 1314}};
  for (const auto& [cols, value] : cases) EXPECT_EQ(ParseAgeRange(cols), value) << cols;
}

}  // namespace
}  // namespace kvlr
