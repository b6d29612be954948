#include <gtest/gtest.h>

#include "core/Date.h"

namespace kvlr {
namespace {

TEST(Date, IsoTextRoundTripsAndRefusesWhatIsNotADay) {
  EXPECT_EQ(Date::FromIso("2024-02-29")->Iso(), "2024-02-29");
  EXPECT_EQ(DateTime::FromIso("2026-11-22 23:59:58")->Iso(), "2026-11-22 23:59:58");
  EXPECT_EQ(DateTime::FromIso("2026-11-22")->Iso(), "2026-11-22 00:00:00");
  for (const char* bad : {"2023-02-29", "2026-13-01", "2026-00-10", "26-11-22", "2026/11/22", "",
                          "2026-11-22 24:00:00", "2026-11-2x"}) {
    EXPECT_FALSE(DateTime::FromIso(bad).has_value()) << bad;
  }
}

TEST(Date, DayArithmeticCrossesMonthsAndLeapDays) {
  EXPECT_EQ(DaysBetween(Date{2026, 11, 15}, Date{2026, 11, 22}), 7);
  EXPECT_EQ(DaysBetween(Date{2024, 3, 1}, Date{2024, 2, 28}), -2);
  EXPECT_EQ(AddDays(Date{2024, 2, 28}, 1), (Date{2024, 2, 29}));
  EXPECT_EQ(AddDays(Date{2026, 12, 31}, 1), (Date{2027, 1, 1}));
  EXPECT_EQ(Weekday(Date{2026, 11, 22}), 0);  // a Sunday
}

}  // namespace
}  // namespace kvlr
