#include "core/DateText.h"

#include <gtest/gtest.h>
#include "core/Date.h"

namespace kvlr {
namespace {

TEST(AgeAtDateTest, WholeYearsAndZeroWhenUnknown) {
  // clang-format off
  const std::vector<std::tuple<Date, Date, int16_t>> cases = {  // birth, date, age
      {{2010, 6, 15}, {2020, 6, 15}, 10}, {{2010, 6, 15}, {2020, 6, 14}, 9},
      {{2010, 6, 15}, {2020, 7, 1}, 10}, {{2010, 6, 15}, {2020, 5, 30}, 9},
      {{2008, 2, 29}, {2021, 2, 28}, 12}, {{2008, 2, 29}, {2021, 3, 1}, 13},
      {{2008, 2, 29}, {2024, 2, 29}, 16}, {{2010, 6, 15}, {2010, 6, 15}, 0}};
  // clang-format on
  for (const auto& [birth, date, age] : cases) {
    EXPECT_EQ(AgeAtDate(birth, date), age) << birth.Iso() << " " << date.Iso();
  }
  const Date date{2020, 6, 15};
  EXPECT_EQ(AgeAtDate(std::nullopt, date), 0);
  EXPECT_EQ(AgeAtDate(Date{2000, 1, 1}, std::nullopt), 0);
  EXPECT_EQ(AgeAtDate(kNullDate, date), 0);
  EXPECT_EQ(AgeAtDate(Date{2000, 2, 30}, date), 0);
}

TEST(DetectDateOrderTest, FirstFieldOfThePattern) {
  // clang-format off
  const std::vector<std::pair<std::string, int>> cases = {
      {"%m/%d/%y", 0}, {"%D", 0}, {"%b %d %Y", 0}, {"", 0},
      {"%d.%m.%Y", 1}, {"%e/%m/%Y", 1}, {"%-d.%-m.%Y", 1}, {"%a %d %b %Y", 1},
      {"%Y-%m-%d", 2}, {"%F", 2}, {"%y/%m/%d", 2}, {"%Ey/%m/%d", 2}, {"%Y\xE5\xB9\xB4%m", 2}};
  // clang-format on
  for (const auto& [pattern, expected] : cases) {
    EXPECT_EQ(DetectDateOrder(pattern), expected) << pattern;
  }
}

TEST(DateTextTest, UsAndRegionalTextsBothWays) {
  const Date dates[] = {{2001, 3, 7}, {1999, 12, 31}, {2012, 2, 29}, {1900, 1, 1}};
  for (int order = 0; order <= 2; ++order) {
    for (const Date& d : dates) {
      EXPECT_EQ(USTextToDate(USDateText(d), order), d) << order << " " << d.Iso();
    }
    EXPECT_EQ(USTextToDate("02/30/2001", order), std::nullopt) << order;
    EXPECT_EQ(USTextToDate("13/01/2001", order), std::nullopt) << order;
  }
  EXPECT_EQ(ToRegionalDate("03072001", 0), "03/07/2001");
  EXPECT_EQ(ToRegionalDate("03072001", 1), "07/03/2001");
  EXPECT_EQ(ToRegionalDate("03072001", 2), "2001/03/07");
  EXPECT_EQ(USDateText(Date{2001, 3, 7}), "03/07/2001");
  const Date march7{2001, 3, 7};
  const std::optional<Date> none;
  // clang-format off
  const std::vector<std::tuple<const char*, int, std::optional<Date>>> cases = {
      {"7.3.2001", 1, march7}, {"2001-03-07", 2, march7}, {" 3/7/2001 ", 0, march7},
      {"3/7/01", 0, march7}, {"3/7/45", 0, Date{1945, 3, 7}},
      {"3/7", 0, none}, {"3/7/2001/1", 0, none}, {"a/7/2001", 0, none}, {"3/7/", 0, none},
      {"13/7/2001", 0, none}, {"3/7/20011", 0, none}, {"", 0, none}};
  // clang-format on
  for (const auto& [text, order, expected] : cases) {
    EXPECT_EQ(RegionalTextToDate(text, order), expected) << text;
  }
}

TEST(DateTextTest, ShownFormReadsBackAndTypedFieldsTakeIso) {
  // Day 3 of month 11 tells the orders apart; year 987 checks the four-digit year.
  const std::tuple<int, Date, const char*> cases[] = {{0, {2026, 11, 3}, "11/03/2026"},
                                                      {1, {2026, 11, 3}, "03/11/2026"},
                                                      {2, {2026, 11, 3}, "2026-11-03"},
                                                      {1, {987, 1, 2}, "02/01/0987"}};
  for (const auto& [order, date, shown] : cases) {
    EXPECT_EQ(ShownDate(date, order), shown) << order;
    EXPECT_EQ(TypedDate(shown, order), date) << shown;
    EXPECT_EQ(TypedDate(" " + date.Iso() + " ", order), date) << order;
    EXPECT_EQ(TypedDate("03-Nov-26", order), std::nullopt) << order;
  }
}

TEST(Date, IsoTextRoundTripsRefusesWhatIsNotADayAndCountsDays) {
  EXPECT_EQ(Date::FromIso("2024-02-29")->Iso(), "2024-02-29");
  EXPECT_EQ(DateTime::FromIso("2026-11-22 23:59:58")->Iso(), "2026-11-22 23:59:58");
  EXPECT_EQ(DateTime::FromIso("2026-11-22")->Iso(), "2026-11-22 00:00:00");
  for (const char* bad : {"2023-02-29", "2026-13-01", "2026-00-10", "26-11-22", "2026/11/22", "",
                          "2026-11-22 24:00:00", "2026-11-2x"}) {
    EXPECT_FALSE(DateTime::FromIso(bad).has_value()) << bad;
  }
  EXPECT_EQ(DaysBetween(Date{2026, 11, 15}, Date{2026, 11, 22}), 7);
  EXPECT_EQ(DaysBetween(Date{2024, 3, 1}, Date{2024, 2, 28}), -2);
  EXPECT_EQ(AddDays(Date{2024, 2, 28}, 1), (Date{2024, 2, 29}));
  EXPECT_EQ(AddDays(Date{2026, 12, 31}, 1), (Date{2027, 1, 1}));
  EXPECT_EQ(Weekday(Date{2026, 11, 22}), 0);  // a Sunday
}

}  // namespace
}  // namespace kvlr
