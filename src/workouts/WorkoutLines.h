#pragma once
// A workout's lines as the store keeps them, and gGetWorkoutLines: every derived text, clock
// time, distance and stress value of a workout, the End row included. The arithmetic is a
// pure function over the rows; a store form reads the rows and writes the derived fields back.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "core/AppState.h"

namespace kvlr {

// One row of `Workout`. Texts are stored as one blank when empty.
struct WkLine {
  int32_t wk_ptr = 0;
  int16_t wk_line = 0;          // 1..n without gaps within a workout
  std::string wk_type = "S";    // "S" outside a circuit, "C" inside one
  int16_t circuit_line = 0;     // 1-based place in the circuit; 0 on "S"
  int16_t circuit_tot = 0;      // lines of the circuit, on each of its lines; 0 on "S"
  int16_t circuit_reps = 0;     // passes of the circuit, on each of its lines; 0 on "S"
  int32_t set_reps = 0;
  int32_t set_dist = 0;         // one repetition, in the workout's course unit
  int32_t set_interval = 0;     // seconds
  std::string set_desc = " ";
  std::string set_note = " ";
  int16_t set_energyno = 0;     // 1..9; 0 or above 9 is undefined
  std::string set_type = " ";   // up to four work letters
  std::string set_categoryabbr = " ";
  int32_t tot_yards = 0;        // derived: the line's distance; the circuit's on its first line
  int32_t set_starttime = 0;    // derived: minutes since midnight
  int32_t set_finishtime = 0;   // carried by files only

  // A note: no distance and no reps.
  bool IsNote() const { return set_dist < 1 && set_reps < 1; }
  bool IsCircuit() const { return wk_type == "C"; }
  bool operator==(const WkLine&) const = default;
};

// One level of the energy array (entries 0..9; entry 0 is " ", "Undefined ", 0).
struct EnergyEntry {
  std::string abbr = " ";
  std::string name = " ";
  int16_t stress_index = 0;
};
using EnergyArray = std::array<EnergyEntry, 10>;

// A row of the look-ahead or lines table: columns 0..19 as text.
using WkRow = std::array<std::string, 20>;
// Rows in order; element 0 is the table's row 1.
using WkTable = std::vector<WkRow>;

// Lines-table columns the screens and reports read.
namespace wkcol {
inline constexpr int kLine = 0, kDistance = 1, kClock = 2, kCircuitMark = 3, kText = 4,
                     kEnergy = 5, kType = 6, kStroke = 7, kPace = 8, kWkType = 10,
                     kCircuitLine = 11, kCircuitTot = 12, kCircuitReps = 13, kReps = 14,
                     kDist = 15, kInterval = 16, kDesc = 17, kEnergyNo = 18, kLine3 = 19;
}

// The header values the routine works from.
struct WorkoutLinesParams {
  int16_t base_interval = 100;  // 50 or 100: the distance a pace is told for
  std::string course = "Y";     // `course_yls`; "M" weighs stress by 1.1
  long rest = 60;               // `rest_period`, seconds
  bool show_stress = true;      // the End row names the stress value
  long start = 960;             // `start_time`, minutes
};

struct WorkoutLinesResult {
  WkTable look_ahead;
  WkTable lines;              // End row included when there is a line
  long clock = 0;             // seconds; the end of the last line
  int16_t stress = 0;
  long distance = 0;
  int16_t line_count = 0;     // rows of `lines`
  std::vector<size_t> changed;  // indexes of rows whose tot_yards or set_starttime were set
};

// Derives every text and total from `rows` (one workout, in wk_line order). With `update`,
// tot_yards and set_starttime of `rows` are set where they differ and their indexes listed in
// `changed`. False when a 32-bit product or the 16-bit stress overflows; `out` then holds the
// rows filled so far. Never throws.
bool gGetWorkoutLines(std::vector<WkLine>& rows, const WorkoutLinesParams& params,
                      const EnergyArray& energy, bool update, WorkoutLinesResult& out);

// The store form: reads the lines of `wk_ptr`, derives, and with `update` writes the changed
// line fields back in one transaction. A failure is reported under `window` +
// ".gGetWorkoutLines" and gives false, `out` holding what was filled.
bool gGetWorkoutLines(AppState& state, int32_t wk_ptr, const WorkoutLinesParams& params,
                      const EnergyArray& energy, bool update, WorkoutLinesResult& out,
                      std::string_view window = "frmWorkout");

// The params of a header row of `WkParam` (show stress on, base interval given).
WorkoutLinesParams ParamsOfWorkout(SQLite::Database& db, int32_t wk_ptr, int16_t base_interval);

// After a call with write-back: writes tot_yards and tot_stress of the header when either
// differs from `result`. True if it wrote.
bool RefreshWorkoutHeader(SQLite::Database& db, int32_t wk_ptr, const WorkoutLinesResult& result);

// The lines of `wk_ptr` in wk_line order; empty when none.
std::vector<WkLine> ReadWorkoutLines(SQLite::Database& db, int32_t wk_ptr);
// Replaces every line of `wk_ptr` by `lines` (their wk_ptr is set to it) in one transaction
// (the caller's, when one is open).
// Texts are cut to their field sizes and empty texts stored as one blank.
void WriteWorkoutLines(SQLite::Database& db, int32_t wk_ptr, const std::vector<WkLine>& lines);

}  // namespace kvlr
