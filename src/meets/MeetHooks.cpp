#include "meets/MeetHooks.h"

#include "meets/Ranking.h"
#include "store/StoreTexts.h"

namespace kvlr {

void InstallMeetHooks(AppState& state) {
  state.hooks.rerank_all = [](AppState& s) {
    AddRank(s, store_text::kReranking);
    AddRankIndividualRelayLeg(s, store_text::kReranking);
  };
}

}  // namespace kvlr
