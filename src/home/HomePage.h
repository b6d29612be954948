#pragma once
// The home page of the current swimmer: best times in each course against the current
// standard, the last meet's swims with their improvements, the next meet with its entries,
// and the goals with the time still to take off. Read-only: filling it never writes.
//
// Times are hundredths of a second (0: none); courses are 'Y', 'S', 'L'. Standards are
// judged at the swimmer's age today (state.gAthleteAge).

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/AppState.h"
#include "core/Date.h"

namespace kvlr {

inline constexpr std::array<char, 3> kHomeCourses = {'Y', 'S', 'L'};

// One course of one event: the fastest swim there, the level it reaches, the next cut.
struct HomeBestCell {
  int16_t distance = 0;  // as swum in this course (500 yards for a 400 of metres)
  int32_t score = 0;
  int32_t meet = 0;
  std::string level;       // "" when none reached
  std::string next_level;  // "" when there is nothing faster to reach
  int32_t next_cut = 0;
};

struct HomeBestRow {
  int16_t distance = 0;  // as metres swim it
  int16_t stroke = 0;
  std::array<HomeBestCell, 3> cells;  // kHomeCourses order
  int32_t converted = 0;              // the best of the three, converted to the target course
  std::string converted_from;         // the course letter that swim came from
};

struct HomeSwim {
  int64_t result = 0;
  int16_t distance = 0;
  int16_t stroke = 0;
  std::string f_p;
  int32_t score = 0;
  int nt = 0;
  int16_t place = 0;
  int32_t before = 0;  // the best in this course before the meet; 0 when none
  std::string level;

  // Hundredths taken off the earlier best; 0 when there was none or no time now.
  int32_t Improvement() const;
};

struct HomeMeet {
  int32_t meet = 0;
  std::string name;
  Date start;
  std::string course;
  std::string location;
};

struct HomeEntry {
  std::string event;  // event number and letter
  int16_t distance = 0;
  int16_t stroke = 0;
  int32_t score = 0;  // 0: no time
  bool exhibition = false;
};

struct HomeGoal {
  int32_t meet = 0;  // the goal meet
  char course = 'Y';
  int16_t distance = 0;
  int16_t stroke = 0;
  int32_t goal = 0;
  int32_t best = 0;  // in the goal's course; 0 when not swum

  // Hundredths still to take off; 0 once reached, -1 when never swum.
  int32_t ToTakeOff() const;
};

struct HomePage {
  int32_t athlete = 0;
  char target = 'Y';  // the course the converted column speaks
  std::vector<HomeBestRow> bests;
  std::optional<HomeMeet> last_meet;
  std::vector<HomeSwim> last_swims;
  std::optional<HomeMeet> next_meet;
  std::vector<HomeEntry> next_entries;
  std::vector<HomeGoal> goals;
};

// The page of state.gAthlete on `today`; `target` chooses the course of the converted
// column. Store failures are reported under "frmHome.Fill" and give what was read so far.
HomePage FillHomePage(AppState& state, const Date& today, char target);

}  // namespace kvlr
