#pragma once
// `kvlr demo`: a database of a made-up family built through the program's own routines:
// new database, athlete cards, the import of meet files the demo writes beside it, meet
// types, relay legs, a time standard made current, goals, favourite filters, a meet ahead
// with entries, four weeks of workouts entered line by line with their totals, calendar
// events, health records and journal entries, favourite folders and a backup.

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/AppState.h"
#include "demo/DemoPlan.h"

namespace kvlr::demo {

// A routine refused or failed; what() names the step and the words the program showed.
class DemoError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct DemoSummary {
  std::filesystem::path database;
  std::filesystem::path meets_folder;  // <name>-meets beside the database
  std::filesystem::path backup;        // the zip, in <name>-backups beside the database
  std::vector<std::filesystem::path> meet_files;
  int swimmers = 0, meets = 0, results = 0, relay_legs = 0, splits = 0, goals = 0, favorites = 0;
  int workouts = 0, events = 0, health = 0, journal = 0;
};

// Builds the demo at `database` (a name the Open/New dialog takes, ending ".mdb"; refused
// when the file exists) with the plan of state.clock's today. Questions the routines ask
// are answered Yes; their plain boxes are kept and only shown inside a DemoError. The
// database stays open in `state` with the first swimmer current.
DemoSummary BuildDemo(AppState& state, const std::filesystem::path& database,
                      uint32_t seed = kSeed);

}  // namespace kvlr::demo
