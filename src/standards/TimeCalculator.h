#pragma once
// The arithmetic of the "Time Calculator": two times, their sum and difference, and the
// sum divided by a count. Scores are hundredths (see core/TimeText.h).

#include <cstdint>
#include <string>
#include <string_view>

namespace kvlr {

class TimeCalculator {
 public:
  // A time box was left: `text` is replaced by its normalized form and its score kept;
  // the results are renewed.
  void LeaveTime1(std::string& text) { SetTime(time1_, text); }
  void LeaveTime2(std::string& text) { SetTime(time2_, text); }

  // The "Divide by" text as typed (read as VB Val); the results are renewed.
  void SetDivideBy(std::string_view text);
  // The "Divide by" box was left: 0 or empty becomes "1". Returns the box's text.
  std::string LeaveDivideBy(std::string_view text);

  int32_t Time1() const { return time1_; }
  int32_t Time2() const { return time2_; }
  int32_t Sum() const { return time1_ + time2_; }
  // The larger less the smaller.
  int32_t Difference() const;

  // The result boxes: FormatTime(value, true); empty until the first change. The average
  // is FormatTime(round(sum / divide by), true), renewed only while divide by is above 0
  // (and the quotient fits in 32 bits); otherwise it keeps its text.
  const std::string& SumText() const { return sum_text_; }
  const std::string& DifferenceText() const { return difference_text_; }
  const std::string& AverageText() const { return average_text_; }

 private:
  void SetTime(int32_t& slot, std::string& text);
  void Recalculate();

  int32_t time1_ = 0;
  int32_t time2_ = 0;
  double divide_by_ = 1;
  std::string sum_text_;
  std::string difference_text_;
  std::string average_text_;
};

}  // namespace kvlr
