#include "standards/TimeCalculator.h"

#include <algorithm>
#include <cmath>

#include "core/TimeText.h"
#include "core/VbRules.h"

namespace kvlr {

void TimeCalculator::SetTime(int32_t& slot, std::string& text) {
  slot = TimeTextToScore(text);
  Recalculate();
}

void TimeCalculator::SetDivideBy(std::string_view text) {
  divide_by_ = Val(text);
  Recalculate();
}

std::string TimeCalculator::LeaveDivideBy(std::string_view text) {
  std::string result = Val(text) == 0 ? std::string("1") : std::string(text);
  SetDivideBy(result);
  return result;
}

int32_t TimeCalculator::Difference() const {
  return std::max(time1_, time2_) - std::min(time1_, time2_);
}

void TimeCalculator::Recalculate() {
  sum_text_ = FormatTime(Sum(), true);
  difference_text_ = FormatTime(Difference(), true);
  if (divide_by_ > 0) {
    const double average = Sum() / divide_by_;
    if (average < 2147483647.5) {
      average_text_ = FormatTime(static_cast<int32_t>(RoundHalfEven(average)), true);
    }
  }
}

}  // namespace kvlr
