#pragma once
// Workouts travelling as ".wk3" text files, alone or zipped under a name holding
// "WorkoutExport": reading with the mapping of category codes, writing chosen workouts,
// copying a file, and the saved user selections of the workout reports.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

// Comma-separated fields; a field in double quotes may hold commas ("" inside is one quote).
std::vector<std::string> SplitWk3Fields(std::string_view line);

// The sibling programs' backups, refused by name; "" for any other file.
std::string RefuseSiblingBackup(const std::filesystem::path& file);

struct Wk3Summary {
  bool ok = false;
  std::string message;   // "Not a Norvan Workout Export File", "Error reading file; ..."
  std::string version;
  std::string creator;
  std::string created;   // the date as the file gives it, day/month/year
  int workouts = 0;      // lines starting "<W>"
};
Wk3Summary ReadWk3Summary(const std::filesystem::path& file);

// Unpacks a "…WorkoutExport….zip" into `temp_folder` (emptied first). Files: the ".wk3" members;
// message set when there are none or the zip fails.
struct Wk3Unzip {
  std::vector<std::filesystem::path> files;
  std::string message;
};
Wk3Unzip UnzipWorkoutExport(const std::filesystem::path& zip,
                            const std::filesystem::path& temp_folder);

struct Wk3Import {
  bool ok = false;
  int imported = 0;
  std::string message;                         // "Import completed" or the reader's error
  std::map<std::string, std::string> strokes;  // file code -> code given here
  std::map<std::string, std::string> works;
};
// Reads a ".wk3" into the open database: new categories are added (a clashing code gets the
// next free one and lines follow the mapping), each workout gets the next free number and
// belongs to the current athlete (state.gAthlete; "---" with none), notes go to the notes file.
// `progress` is called with "Importing: <n>" at every count ending in 00. An error in a line
// ends the run with what was written kept.
Wk3Import ImportWorkouts(AppState& state, const std::filesystem::path& file,
                         const std::function<void(const std::string&)>& progress = {});

// Writes the workouts `wk_ptrs` (in that order) with their lines, notes and every category as
// one ".wk3" file. `creator` names the writer in the header.
void WriteWk3File(AppState& state, const std::vector<int32_t>& wk_ptrs,
                  const std::filesystem::path& file, const std::string& creator = "KVL-R");
// Packs files into a zip (written through a temporary name).
void gZipWKExportFiles(const std::vector<std::filesystem::path>& files,
                       const std::filesystem::path& zip);
// Exports the workouts dated from..to (inclusive; kNullDate for no bound) into `folder` as
// "<db>-WorkoutExport-<today>.zip" holding "<db>-WorkoutExport.wk3". Returns the zip and the
// count; no file when there is no workout.
struct Wk3Export {
  std::filesystem::path zip;
  int workouts = 0;
};
Wk3Export ExportWorkouts(AppState& state, const std::filesystem::path& folder, const Date& from,
                         const Date& to);

// Copies `file` into `folder`; the message "File copied to <folder>\rFile is named: <name>" or
// "Failed to access <folder>. Quiting.".
std::string CopyWorkoutFile(const std::filesystem::path& file,
                            const std::filesystem::path& folder);

// Saved selections of users for a report ("WK-GroupSel<report>.txt" in the program home; the
// subgroup list "WK-SubgroupSel<report>.txt"), one code a line.
std::filesystem::path GroupSelectionFile(const std::filesystem::path& program_home,
                                         const std::string& report, bool subgroups = false);
std::vector<std::string> ReadGroupSelection(const std::filesystem::path& file);
// An empty list deletes the file.
void SaveGroupSelection(const std::filesystem::path& file, const std::vector<std::string>& codes);
// The marks of `codes` (in selector order) after applying a saved list.
std::vector<bool> gApplyWKFavoriteGroups(const std::vector<std::string>& codes,
                                         const std::vector<std::string>& saved);

}  // namespace kvlr
