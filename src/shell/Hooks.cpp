#include "shell/Hooks.h"

#include "meets/Favorites.h"
#include "meets/MeetHooks.h"
#include "standards/Standards.h"

namespace kvlr {

void InstallHooks(AppState& state) {
  InstallMeetHooks(state);
  InstallStandardHooks(state);
  InstallFavoriteHooks(state);
}

}  // namespace kvlr
