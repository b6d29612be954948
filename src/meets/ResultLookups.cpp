#include "meets/ResultLookups.h"

#include "standards/Conversion.h"
#include "standards/Standards.h"

namespace kvlr {

StandardLookup CurrentStandardLookup(AppState& state) {
  return [&state](const ResultRecord& r, int16_t age) {
    int16_t designator = 0;
    return GetStandard(state, designator, r.score, r.sex, r.distance, r.stroke, age, r.course,
                       false);
  };
}

TimeConverter StateTimeConverter(AppState& state) {
  return [&state](int16_t distance, int32_t score, int16_t stroke, char from, char to) {
    return ConvertTime(state, distance, score, stroke, from, to);
  };
}

}  // namespace kvlr
