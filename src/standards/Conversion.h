#pragma once
// Course conversion: a time of one pool course as its equal in another.

#include <array>
#include <cstdint>

#include "core/AppState.h"

namespace kvlr {

// The 11 factors, as AppState::gCvtFactors holds them.
using CvtFactors = std::array<double, 11>;

// The time `time` (hundredths) swum over `distance` in course `from` ('Y', 'S' or 'L') as a
// time of course `to`. Pure arithmetic on the factors. Throws KvlError for a factor of 0
// that is divided by, or a stroke outside 0 to 10.
int32_t ConvertTime(const CvtFactors& factors, int16_t distance, int32_t time, int16_t stroke,
                    char from, char to);

// The same with the factors of the open database; a failure is reported as
// "basUtil.ConvertTime" and gives 0.
int32_t ConvertTime(AppState& state, int16_t distance, int32_t time, int16_t stroke, char from,
                    char to);

}  // namespace kvlr
