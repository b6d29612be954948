#pragma once
// The made-up training of the demo family's last four weeks: workouts as the workout editor's
// line steps take them, calendar events, health records and journal entries, computed from a
// date and a seed alone.

#include <cstdint>
#include <string>
#include <vector>

#include "core/Date.h"
#include "workouts/LineEdits.h"

namespace kvlr::demo {

// One step of the line editor, taken at the End row.
struct PlannedLine {
  enum Kind { kSet, kNewCircuit, kCircuitLine, kNote } kind = kSet;
  SetValues values;  // a note's text in values.desc
  int16_t circuit_reps = 0;
};

struct PlannedWorkout {
  int family = 0;  // index into Plan::family
  Date date;
  std::string start;  // "04:30 PM"
  std::vector<PlannedLine> lines;
};

struct PlannedEvent {
  int family = 0;
  int type = 0;  // EventType
  Date date;
  int start = 0, end = 0;  // minutes
  std::string comment;
};

struct PlannedHealth {
  int family = 0;
  Date date;
  std::string hr, sleep, weight, wellness, comment;
};

struct PlannedJournal {
  Date date;
  std::string subject, comment;
};

struct Training {
  std::vector<PlannedWorkout> workouts;  // by date
  std::vector<PlannedEvent> events;
  std::vector<PlannedHealth> health;
  std::vector<PlannedJournal> journal;
};

// The 28 days before `today`: the older swimmer trains four or five days a week, the younger
// twice.
Training MakeTraining(const Date& today, uint32_t seed);

}  // namespace kvlr::demo
