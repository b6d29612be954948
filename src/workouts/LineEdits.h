#pragma once
// The line editing steps of the workout editor as functions on a workout's lines (one
// workout, in wk_line order, numbered 1..n). `r` is the current row of the lines grid,
// 1-based; r = n + 1 is the End row. Every step leaves wk_line 1..n and consistent circuit
// fields (circuit_line 1..circuit_tot, circuit_tot and circuit_reps equal on every line of a
// circuit). Read and write the lines with ReadWorkoutLines / WriteWorkoutLines.
//
// A step that can't run returns false and leaves `lines` unchanged; the screen shows the
// message of Refuse* first where there is one.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "workouts/WorkoutLines.h"

namespace kvlr {

// What the line dialog returns for a set (or a note, in `desc`).
struct SetValues {
  int32_t reps = 0;
  int32_t dist = 0;
  int32_t interval = 0;  // seconds
  std::string desc;
  int16_t energyno = 0;
  std::string type;      // work letters; empty stored as one blank
  std::string category;  // stroke code; empty stored as one blank
};

// The line dialog's checks for a set ("S" or "C" mode), in order; "" when they pass.
std::string CheckSetEntry(int32_t reps, int32_t dist, int32_t interval, bool work_type_valid);
// The note mode's check; "" when it passes.
std::string CheckNoteEntry(const std::string& note);

// "Use the Add Circuit button..." when r lies inside a circuit past its first line.
std::optional<std::string> RefuseAddSingle(const std::vector<WkLine>& lines, int r);

// Titles of the line dialog for each step at r.
std::string AddSingleTitle(const std::vector<WkLine>& lines, int r);
std::string AddNoteTitle(int r);
std::string NewCircuitTitle(int r);
std::string EditTitle(const std::vector<WkLine>& lines, int r);

// F2: a set in front of r (at the End row behind the last line; in an empty workout line 1).
bool AddSingleSet(std::vector<WkLine>& lines, int r, const SetValues& v);
// F5: a note in front of r; inside a circuit (not on its first line) it joins the circuit.
// An empty note is not added.
bool AddNote(std::vector<WkLine>& lines, int r, const std::string& note);
// F4: a new circuit of one line in front of r with `circuit_reps` passes.
bool NewCircuit(std::vector<WkLine>& lines, int r, const SetValues& v, int16_t circuit_reps);

// F3: where a circuit line at r goes, from the types of the rows r-1 and r.
enum class CircuitPlace {
  kNewCircuit,     // neither neighbour is in a circuit: acts as NewCircuit
  kEndOfPrevious,  // joins the circuit ending at r-1, at its end
  kFrontOfNext,    // joins the circuit starting at r, in front
  kInside,         // r is inside a circuit: inserted at r's place
  kAsk,            // r-1 ends a circuit and r starts another: AddCircuitQuestion decides
};
CircuitPlace PlanAddCircuitLine(const std::vector<WkLine>& lines, int r);
// The dialog title of each place (kAsk: of the answer chosen after the question).
std::string AddCircuitTitle(CircuitPlace place, int r);
// The two-line question of kAsk; Yes means kEndOfPrevious, No kFrontOfNext.
std::string AddCircuitQuestion(int r);
// The circuit reps the dialog opens with for `place` (4-like defaults come from the caller).
int16_t CircuitRepsAt(const std::vector<WkLine>& lines, int r, CircuitPlace place,
                      int16_t default_reps);
// Inserts at `place` (not kAsk). `circuit_reps` is written to every line of the circuit when the
// new line becomes its first or the reps differ from the circuit's.
bool AddCircuitLine(std::vector<WkLine>& lines, int r, CircuitPlace place, const SetValues& v,
                    int16_t circuit_reps);

// F6 on a set: every field written; on a first line of a circuit `circuit_reps` goes to the
// whole circuit (ignored elsewhere). On a note line use EditNote.
bool EditLine(std::vector<WkLine>& lines, int r, const SetValues& v, int16_t circuit_reps);
bool EditNote(std::vector<WkLine>& lines, int r, const std::string& note);

// F7: removes row r (nothing on the End row or an empty workout); the circuit closes up.
bool DeleteLine(std::vector<WkLine>& lines, int r);

// Drag of row `from` dropped in front of row `to` (to = n + 1 is the End row). Nothing when
// to == from or to == from + 1. Returns the moved line's new row, 0 when nothing moved.
int MoveLine(std::vector<WkLine>& lines, int from, int to);

// F10: a memorized set in front of r; unlike F2 it may go inside a circuit.
bool InsertMemorizedSet(std::vector<WkLine>& lines, int r, const SetValues& v);
// F11: the lines of a memorized circuit (a note has reps and dist 0, its text in desc) in
// front of r: a circuit of its own with `cycles` passes, or lines of the circuit r lies in.
bool InsertMemorizedCircuit(std::vector<WkLine>& lines, int r, const std::vector<SetValues>& mem,
                            int16_t cycles);

// The permutation chosen: reps and interval of row r.
bool SetRepsAndInterval(std::vector<WkLine>& lines, int r, int32_t reps, int32_t interval);

// First and last row of the circuit that row r lies in; nullopt for "S" rows.
std::optional<std::pair<int, int>> CircuitRows(const std::vector<WkLine>& lines, int r);

}  // namespace kvlr
