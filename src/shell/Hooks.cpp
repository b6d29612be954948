#include "shell/Hooks.h"

#include "meets/Favorites.h"
#include "meets/MeetHooks.h"
#include "standards/Standards.h"
#include "workouts/WorkoutNotes.h"

namespace kvlr {

void InstallHooks(AppState& state) {
  InstallMeetHooks(state);
  InstallStandardHooks(state);
  InstallFavoriteHooks(state);
  InstallWorkoutHooks(state);
}

}  // namespace kvlr
