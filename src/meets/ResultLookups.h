#pragma once
// The standard and conversion columns of the results browser, bound to the open database:
// GetStandard on the current standard and ConvertTime with the database's factors.

#include "core/AppState.h"
#include "meets/ResultsQuery.h"

namespace kvlr {

// The level of a result in the current standard (an individual swim, the swimmer's sex).
// `state` must outlive the function.
StandardLookup CurrentStandardLookup(AppState& state);

// ConvertTime with state.gCvtFactors; a failure is reported and gives 0.
TimeConverter StateTimeConverter(AppState& state);

}  // namespace kvlr
