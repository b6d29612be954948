#pragma once
// The text of the two workout reports: the logbook (a block of fixed-width lines per workout)
// and the statistics (tables of totals by cycles of days). The report frame writes these
// lines into WKLOGBOOK / WKSTATS and prints them; the layout is made here, by padding.

#include <cstdint>
#include <string>
#include <vector>

#include "core/AppState.h"
#include "core/Date.h"
#include "workouts/WorkoutAnalysis.h"
#include "workouts/WorkoutStore.h"

namespace kvlr {

struct ReportTextLine {
  std::string text;  // cut to 140 characters
  bool bold = false;
};

struct LogbookOptions {
  bool by_number = false;
  Date from_date = kNullDate, to_date{2050, 1, 1};
  int32_t from_number = 0, to_number = 2147483647;
  bool energy = true, strokes = true, times = true, notes = true, analysis = false,
       stress = true, paces = true;
  std::vector<std::string> users;  // group_abbr codes; empty: all users
  bool selected_users = false;     // with an empty `users`: "There are no Users Selected."
};

struct LogbookWorkout {
  WkHeader header;
  std::string user_name;
  std::vector<ReportTextLine> lines;
};

struct LogbookResult {
  std::string message;  // why nothing is printed; "" when workouts are
  std::vector<LogbookWorkout> workouts;
};

// The logbook of the workouts in range (by date: date then start time; by number), notes from
// the database's notes file and the base interval from the start parameters.
LogbookResult BuildLogbook(AppState& state, const LogbookOptions& options);

// One workout's block from its lines table (End row included), note text and analysis (null
// when not asked or empty).
std::vector<ReportTextLine> LogbookBlock(const WkHeader& header, const std::string& user_name,
                                         const WkTable& lines, const std::string& note,
                                         const WorkoutAnalysis* analysis,
                                         const LogbookOptions& options);

enum class StatType { kEnergy, kStroke, kWork, kDistance, kStress };
struct StatsOptions {
  StatType type = StatType::kDistance;
  bool meters = false;   // totals in meters
  bool minutes = false;  // data as minutes, not distance
  int cycle_days = 7;
  Date start = kNullDate, end = kNullDate;
  std::vector<std::string> users;  // empty: all
};

struct StatsTable {
  std::string title;
  std::vector<ReportTextLine> lines;
};
struct StatsResult {
  std::string message;  // the refusal or "No workouts found with current filter settings."
  int focus_days = 0;   // 1 when the message concerns the cycle box
  std::string heading;  // the heading of every table
  std::vector<StatsTable> tables;
};
// Whole cycles of the range, a part cycle counting as one.
int StatCycles(const Date& start, const Date& end, int cycle_days);
StatsResult BuildWorkoutStats(AppState& state, const StatsOptions& options);

inline constexpr std::string_view kNoWorkoutsYet = "No workouts have been created yet.";
inline constexpr std::string_view kNoWorkoutsInDates =
    "There are no workouts within the selected date range.";
inline constexpr std::string_view kNoWorkoutsInNumbers =
    "There are no workouts within the selected workout number range.";
inline constexpr std::string_view kNoUsersSelected = "There are no Users Selected.";
inline constexpr std::string_view kNoWorkoutsFound = "No workouts found with current filter settings.";
inline constexpr std::string_view kStartAfterEnd = "Start date cannot be later than end date.";
inline constexpr std::string_view kBadCycle = "The Days in Cycle must be from 1 to 1461 days.";

}  // namespace kvlr
