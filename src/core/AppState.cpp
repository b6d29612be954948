#include "core/AppState.h"

namespace kvlr {

void AppState::CloseCurrentDB() {
  if (!gDb) return;
  gTitle = std::string(kProgramTitle);
  gDbOpen = false;
  gDb.reset();
}

void AppState::ClearAthlete() {
  gAthlete = 0;
  gAthleteName.clear();
  gAthleteFirst.clear();
  gAthleteLast.clear();
  gAthletePref.clear();
  gAthleteBirth = gNullDate;
  gAthleteSex.clear();
  gAthleteAge = 0;
}

}  // namespace kvlr
