#pragma once
// The made-up family of the demo and its season and a half of meets, computed from a date
// and a seed alone (no store, no files): the same date and seed give the same plan.

#include <cstdint>
#include <string>
#include <vector>

#include "core/Date.h"
#include "demo/MeetFileWriter.h"

namespace kvlr::demo {

inline constexpr uint32_t kSeed = 20240917;
inline constexpr const char* kStandardName = "DEMO";
inline constexpr const char* kChampionshipType = "CH";
inline constexpr const char* kAgeGroupType = "AG";

// A relay leg other than the lead-off: the import takes only lead-offs, so these are
// entered afterwards as on the relay legs screen.
struct LaterLeg {
  int family = 0;  // index into Plan::family
  int16_t relay_distance = 0;
  int32_t time = 0;
};

struct PlannedMeet {
  MeetFile file;
  bool championship = false;
  std::vector<LaterLeg> later_legs;
};

struct Goal {
  int family = 0;
  char course = 'Y';
  int16_t distance = 0;
  int16_t stroke = 0;
  int32_t time = 0;
};

struct Plan {
  std::vector<Swimmer> family;  // the first two swimmers of every meet file
  std::vector<PlannedMeet> meets;
  std::vector<Goal> goals;
  std::string standard_csv;  // the made-up time standard, in the CSV layout of its import
};

// Meets every five weeks or so over the 18 months before `today`: yards in autumn and
// winter, one short-course metres meet each December, long-course metres in summer.
Plan MakePlan(const Date& today, uint32_t seed = kSeed);

}  // namespace kvlr::demo
