#pragma once
// Course conversion: a time of one pool course as its equal in another.

#include <array>
#include <cstdint>

#include "core/AppState.h"
#include "core/Options.h"

namespace kvlr {

// The 11 factors, as AppState::gCvtFactors holds them.
using CvtFactors = std::array<double, 11>;

// Slots of CvtFactors. A stroke code (1 to 5) is itself the slot of its turn seconds.
namespace cvt {
inline constexpr int kYardsToShort = 0;  // CvtFactor
inline constexpr int kStraight = 6;
inline constexpr int kCvt500 = 7;
inline constexpr int kCvt1650 = 8;
inline constexpr int kType = 9;  // always 2.0

// Error numbers ConvertTime fails with (run-time numbers the error table knows).
inline constexpr int kOverflowError = 6;         // a value beyond 32 bits, or 0 / 0
inline constexpr int kSubscriptError = 9;        // stroke outside 0 to 10
inline constexpr int kDivisionByZeroError = 11;  // a factor of 0 divided by
}  // namespace cvt

// The factors a new database starts with, slot 9 included.
inline constexpr CvtFactors kSeedCvtFactors = {OptionDefaults::kCvtFactor,
                                               OptionDefaults::kFreeTurn,
                                               OptionDefaults::kBackTurn,
                                               OptionDefaults::kBreastTurn,
                                               OptionDefaults::kFlyTurn,
                                               OptionDefaults::kIMTurn,
                                               OptionDefaults::kStraight,
                                               OptionDefaults::kCvt500,
                                               OptionDefaults::kCvt1650,
                                               OptionDefaults::kCvtType,
                                               0};

// The time `time` (hundredths) swum over `distance` in course `from` ('Y', 'S' or 'L') as a
// time of course `to`. Pure arithmetic on the factors. Throws KvlError for a factor of 0
// that is divided by, or a stroke outside 0 to 10.
//
// From == to, or a time of 0, gives the time back before anything else is looked at (the
// stroke included). A distance whose fifties round beyond a byte (above 12774 or below -25)
// and a result beyond 32 bits throw KvlError(cvt::kOverflowError).
int32_t ConvertTime(const CvtFactors& factors, int16_t distance, int32_t time, int16_t stroke,
                    char from, char to);

// The same with the factors of the open database; a failure is reported as
// "basUtil.ConvertTime" and gives 0.
int32_t ConvertTime(AppState& state, int16_t distance, int32_t time, int16_t stroke, char from,
                    char to);

}  // namespace kvlr
