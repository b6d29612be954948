#pragma once
// Workout headers (`WkParam`): the list, add, edit, delete, save-as, find and purge, with the
// checks of the header dialog. Lines are read and written through WorkoutLines.h; the line
// editing steps are in LineEdits.h.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/Date.h"

namespace kvlr {

struct WkHeader {
  int32_t wk_ptr = 0;  // 0 for a header not yet stored
  int32_t wk_num = 0;
  Date wk_date = kNullDate;
  int32_t start_time = 960;   // minutes
  int16_t rest_period = 60;   // seconds
  std::string group_abbr = "---";
  std::string subgroup_abbr = " ";
  std::string course_yls = "Y";
  int32_t tot_yards = 0;
  int32_t tot_stress = 0;
  bool ck_selected = false;
};

// Sort columns of the list; each alternates ascending and descending.
enum class WorkoutSort { kNumber, kDate, kUser, kDistance, kStress };
// The clause behind " order by ", as the list header gives it.
std::string WorkoutOrderClause(WorkoutSort column, bool descending);

// The list: every header, or those of `user` unless it is "0"; in `order_clause` (one of
// WorkoutOrderClause's texts; anything else falls back to the number order).
std::vector<WkHeader> ListWorkouts(SQLite::Database& db, const std::string& user = "0",
                                   const std::string& order_clause = "wk_num");
std::optional<WkHeader> ReadWorkout(SQLite::Database& db, int32_t wk_ptr);
// Highest wk_num + 1 (1 for an empty table).
int32_t NextWorkoutNumber(SQLite::Database& db);

struct HeaderEntry {
  int32_t wk_ptr = 0;  // 0 when adding
  int32_t wk_num = 0;
  Date wk_date = kNullDate;
  std::string start_text = "04:00 PM";  // clock text, "hh:mm AM"
  std::string rest_text = "01:00";      // "mm:ss"
  bool yards = true;
  std::string user = "0";  // the list's user; "0" stores "---"
};
// The dialog's checks in order: number free (unless unchanged), start time, rest. Returns the
// message ("" when all pass) and which box gets the focus: 1 number, 2 start, 3 rest.
struct HeaderCheck {
  std::string message;
  int field = 0;
};
HeaderCheck CheckWorkoutHeader(SQLite::Database& db, const HeaderEntry& entry);
// Writes the header (adds when entry.wk_ptr is 0); returns the wk_ptr. Runs no checks.
int32_t SaveWorkoutHeader(SQLite::Database& db, const HeaderEntry& entry);
// Deletes the header and all its lines in one transaction; the note stays until compaction.
void DeleteWorkout(SQLite::Database& db, int32_t wk_ptr);
// "Delete Workout #<n> dated <date> ?" with the date as the list shows it.
std::string DeleteWorkoutQuestion(const WkHeader& header);

// Save As: copies every line of `source` under the header written from `entry` (wk_ptr 0) and
// appends the source's note under the new key to `notes_file` when it has one. The new wk_ptr.
int32_t SaveWorkoutAs(SQLite::Database& db, int32_t source, const HeaderEntry& entry,
                      const std::filesystem::path& notes_file, const DateTime& now);

// Find: the first header at or after (ascending) / at or before (descending) a date or number,
// in the list's order; nullopt when none.
std::optional<int32_t> FindWorkoutByDate(SQLite::Database& db, const Date& date, bool descending,
                                         const std::string& user = "0");
std::optional<int32_t> FindWorkoutByNumber(SQLite::Database& db, int32_t number, bool descending,
                                           const std::string& user = "0");

// Deletes every workout header and line; memorized sets, categories and notes stay.
void PurgeWorkouts(SQLite::Database& db);

}  // namespace kvlr
