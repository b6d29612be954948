#pragma once
// Time standards: the levels a swim reaches in the current standard.

#include <cstdint>
#include <string>
#include <string_view>

#include "core/AppState.h"

namespace kvlr {

// Opens the standard named in OPTIONS.Standard (state.gStandardName) and loads
// state.gDesignators; with no such standard the designators are emptied.
void OpenCurrentStandard(AppState& state);

// The level `score` reached in the current standard for the swim described; `designator`
// receives its number (1 to 12) or 0. "" when no level was reached or no standard is open.
std::string GetStandard(AppState& state, int16_t& designator, int32_t score, std::string_view sex,
                        int16_t distance, int16_t stroke, int16_t age, std::string_view course,
                        bool relay);

}  // namespace kvlr
