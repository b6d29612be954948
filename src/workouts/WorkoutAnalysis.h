#pragma once
// What a workout was made of: its distance and send-off time split over energy levels, stroke
// categories and types of work. Shown by frmWorkoutAnalysis and printed in the logbook.

#include <string>
#include <vector>

#include "workouts/WorkoutArrays.h"
#include "workouts/WorkoutLines.h"

namespace kvlr {

struct AnalysisRow {
  std::string key;       // the code as the lines hold it, trimmed
  std::string name;      // through the arrays; "Undefined" for an unknown or empty code
  long distance = 0;
  std::string distance_percent;  // "37.50%"
  long seconds = 0;
  std::string time_percent;
};

struct WorkoutAnalysis {
  bool any = false;  // false: "Nothing to analyze for this workout."
  long total_distance = 0;
  long total_seconds = 0;
  // Largest distance first (ties by name, descending).
  std::vector<AnalysisRow> energy, stroke, work;
};

// Lines of distance 0 are skipped; a line of a circuit counts circuit_reps times. A work type
// of several letters is split evenly over its letters (each share rounded half to even).
WorkoutAnalysis AnalyzeWorkout(const std::vector<WkLine>& lines, const EnergyArray& energy,
                               const std::vector<WorkStrokeEntry>& work_stroke);

// part * 100 / total cut (not rounded) to two decimals with "%": "33.33%"; "0.00%" when total
// is 0.
std::string AnalysisPercent(long part, long total);
// seconds / 60 cut to one decimal, ".0" added when whole: "12.5", "3.0".
std::string AnalysisMinutes(long seconds);

inline constexpr std::string_view kNothingToAnalyze = "Nothing to analyze for this workout.";

}  // namespace kvlr
