#include <gtest/gtest.h>

#include "standards/TimeCalculator.h"

namespace kvlr {
namespace {

TEST(TimeCalculator, TimesAreNormalizedWhenLeft) {
  TimeCalculator calc;
  std::string text = "5123";
  calc.LeaveTime1(text);
  EXPECT_EQ(text, "00:51.23");
  EXPECT_EQ(calc.Time1(), 5123);
  text = "1:";
  calc.LeaveTime2(text);
  EXPECT_EQ(text, "01:00.00");
  EXPECT_EQ(calc.Time2(), 6000);
}

TEST(TimeCalculator, SumAndDifferenceWhicheverTimeIsLarger) {
  for (bool larger_first : {true, false}) {
    TimeCalculator calc;
    std::string large = "1:02.50", small = "58.75";
    calc.LeaveTime1(larger_first ? large : small);
    calc.LeaveTime2(larger_first ? small : large);
    EXPECT_EQ(calc.Sum(), 12125);
    EXPECT_EQ(calc.Difference(), 375);
    EXPECT_EQ(calc.SumText(), " 2:01.25");
    EXPECT_EQ(calc.DifferenceText(), "   03.75");
  }
}

TEST(TimeCalculator, AverageIsTheRoundedQuotient) {
  TimeCalculator calc;
  std::string a = "30.01", b = "30.00";  // 6001 hundredths
  calc.LeaveTime1(a);
  calc.LeaveTime2(b);
  EXPECT_EQ(calc.AverageText(), " 1:00.01");  // divide by 1 at first
  calc.SetDivideBy("2");
  EXPECT_EQ(calc.AverageText(), "   30.00");  // 3000.5 to even
  calc.SetDivideBy("4");
  EXPECT_EQ(calc.AverageText(), "   15.00");  // 1500.25
}

TEST(TimeCalculator, DivideByZeroOrEmptyBecomesOne) {
  TimeCalculator calc;
  std::string a = "1:00.00";
  calc.LeaveTime1(a);
  calc.SetDivideBy("3");
  ASSERT_EQ(calc.AverageText(), "   20.00");
  // While typed, 0 leaves the average as it was.
  calc.SetDivideBy("0");
  EXPECT_EQ(calc.AverageText(), "   20.00");
  EXPECT_EQ(calc.LeaveDivideBy("0"), "1");
  EXPECT_EQ(calc.AverageText(), " 1:00.00");
  EXPECT_EQ(calc.LeaveDivideBy(""), "1");
  EXPECT_EQ(calc.LeaveDivideBy("6"), "6");
  EXPECT_EQ(calc.AverageText(), "   10.00");
}

}  // namespace
}  // namespace kvlr
