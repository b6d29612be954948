#pragma once
// The training-log tables of a user database and their seeded rows, and the workout
// tables of the report database.

#include <string>
#include <vector>

#include "store/Schema.h"

namespace kvlr {

// In the order the completion of an opened file tests them.
const std::vector<TableDef>& WorkoutTables();
// WKLOGBOOK, PARAMETERS, WKSTATS: the report database's workout tables, in check order.
const std::vector<TableDef>& WorkoutReportTables();

struct EnergySeed {
  int energy_no;
  const char* abbr;
  const char* name;
  int stress_index;
};
const std::vector<EnergySeed>& EnergySeeds();
// (abbreviation, name) rows of StrokeCategory and WorkCategory, in seeding order.
const std::vector<std::pair<const char*, const char*>>& StrokeCategorySeeds();
const std::vector<std::pair<const char*, const char*>>& WorkCategorySeeds();
const std::vector<const char*>& SetDescriptionSeeds();

}  // namespace kvlr
