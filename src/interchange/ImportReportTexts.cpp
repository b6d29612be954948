#include "interchange/ImportReportTexts.h"

#include "core/DateText.h"
#include "core/SwimCodes.h"
#include "core/TimeText.h"
#include "core/VbRules.h"
#include "interchange/SdifFields.h"

namespace kvlr {

std::string ReportDistText(int distance) {
  if (distance >= 9991 && distance <= 9993) {
    return Trim(DistanceList()[static_cast<size_t>(distance - 9980)]);
  }
  if (distance == 0) return "";
  return std::to_string(distance);
}

std::string ReportStrokeText(int stroke, std::string_view i_r) {
  if (stroke == 6 || stroke == 7) return std::string(kDivingWord);
  return StrokeText(stroke, i_r);
}

std::string ReportDateText(std::string_view mmddyyyy, int date_order) {
  const FileDate date = ParseFileDate(mmddyyyy, date_order);
  if (date.IsBlank()) return "";
  if (date.bad) return Trim(mmddyyyy);
  return ShownDate(date.date, date_order);
}

std::string ReportScoreText(int score, int stroke, int nt) {
  if (score == 0 && nt <= 0) return "";
  return Trim(ScoreText(score, stroke, "", nt));
}

}  // namespace kvlr
