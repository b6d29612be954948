#pragma once
// The steps of meets and results that shared flows (repair) call through state.hooks.

#include "core/AppState.h"

namespace kvlr {

// Sets state.hooks.rerank_all: AddRank, then AddRankIndividualRelayLeg, under the repair's
// progress line "Reranking Individual Results...".
void InstallMeetHooks(AppState& state);

}  // namespace kvlr
