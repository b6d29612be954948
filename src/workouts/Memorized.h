#pragma once
// The library of memorized single sets (`MemSets`) and named circuits (`MemCirName` with
// `MemCirSets`), memorizing from a workout, and the permutations of a set.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/Database.h>

#include "workouts/LineEdits.h"

namespace kvlr {

struct MemSet {
  int32_t set_no = 0;
  SetValues values;
};
// In `memsetorder` (energy, distance, reps, interval, description).
std::vector<MemSet> ReadMemSets(SQLite::Database& db);
// Adds a row (description cut to 30 and trimmed, one blank when empty); its set_no.
int32_t AddMemSet(SQLite::Database& db, const SetValues& v);
void EditMemSet(SQLite::Database& db, int32_t set_no, const SetValues& v);
void DeleteMemSet(SQLite::Database& db, int32_t set_no);

struct MemCircuit {
  int32_t cir_no = 0;
  std::string cir_name;
  int16_t tot_lines = 0;
  int32_t tot_dist = 0;     // one pass
  int32_t tot_seconds = 0;  // one pass
};
// In `memcirname` order (name, then number).
std::vector<MemCircuit> ReadMemCircuits(SQLite::Database& db);
// The lines of a circuit in circuit_line order; a note has reps and dist 0, text in desc.
std::vector<SetValues> ReadMemCircuitLines(SQLite::Database& db, int32_t cir_no);
// A new empty circuit named `name` (must not be empty: returns 0 then); its cir_no.
int32_t AddMemCircuit(SQLite::Database& db, const std::string& name);
void RenameMemCircuit(SQLite::Database& db, int32_t cir_no, const std::string& name);
// The name and all its lines.
void DeleteMemCircuit(SQLite::Database& db, int32_t cir_no);
// Line steps in the library; `at` is 1-based (lines + 1 appends). Totals are taken anew after
// each.
void AddMemCircuitLine(SQLite::Database& db, int32_t cir_no, int at, const SetValues& v);
void AddMemCircuitNote(SQLite::Database& db, int32_t cir_no, int at, const std::string& note);
void EditMemCircuitLine(SQLite::Database& db, int32_t cir_no, int line, const SetValues& v);
void DeleteMemCircuitLine(SQLite::Database& db, int32_t cir_no, int line);
// "Minutes": seconds / 60 cut to one decimal, ".0" added when whole ("12.5", "3.0").
std::string MemMinutesText(int32_t seconds);

// Ctrl+M at row r: what the screen asks or says first.
struct MemorizePlan {
  enum Kind { kRefuse, kAskLine, kAskCircuit } kind = kRefuse;
  std::string text;  // the message or the question
  int first = 0;     // rows to memorize
  int last = 0;
};
MemorizePlan PlanMemorize(const std::vector<WkLine>& lines, int r);
// "Circuit0001".. the first free name (case ignored); "Circuit1001" when all are taken.
std::string NextCircuitName(SQLite::Database& db);
// Memorizes rows first..last of `lines` as MemorizePlan gave them: one set (kAskLine) or a
// circuit under NextCircuitName. Returns the set_no or cir_no.
int32_t Memorize(SQLite::Database& db, const std::vector<WkLine>& lines, const MemorizePlan& plan);

// Other splits of the same send-off time of R x D on I.
struct Permutation {
  int number = 0;
  std::string text;  // "12 x 50 on 0:26"
  int32_t reps = 0;
  int32_t interval = 0;
  bool current = false;  // reps == R
};
std::vector<Permutation> SetPermutations(int32_t reps, int32_t dist, int32_t interval);
enum class PermutationRounding { kNone, kDown, kUp };
// Lands the interval on a multiple of 5 seconds by the option (0 and 5 endings stay).
int32_t RoundPermutationInterval(int32_t interval, PermutationRounding rounding);

}  // namespace kvlr
