#pragma once
// The conversion factors as "Course Conversion Setup" shows and saves them, the rule of
// its Straight box, and its help texts.

#include <array>
#include <string_view>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"

namespace kvlr {

// Slots 0 to 8 of the factors (see Conversion.h) and the Y2L choice.
struct ConversionSettings {
  std::array<double, 9> factors{};
  bool y2l = true;
  bool operator==(const ConversionSettings&) const = default;
};

// The first OPTIONS row; NULL fields read as 0 (false). With no row: the seeds.
// Store failures throw.
ConversionSettings ReadConversionSettings(SQLite::Database& db);

// Saves at once for the whole program: the nine factors go to state.gCvtFactors (slot 9
// stays 2.0, slot 10 stays 0), Y2L to state.gY2L and, in one transaction, all ten
// conversion fields (CvtType as 2) and Y2L to the first OPTIONS row (a row is added when
// there is none).
// Throws KvlError(err::kAppData) with no database open, store errors as they come; the
// array and gY2L are only changed once the row is written.
void SaveConversionSettings(AppState& state, const ConversionSettings& settings);

// What leaving the Straight box does.
struct StraightCheck {
  bool turns_enabled = true;   // the five per-turn boxes
  bool reset_to_zero = false;  // the box is set to "0"
  std::string_view message;    // to show first, empty for none
};

// The highest straight factor accepted.
inline constexpr double kMaxStraight = 0.1;

// 0: per-turn boxes enabled; not 0 and at most 0.1: disabled; above 0.1: kStraightTooHigh,
// the box back to 0 and the boxes enabled.
StraightCheck CheckStraight(double value);

// The screen's words.
inline constexpr std::string_view kConvertTitle = "Course Conversion Setup";
inline constexpr std::string_view kStraightTooHigh = "Maximum allowable is 0.1 ( 10% )";
inline constexpr std::string_view kLcToYards = "LC Meters to Yards";
inline constexpr std::string_view kLcToShort = "LC Meters to SC Meters";

inline constexpr std::string_view kYardsGroup =
    "Yards to SC Meters -and- SC Meters to Yards Conversion Factors";
inline constexpr std::string_view kYardsHelp =
    "Enter a factor to be used to convert Yard times to SC Meters and vice-versa. (Multiply "
    "Yards by factor to get SC Meters and divide SC Meters by factor to get Yards.)";

inline constexpr std::string_view kTurnGroup = "SC Meters to / from LC Meters Turn Factors";
inline constexpr std::string_view kTurnHelp =
    "Add the turn factors when going from SC Meters to LC Meters. Subtract the turn factors "
    "when going from LC Meters to SC Meters.";
inline constexpr std::string_view kStraightHelp = "Typical straight turn factor is  .02  ( 2 %)";
inline constexpr std::array<std::string_view, 5> kTurnExample = {
    "LC 200 Meters has 3 turns.", "SC 200 Meters has 7 turns (4 extra turns).",
    "SC to LC add 3.2 seconds (.8 x 4 turns)", "LC to SC subtract 3.2 seconds (.8 x 4 turns)",
    "2:00.00 SC converts to 2:03.20 LC"};

inline constexpr std::string_view kLongGroup =
    "Long Distance Conversion Factors (Yards to/from Meters Only)";
inline constexpr std::string_view kCvt500Caption =
    "500 Yards to 400 Meters and 1000 Yards  to 800 Meters:";
inline constexpr std::string_view kCvt500Typical = "Typical factor is 0.875";
inline constexpr std::string_view kCvt1650Caption = "1650 Yards to 1500 Meters:";
inline constexpr std::string_view kCvt1650Typical = "Typical factor is 1.006";
inline constexpr std::string_view kLongToMeters = "Yards to Meters, multiply by conversion factor.";
inline constexpr std::string_view kLongToYards = "Meters to Yards, divide by conversion factor.";
inline constexpr std::string_view kLongOrder =
    "the conversion factor is applied first then the selected turn factor is applied";

}  // namespace kvlr
