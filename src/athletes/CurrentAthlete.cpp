#include "athletes/CurrentAthlete.h"

#include <SQLiteCpp/Statement.h>

#include "core/Columns.h"
#include "core/DateText.h"
#include "core/VbRules.h"

namespace kvlr {
namespace {

// A stored date (a time of day counts by its date part); `fallback` when none or unreadable.
Date DateOr(const SQLite::Column& column, Date fallback) {
  if (column.isNull()) return fallback;
  return Date::FromIso(column.getString()).value_or(fallback);
}

}  // namespace

std::string AthleteDisplayName(std::string_view pref, std::string_view first,
                               std::string_view initial, std::string_view last) {
  std::string name = Trim(pref);
  if (name.empty()) name = Trim(first);
  const std::string init = Trim(initial);
  if (!init.empty()) name += " " + init;
  name += " " + Trim(last);
  return name;
}

bool SetCurrentAthlete(AppState& state, int32_t athlete) {
  SQLite::Statement row(*state.gDb,
                        "SELECT Pref, First, Initial, Last, Birth, Sex, StartMeet, EndMeet "
                        "FROM Athlete WHERE Athlete = ?");
  row.bind(1, athlete);
  if (!row.executeStep()) return false;
  const std::string pref = TextOf(row.getColumn(0));
  const std::string first = TextOf(row.getColumn(1));
  const std::string initial = TextOf(row.getColumn(2));
  const std::string last = TextOf(row.getColumn(3));

  state.gAthlete = athlete;
  state.gAthleteName = AthleteDisplayName(pref, first, initial, last);
  state.gAthleteFirst = UCase(Trim(first));
  state.gAthleteLast = UCase(Trim(last));
  state.gAthletePref = UCase(Trim(pref));
  state.gAthleteBirth = DateOr(row.getColumn(4), state.gNullDate);
  state.gAthleteSex = UCase(Trim(TextOf(row.getColumn(5))));
  state.gAthleteAge = AgeAtDate(state.gAthleteBirth, state.clock->Today());
  state.gMeetBandStart = DateOr(row.getColumn(6), state.gNullDate);
  state.gMeetBandEnd = DateOr(row.getColumn(7), state.gNullDate);
  return true;
}

}  // namespace kvlr
