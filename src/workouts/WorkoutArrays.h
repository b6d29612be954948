#pragma once
// The lookup arrays of the workout screens, loaded when a screen opens and after a change of
// the categories, and the name lookups over them.

#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "workouts/WorkoutLines.h"

namespace kvlr {

// Entry 0 " ", "Undefined ", 0; entries 1..9 from `Energy` by energy_no (missing: " ", " ", 0).
EnergyArray gLoadWKEnergyArray(SQLite::Database& db);

struct WorkStrokeEntry {
  std::string abbr;
  std::string name;
  int kind = 1;  // 1 a type of work (WorkCategory), 2 a stroke category (StrokeCategory)
};
// Work types in code order, then stroke categories in code order; an empty table is stood in
// for by "S" "Swim" or "FR" "Free".
std::vector<WorkStrokeEntry> gLoadWKWorkStrokeArray(SQLite::Database& db);
// Set descriptions in name order; {"Freestyle"} when the table is empty.
std::vector<std::string> gLoadWKSetDescArray(SQLite::Database& db);

struct WorkoutUser {
  std::string code;  // athlete number as text; "0" for entry 0, "---" for generic
  std::string name;
};
// Entry 0 "0" "Unknown", then each athlete (number, display name) in key order.
std::vector<WorkoutUser> LoadWorkoutUsers(SQLite::Database& db);
// The selector built beside it: "---" "Generic", then the athletes.
std::vector<WorkoutUser> WorkoutUserSelector(const std::vector<WorkoutUser>& users);
// Pref when not blank, else First [Initial] Last, trimmed.
std::string WorkoutUserName(std::string_view pref, std::string_view first,
                            std::string_view initial, std::string_view last);
// The name of a group_abbr through the user array; "Generic" for "---", "" when unknown.
std::string UserNameOf(const std::vector<WorkoutUser>& users, std::string_view code);

// Name of an energy abbreviation (entries 1 up); "Undefined" when none or blank.
std::string EnergyName(const EnergyArray& energy, std::string_view abbr);
// Name of a work (kind 1) or stroke (kind 2) code, case ignored; "Undefined" when none.
std::string WorkStrokeName(const std::vector<WorkStrokeEntry>& array, std::string_view abbr,
                           int kind);
// True when every letter of `work_type` (blanks skipped, case ignored) is a kind 1 code.
bool ValidWorkType(const std::vector<WorkStrokeEntry>& array, std::string_view work_type);

}  // namespace kvlr
